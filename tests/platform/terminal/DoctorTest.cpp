#include "Doctor.h"

#include <algorithm>
#include <fnmatch.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>

namespace vanoka {

namespace {

/// A desktop on which everything is as it should be, to take things away from.
struct Desktop {
    std::map<std::string, std::string, std::less<>> variables = {{"GTK_IM_MODULE", "ibus"},
                                                                 {"QT_IM_MODULE", "ibus"},
                                                                 {"XMODIFIERS", "@im=ibus"},
                                                                 {"LANG", "si_LK.UTF-8"}};
    std::set<std::string> files = {
        "/usr/bin/ibus-daemon",
        "/usr/share/ibus/component/vanoka.xml",
        "/usr/lib/x86_64-linux-gnu/gtk-3.0/3.0.0/immodules/im-ibus.so",
        "/usr/lib/x86_64-linux-gnu/gtk-3.0",
        "/usr/lib64/qt6/plugins/platforminputcontexts/libibusplatforminputcontextplugin.so",
        "/usr/lib64/qt6",
    };
    std::map<std::string, std::string> outputs = {
        {"ibus address", "unix:path=/run/ibus\n"},
        {"ibus list-engine", "language: Sinhala\n  vanoka - Sinhala (Vanoka)\n"},
        {"fc-list --format %{capability}\\n :lang=si", "otlayout:latn otlayout:sinh\n"},
    };
    std::string keysProblem;

    DoctorSystem system() const {
        return {[this](std::string_view name) {
                    const auto found = variables.find(name);
                    return found == variables.end() ? std::string() : found->second;
                },
                [this](const std::string& pattern) {
                    return std::ranges::any_of(files, [&](const std::string& file) {
                        const bool isFolder = pattern.ends_with('/');
                        return ::fnmatch(pattern.c_str(), (isFolder ? file + "/" : file).c_str(),
                                         FNM_PATHNAME) == 0;
                    });
                },
                [this](const std::vector<std::string>& command) -> std::optional<std::string> {
                    std::string line;
                    for (const std::string& word : command)
                        line += (line.empty() ? "" : " ") + word;
                    const auto found = outputs.find(line);
                    return found == outputs.end() ? std::nullopt : std::optional(found->second);
                },
                [this] { return keysProblem; }};
    }

