#include "Doctor.h"

#include "ExitStatus.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vanoka {

namespace {

using Kind = Finding::Kind;

class Findings {
public:
    void good(std::string text) { add(Kind::good, std::move(text), {}); }
    void note(std::string text, std::string remedy = {}) {
        add(Kind::note, std::move(text), std::move(remedy));
    }
    void missing(std::string text, std::string remedy) {
        add(Kind::missing, std::move(text), std::move(remedy));
    }
    std::vector<Finding> take() { return std::move(all_); }

private:
    void add(Kind kind, std::string text, std::string remedy) {
        all_.push_back({kind, std::move(text), std::move(remedy)});
    }

    std::vector<Finding> all_;
};

struct Framework {
    std::string_view name, module; // the module is what the toolkits' variables call it
    std::vector<std::string> address;
    std::string_view running; // is in the answer when the daemon runs
    const char* engineFile;
    std::string_view start, addEngine;
};

const std::array<Framework, 2>& frameworks() {
    static const std::array<Framework, 2> all = {{
        {"IBus",
         "ibus",
         {"ibus", "address"},
         "unix:",
         "/usr/share/ibus/component/vanoka.xml",
         "Start it with: ibus-daemon --daemonize --xim",
         "Run Vanoka --register, then add \"Sinhala (Vanoka)\" in the keyboard settings, or with "
         "ibus-setup."},
        {"Fcitx5",
         "fcitx",
         {"fcitx5-remote", "--check"},
         "",
         "/usr/share/fcitx5/inputmethod/vanoka.conf",
         "Start it with: fcitx5 -d",
         "Start it anew with fcitx5 -rd, then add \"Sinhala (Vanoka)\" with fcitx5-configtool."},
    }};
    return all;
}

struct Toolkit {
    std::string_view name, variable;
    // Where modules are: patterns with the framework's name for the module.
    std::string_view folder, ibusModule, fcitxModule, ibusPackage, fcitxPackage;
};

constexpr std::array toolkits = std::to_array<Toolkit>({
    {"GTK 3", "GTK_IM_MODULE", "/usr/lib*/gtk-3.0/3.*/immodules/", "im-ibus.so", "im-fcitx5.so", "ibus-gtk3",
     "fcitx5-frontend-gtk3"},
    {"GTK 4", "GTK_IM_MODULE", "/usr/lib*/gtk-4.0/4.*/immodules/", "libim-ibus.so", "libim-fcitx5.so",
     "ibus-gtk4", "fcitx5-frontend-gtk4"},
    {"Qt 6", "QT_IM_MODULE", "/usr/lib*/qt6/plugins/platforminputcontexts/",
     "libibusplatforminputcontextplugin.so", "libfcitx5platforminputcontextplugin.so", "libqt6gui6",
     "fcitx5-frontend-qt6"},
    {"Qt 5", "QT_IM_MODULE", "/usr/lib*/qt5/plugins/platforminputcontexts/",
     "libibusplatforminputcontextplugin.so", "libfcitx5platforminputcontextplugin.so", "libqt5gui5",
     "fcitx5-frontend-qt5"},
});

/// Libraries are in a folder of their architecture on some distributions and not on others.
bool hasLibraryFile(const DoctorSystem& system, std::string_view folder, std::string_view file) {
    constexpr std::string_view start = "/usr/lib*";
    const std::string rest = std::string(folder.substr(start.size())) + std::string(file);
    return system.hasFile(std::string(start) + rest) || system.hasFile(std::string(start) + "/*" + rest);
}

bool runs(const DoctorSystem& system, const Framework& framework) {
    const auto answer = system.output(framework.address);
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

bool knowsEngine(const DoctorSystem& system, const Framework& framework) {
    if (framework.module != "ibus")
        return system.hasFile(framework.engineFile);
    // A whole word: the list has one engine to a line, with its long name after it.
    const auto engines = system.output({"ibus", "list-engine"});
    return engines && (" " + *engines).find(" vanoka ") != std::string::npos;
}

void examineFramework(const DoctorSystem& system, const Framework& framework, bool isRunning,
                      Findings& findings) {
    const std::string name(framework.name);
    if (!system.hasFile(framework.engineFile))
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

/// Desktops under Wayland hand text on themselves, and GTK finds IBus by itself: a variable that is not set
/// need not be wrong, one that names another module is.
void examineVariable(const DoctorSystem& system, const Framework& framework, const char* variable,
                     bool findsItself, Findings& findings) {
    const std::string value = system.variable(variable), name(variable);
    const std::string wanted(framework.module);
    if (value == wanted || (framework.module == "fcitx" && value == "fcitx5")) {
        findings.good(name + " is " + value + ".");
    } else if (!value.empty()) {
        findings.missing(name + " is " + value + ", so programs do not ask " + std::string(framework.name) +
                             ".",
                         "Set " + name + "=" + wanted +
                             " where your session sets it, for instance with im-config, and log in again.");
    } else if (!findsItself && system.variable("WAYLAND_DISPLAY").empty()) {
        findings.missing(name + " is not set.",
                         "Set " + name + "=" + wanted + ", for instance with im-config, and log in again.");
    } else {
        findings.note(name + " is not set; programs find the input method by themselves.");
    }
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

void examineModules(const DoctorSystem& system, const Framework& framework, Findings& findings) {
    const bool isIBus = framework.module == "ibus";
    for (const Toolkit& toolkit : toolkits) {
        const std::string_view base =
            toolkit.folder.substr(0, toolkit.folder.find('/', std::size("/usr/lib*")));
        const bool isToolkitThere = hasLibraryFile(system, base, "");
        if (!isToolkitThere)
            continue; // no program here uses it
        const std::string name(toolkit.name);
        if (hasLibraryFile(system, toolkit.folder, isIBus ? toolkit.ibusModule : toolkit.fcitxModule))
            findings.good(name + " has a module for " + std::string(framework.name) + ".");
        else {
            findings.note(name + " has no module for " + std::string(framework.name) +
                              ": programs that use it get the Latin letters under X.",
                          "Install the package " +
                              std::string(isIBus ? toolkit.ibusPackage : toolkit.fcitxPackage) + ".");
        }
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
        examineVariable(system, *framework, "GTK_IM_MODULE", framework->module == "ibus", findings);
        examineVariable(system, *framework, "QT_IM_MODULE", false, findings);
        examineXim(system, *framework, findings);
        examineModules(system, *framework, findings);
    } else {
        findings.missing("Neither IBus nor Fcitx5 is installed.",
                         "Install the package ibus, or fcitx5, and log in again.");
    }
    examineFonts(system, findings);
    examineLocale(system, findings);
    examineKeys(system, findings);
    return findings.take();
}

int runDoctor(const DoctorSystem& system, std::ostream& output) {
    const auto findings = examine(system);
    for (const Finding& finding : findings) {
        output << markOf(finding.kind) << finding.text << '\n';
        if (!finding.remedy.empty())
            output << "         " << finding.remedy << '\n';
    }
    const bool isComplete =
        std::ranges::none_of(findings, [](const Finding& finding) { return finding.kind == Kind::missing; });
    output << (isComplete ? "Sinhala can be typed.\n"
                          : "Something is missing. Mend the first thing first, and look again.\n");
    return isComplete ? ExitStatus::done : ExitStatus::refused;
}

} // namespace vanoka
