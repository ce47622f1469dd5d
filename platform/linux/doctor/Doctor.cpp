#include "DoctorFindings.h"
#include "DoctorToolkits.h"
#include "EngineFiles.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

namespace vanoka {

namespace {

using Kind = Finding::Kind;

struct Framework {
    std::string_view name, module; // the module is what the toolkits' variables call it
    std::vector<std::string> question;
    std::string_view running; // is in the answer when the daemon runs
    std::vector<std::filesystem::path> (*engineFiles)(const DoctorSystem& system);
    std::string_view start, addEngine;
};

/// Fcitx5 first, as it answers to IBus's address, too.
const std::array<Framework, 2>& frameworks() {
    static const std::array<Framework, 2> all = {{
        {"Fcitx5",
         "fcitx",
         // Not its own command, for which the bus would start it.
         {"dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus",
          "/org/freedesktop/DBus", "org.freedesktop.DBus.NameHasOwner", "string:org.fcitx.Fcitx5"},
         "true",
         [](const DoctorSystem&) { return EngineFiles::ofFcitx5(); },
         "Start it with: fcitx5 -d",
         "Start it anew with fcitx5 -rd, then add \"Sinhala (Vanoka)\" with fcitx5-configtool."},
        {"IBus",
         "ibus",
         {"ibus", "address"},
         "unix:",
         [](const DoctorSystem& system) {
             return EngineFiles::ofIBus(system.variable(EngineFiles::componentPath));
         },
         "Start it with: ibus-daemon --daemonize --xim",
         "Run Vanoka --register, then add \"Sinhala (Vanoka)\" in the keyboard settings, or with "
         "ibus-setup."},
    }};
    return all;
}

bool runs(const DoctorSystem& system, const Framework& framework) {
    const auto answer = system.output(framework.question);
    return answer && answer->find(framework.running) != std::string::npos;
}

bool isInstalled(const DoctorSystem& system, const Framework& framework) {
    return system.hasFile("/usr/bin/" + std::string(framework.name == "IBus" ? "ibus-daemon" : "fcitx5"));
}

/// The framework that runs, or else the one that is installed; null when there is neither.
const Framework* presentFramework(const DoctorSystem& system, bool& isRunning) {
    for (const Framework& framework : frameworks())
        if (isRunning = runs(system, framework); isRunning)
            return &framework;
    const auto* installed = std::ranges::find_if(
        frameworks(), [&](const Framework& framework) { return isInstalled(system, framework); });
    return installed == frameworks().end() ? nullptr : installed;
}

/// A pattern of the shell that matches this path alone.
std::string patternFor(const std::filesystem::path& path) {
    std::string pattern;
    for (const char byte : path.native()) {
        if (std::string_view("*?[\\").find(byte) != std::string_view::npos)
            pattern += '\\';
        pattern += byte;
    }
    return pattern;
}

bool hasEngine(const DoctorSystem& system, const Framework& framework) {
    return std::ranges::any_of(framework.engineFiles(system),
                               [&](const auto& path) { return system.hasFile(patternFor(path)); });
}

bool knowsEngine(const DoctorSystem& system, const Framework& framework) {
    if (framework.module != "ibus")
        return hasEngine(system, framework);
    // A whole word: the list has one engine to a line, with its long name after it.
    const auto engines = system.output({"ibus", "list-engine"});
    return engines && (" " + *engines).find(" vanoka ") != std::string::npos;
}

void examineFramework(const DoctorSystem& system, const Framework& framework, bool isRunning,
                      Findings& findings) {
    const std::string name(framework.name);
    if (!hasEngine(system, framework))
        findings.missing("Vanoka is not installed for " + name + ".",
                         "Install the package vanoka, or run ./run --desktop in its source folder.");
    if (!isRunning) {
        findings.missing(name + " is installed, but its daemon does not run.", std::string(framework.start));
        return;
    }
    findings.good(name + " runs.");
    if (knowsEngine(system, framework))
        findings.good(name + " knows Vanoka.");
    else
        findings.missing(name + " does not know Vanoka.", std::string(framework.addEngine));
}

void examineXim(const DoctorSystem& system, const Framework& framework, Findings& findings) {
    const std::string wanted = "@im=" + std::string(framework.module);
    const std::string value = system.variable("XMODIFIERS");
    if (value.find(wanted) != std::string::npos)
        findings.good("XMODIFIERS is " + value + ".");
    else {
        findings.note("XMODIFIERS is " + (value.empty() ? std::string("not set") : value) +
                          ": old programs such as xterm get no Sinhala.",
                      "Set XMODIFIERS=" + wanted + ", for instance with im-config, and log in again.");
    }
}

/// A font that has the letters but not their rules shows vowel signs and joined letters apart.
void examineFonts(const DoctorSystem& system, Findings& findings) {
    const auto fonts = system.output({"fc-list", "--format", "%{capability}\\n", ":lang=si"});
    const std::string remedy = "Install the package fonts-noto-core, or another font with Sinhala.";
    if (!fonts) {
        findings.note("Which fonts there are could not be found out.",
                      "Install the package fontconfig, and look again.");
    } else if (fonts->find("otlayout:sinh") != std::string::npos) {
        findings.good("A font can show and join Sinhala letters.");
    } else if (!fonts->empty()) {
        findings.missing("There is a font with Sinhala letters, but it cannot join them.", remedy);
    } else {
        findings.missing("No font has Sinhala letters.", remedy);
    }
}

void examineLocale(const DoctorSystem& system, Findings& findings) {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        std::string value = system.variable(name);
        if (value.empty())
            continue;
        std::ranges::transform(value, value.begin(), [](char byte) {
            return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
        });
        if (value.find("utf-8") != std::string::npos || value.find("utf8") != std::string::npos)
            return;
        break;
    }
    findings.note("The locale is not UTF-8: old programs such as xterm get no Sinhala.",
                  "Choose a UTF-8 locale in the language settings, and log in again.");
}

/// Without them the built-in keys type.
void examineKeys(const DoctorSystem& system, Findings& findings) {
    if (const std::string problem = system.keysProblem(); !problem.empty())
        findings.note(problem);
    else
        findings.good("Your own keys can be read.");
}

/// Without them the word lists alone suggest.
void examineWords(const DoctorSystem& system, Findings& findings) {
    const auto problems = system.wordProblems();
    for (const std::string& problem : problems)
        findings.note(problem);
    if (problems.empty())
        findings.good("What was learnt can be read.");
}

/// Without them nothing is suggested; typing needs none.
void examineLists(const DoctorSystem& system, Findings& findings) {
    const auto problems = system.listProblems();
    for (const std::string& problem : problems)
        findings.note(problem, "Suggestions do without it. Mend or remove it, or install the package anew.");
    if (problems.empty())
        findings.good("The word lists can be read.");
}

std::string_view markOf(Kind kind) {
    switch (kind) {
    case Kind::good:
        return "ok       ";
    case Kind::note:
        return "note     ";
    case Kind::missing:
        break;
    }
    return "MISSING  ";
}

} // namespace

std::vector<Finding> examine(const DoctorSystem& system) {
    Findings findings;
    bool isRunning = false;
    if (const Framework* framework = presentFramework(system, isRunning)) {
        examineFramework(system, *framework, isRunning, findings);
        examineToolkits(system, {framework->name, framework->module}, findings);
        examineXim(system, *framework, findings);
    } else {
        findings.missing("Neither IBus nor Fcitx5 is installed.",
                         "Install the package ibus, or fcitx5, and log in again.");
    }
    examineFonts(system, findings);
    examineLocale(system, findings);
    examineKeys(system, findings);
    examineWords(system, findings);
    examineLists(system, findings);
    return findings.take();
}

bool writeFindings(const std::vector<Finding>& findings, std::ostream& output) {
    for (const Finding& finding : findings) {
        output << markOf(finding.kind) << finding.text << '\n';
        if (!finding.remedy.empty())
            output << "         " << finding.remedy << '\n';
    }
    const bool isComplete =
        std::ranges::none_of(findings, [](const Finding& finding) { return finding.kind == Kind::missing; });
    output << (isComplete ? "Sinhala can be typed.\n"
                          : "Something is missing. Mend the first thing first, and look again.\n");
    return isComplete;
}

} // namespace vanoka