    std::string report(int status) const {
        std::ostringstream output;
        EXPECT_EQ(runDoctor(system(), output), status) << output.str();
        return output.str();
    }
};

bool says(const std::string& report, const std::string& text) {
    return report.find(text) != std::string::npos;
}

TEST(Doctor, FindsNothingMissingWhereAllIsThere) {
    const std::string report = Desktop().report(0);
    EXPECT_FALSE(says(report, "MISSING")) << report;
    EXPECT_FALSE(says(report, "note")) << report;
    EXPECT_TRUE(says(report, "ok       IBus knows Vanoka.\n")) << report;
    EXPECT_TRUE(report.ends_with("\nSinhala can be typed.\n")) << report;
}

TEST(Doctor, SaysWhatToDoAboutEachThingThatIsMissing) {
    struct Row {
        const char* name;
        std::function<void(Desktop&)> take;
        const char *finding, *remedy;
    };
    for (const Row& row : std::vector<Row>{
             {"nothing installed",
              [](Desktop& desktop) {
                  desktop.files.clear();
                  desktop.outputs.erase("ibus address");
              },
              "Neither IBus nor Fcitx5 is installed.", "Install the package ibus"},
             {"daemon not running", [](Desktop& desktop) { desktop.outputs["ibus address"] = "(null)\n"; },
              "its daemon does not run", "ibus-daemon --daemonize"},
             {"engine not installed",
              [](Desktop& desktop) { desktop.files.erase("/usr/share/ibus/component/vanoka.xml"); },
              "Vanoka is not installed for IBus", "Install the package vanoka"},
             {"engine not known",
              [](Desktop& desktop) { desktop.outputs["ibus list-engine"] = "  vanokas - Others\n"; },
              "IBus does not know Vanoka", "Vanoka --register"},
             {"another module", [](Desktop& desktop) { desktop.variables["GTK_IM_MODULE"] = "xim"; },
              "GTK_IM_MODULE is xim", "Set GTK_IM_MODULE=ibus"},
             {"Qt finds nothing by itself under X",
              [](Desktop& desktop) { desktop.variables.erase("QT_IM_MODULE"); }, "QT_IM_MODULE is not set.",
              "Set QT_IM_MODULE=ibus"},
             {"no font",
              [](Desktop& desktop) { desktop.outputs["fc-list --format %{capability}\\n :lang=si"] = ""; },
              "No font has Sinhala letters.", "fonts-noto-core"},
             {"a font without rules",
              [](Desktop& desktop) { desktop.outputs["fc-list --format %{capability}\\n :lang=si"] = "\n"; },
              "it cannot join them", "fonts-noto-core"},
         }) {
        Desktop desktop;
        row.take(desktop);
        const std::string report = desktop.report(1);
        EXPECT_TRUE(says(report, "MISSING")) << row.name << '\n' << report;
        EXPECT_TRUE(says(report, row.finding)) << row.name << '\n' << report;
        EXPECT_TRUE(says(report, row.remedy)) << row.name << '\n' << report;
    }
}

TEST(Doctor, OnlyNotesWhatSomeProgramsDoWithout) {
    struct Row {
        std::function<void(Desktop&)> take;
        const char* note;
    };
    for (const Row& row : std::vector<Row>{
             {[](Desktop& desktop) { desktop.variables.erase("XMODIFIERS"); }, "XMODIFIERS is not set"},
             {[](Desktop& desktop) { desktop.variables.erase("GTK_IM_MODULE"); },
              "GTK_IM_MODULE is not set; programs"},
             {[](Desktop& desktop) {
                  desktop.variables.erase("QT_IM_MODULE");
                  desktop.variables["WAYLAND_DISPLAY"] = "wayland-0";
              },
              "QT_IM_MODULE is not set; programs"},
             {[](Desktop& desktop) { desktop.files.insert("/usr/lib/x86_64-linux-gnu/gtk-4.0"); },
              "GTK 4 has no module for IBus"},
             {[](Desktop& desktop) { desktop.variables["LC_ALL"] = "C"; }, "The locale is not UTF-8"},
             {[](Desktop& desktop) { desktop.variables.erase("LANG"); }, "The locale is not UTF-8"},
             {[](Desktop& desktop) { desktop.outputs.erase("fc-list --format %{capability}\\n :lang=si"); },
              "Which fonts there are could not be found out."},
             {[](Desktop& desktop) { desktop.keysProblem = "Your keys cannot be read: It is damaged."; },
              "Your keys cannot be read: It is damaged."},
         }) {
        Desktop desktop;
        row.take(desktop);
        const std::string report = desktop.report(0);
        EXPECT_TRUE(says(report, std::string("note     ") + row.note)) << row.note << '\n' << report;
    }
}

TEST(Doctor, KnowsFcitx5) {
    Desktop desktop;
    desktop.outputs.erase("ibus address");
    desktop.outputs["fcitx5-remote --check"] = "";
    desktop.files.insert("/usr/share/fcitx5/inputmethod/vanoka.conf");
    desktop.files.insert(
        "/usr/lib64/qt6/plugins/platforminputcontexts/libfcitx5platforminputcontextplugin.so");
    desktop.files.insert("/usr/lib/x86_64-linux-gnu/gtk-3.0/3.0.0/immodules/im-fcitx5.so");
    desktop.variables = {{"GTK_IM_MODULE", "fcitx"},
                         {"QT_IM_MODULE", "fcitx5"},
                         {"XMODIFIERS", "@im=fcitx"},
                         {"LC_CTYPE", "C.utf8"}};
    const std::string report = desktop.report(0);
    EXPECT_TRUE(says(report, "Fcitx5 knows Vanoka")) << report;
    EXPECT_FALSE(says(report, "note")) << report;
}

TEST(Doctor, AsksTheRealSystem) {
    MemoryUserDefaults defaults;
    const SinglishSettings settings(defaults);
    const DoctorSystem system = DoctorSystem::real(settings);
    ::setenv("VANOKA_TEST_VARIABLE", "value", 1);
    EXPECT_EQ(system.variable("VANOKA_TEST_VARIABLE"), "value");
    EXPECT_EQ(system.variable("VANOKA_NO_SUCH_VARIABLE"), "");
    EXPECT_TRUE(system.hasFile("/bin/s?"));
    EXPECT_FALSE(system.hasFile("/no-such-folder/*"));
    EXPECT_EQ(system.output({"echo", "two words", "$HOME"}), "two words $HOME\n");
    EXPECT_EQ(system.output({"no-such-program-at-all"}), std::nullopt);
    EXPECT_EQ(system.output({"false"}), std::nullopt);
    const auto much = system.output({"sh", "-c", "yes | head -c 300000"});
    ASSERT_TRUE(much.has_value());
    EXPECT_EQ(much->size(), 300000U);
    EXPECT_EQ(system.keysProblem(), "");
    defaults.setData(SinglishSettings::storedName, "{");
    const SinglishSettings damaged(defaults);
    EXPECT_EQ(DoctorSystem::real(damaged).keysProblem(),
              "Your keys cannot be read: It is damaged. Your next change sets it aside.");
}

} // namespace

} // namespace vanoka
