#include "Doctor.h"

#include "TemporaryFolder.h"

#include <algorithm>
#include <filesystem>
#include <fnmatch.h>
#include <fstream>
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
        "/usr/lib/x86_64-linux-gnu/libgtk-3.so.0",
        "/usr/lib/x86_64-linux-gnu/gtk-3.0/3.0.0/immodules/im-ibus.so",
        "/usr/lib/x86_64-linux-gnu/gtk-3.0",
        "/usr/lib64/qt6/plugins/platforminputcontexts/libibusplatforminputcontextplugin.so",
        "/usr/lib64/qt6",
        "/usr/lib64/libQt6WaylandClient.so.6",
    };
    std::map<std::string, std::string> contents = {
        {"/usr/lib/x86_64-linux-gnu/libgtk-3.so.0", "zwp_text_input_manager_v3"},
        {"/usr/lib64/libQt6WaylandClient.so.6", "zwp_text_input_manager_v1 zwp_text_input_manager_v2"}};
    std::optional<Compositor> compositor;
    std::map<std::string, std::string> outputs = {
        {"ibus address", "unix:path=/run/ibus\n"},
        {"ibus list-engine", "language: Sinhala\n  vanoka - Sinhala (Vanoka)\n"},
        {"fc-list --format %{capability}\\n :lang=si", "otlayout:latn otlayout:sinh\n"},
    };
    std::string keysProblem;
    std::vector<std::string> wordProblems;
    std::vector<std::string> listProblems;

    DoctorSystem system() const {
        return {[this](std::string_view name) {
                    const auto found = variables.find(name);
                    return found == variables.end() ? std::string() : found->second;
                },
                [this](const std::string& pattern) {
                    return std::ranges::any_of(
                        files, [&](const std::string& file) { return isLike(file, pattern); });
                },
                [this](const std::string& pattern, std::string_view text) {
                    return std::ranges::any_of(contents, [&](const auto& file) {
                        return isLike(file.first, pattern) && file.second.find(text) != std::string::npos;
                    });
                },
                [this] { return compositor; },
                [this](const std::vector<std::string>& command) -> std::optional<std::string> {
                    std::string line;
                    for (const std::string& word : command)
                        line += (line.empty() ? "" : " ") + word;
                    const auto found = outputs.find(line);
                    return found == outputs.end() ? std::nullopt : std::optional(found->second);
                },
                [this] { return keysProblem; },
                [this] { return wordProblems; },
                [this] { return listProblems; }};
    }

    static bool isLike(const std::string& file, const std::string& pattern) {
        const std::string path = pattern.ends_with('/') ? file + "/" : file;
        return ::fnmatch(pattern.c_str(), path.c_str(), FNM_PATHNAME) == 0;
    }

    /// What is written where nothing is missing, or something is.
    std::string report(bool isComplete) const {
        std::ostringstream output;
        EXPECT_EQ(writeFindings(examine(system()), output), isComplete) << output.str();
        return output.str();
    }
};

const std::string hasFcitx5 =
    "dbus-send --session --print-reply=literal --dest=org.freedesktop.DBus /org/freedesktop/DBus "
    "org.freedesktop.DBus.NameHasOwner string:org.fcitx.Fcitx5";

bool says(const std::string& report, const std::string& text) {
    return report.find(text) != std::string::npos;
}

TEST(Doctor, FindsNothingMissingWhereAllIsThere) {
    const std::string report = Desktop().report(true);
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
              "GTK 3 get Latin letters: GTK_IM_MODULE is xim", "Set GTK_IM_MODULE=ibus"},
             {"Qt finds nothing by itself under X",
              [](Desktop& desktop) { desktop.variables.erase("QT_IM_MODULE"); },
              "Qt 6 get Latin letters: QT_IM_MODULE is not set.", "Set QT_IM_MODULE=ibus"},
             {"no font",
              [](Desktop& desktop) { desktop.outputs["fc-list --format %{capability}\\n :lang=si"] = ""; },
              "No font has Sinhala letters.", "fonts-noto-core"},
             {"a font without rules",
              [](Desktop& desktop) { desktop.outputs["fc-list --format %{capability}\\n :lang=si"] = "\n"; },
              "it cannot join them", "fonts-noto-core"},
         }) {
        Desktop desktop;
        row.take(desktop);
        const std::string report = desktop.report(false);
        EXPECT_TRUE(says(report, "MISSING")) << row.name << '\n' << report;
        EXPECT_TRUE(says(report, row.finding)) << row.name << '\n' << report;
        EXPECT_TRUE(says(report, row.remedy)) << row.name << '\n' << report;
    }
}

TEST(Doctor, LooksForTheComponentWhereTheDaemonLooks) {
    const std::string notInstalled = "Vanoka is not installed for IBus";
    Desktop desktop;
    desktop.files.erase("/usr/share/ibus/component/vanoka.xml");
    desktop.files.insert("/opt/vanoka [2]/component/vanoka.xml");
    desktop.variables["IBUS_COMPONENT_PATH"] = "/no/such:/opt/vanoka [2]/component";
    EXPECT_FALSE(says(desktop.report(true), notInstalled));
    desktop.variables["IBUS_COMPONENT_PATH"] = "/no/such";
    EXPECT_TRUE(says(desktop.report(false), notInstalled));
    desktop.files.insert("/usr/share/ibus/component/vanoka.xml");
    EXPECT_TRUE(says(desktop.report(false), notInstalled)) << "the variable stands for the usual folders";
    desktop.variables.erase("IBUS_COMPONENT_PATH");
    EXPECT_FALSE(says(desktop.report(true), notInstalled));
}

TEST(Doctor, OnlyNotesWhatSomeProgramsDoWithout) {
    struct Row {
        std::function<void(Desktop&)> take;
        const char* note;
    };
    for (const Row& row : std::vector<Row>{
             {[](Desktop& desktop) { desktop.variables.erase("XMODIFIERS"); }, "XMODIFIERS is not set"},
             {[](Desktop& desktop) { desktop.files.insert("/usr/lib/x86_64-linux-gnu/gtk-4.0"); },
              "Programs with GTK 4 get Latin letters: they have no module for IBus."},
             {[](Desktop& desktop) {
                  desktop.variables["WAYLAND_DISPLAY"] = "wayland-0"; // and it does not answer
                  desktop.variables.erase("QT_IM_MODULE");
              },
              "What programs with Qt 6 get could not be found out"},
             {[](Desktop& desktop) { desktop.variables["LC_ALL"] = "C"; }, "The locale is not UTF-8"},
             {[](Desktop& desktop) { desktop.variables.erase("LANG"); }, "The locale is not UTF-8"},
             {[](Desktop& desktop) { desktop.outputs.erase("fc-list --format %{capability}\\n :lang=si"); },
              "Which fonts there are could not be found out."},
             {[](Desktop& desktop) { desktop.keysProblem = "Your keys cannot be read: It is damaged."; },
              "Your keys cannot be read: It is damaged."},
             {[](Desktop& desktop) {
                  desktop.wordProblems = {"One word.", "Damaged words are kept as FILE."};
              },
              "Damaged words are kept as FILE."},
             {[](Desktop& desktop) { desktop.listProblems = {"The word list en.tsv is not installed."}; },
              "The word list en.tsv is not installed."},
         }) {
        Desktop desktop;
        row.take(desktop);
        const std::string report = desktop.report(true);
        EXPECT_TRUE(says(report, std::string("note     ") + row.note)) << row.note << '\n' << report;
    }
}

TEST(Doctor, KnowsFcitx5) {
    Desktop desktop;
    desktop.outputs[hasFcitx5] = "   boolean true\n"; // and IBus's address is answered, as Fcitx5 does
    desktop.files.insert("/usr/share/fcitx5/inputmethod/vanoka.conf");
    desktop.files.insert(
        "/usr/lib64/qt6/plugins/platforminputcontexts/libfcitx5platforminputcontextplugin.so");
    desktop.files.insert("/usr/lib/x86_64-linux-gnu/gtk-3.0/3.0.0/immodules/im-fcitx5.so");
    desktop.variables = {{"GTK_IM_MODULE", "fcitx"},
                         {"QT_IM_MODULE", "fcitx5"},
                         {"XMODIFIERS", "@im=fcitx"},
                         {"LC_CTYPE", "C.utf8"}};
    const std::string report = desktop.report(true);
    EXPECT_TRUE(says(report, "Fcitx5 knows Vanoka")) << report;
    EXPECT_FALSE(says(report, "note")) << report;
}

enum class Framework : bool { ibus, fcitx5 };

/// A desktop with only that framework, no variables, and modules of both toolkits for it.
Desktop bareDesktop(Framework framework, std::optional<Compositor> compositor) {
    Desktop desktop;
    desktop.variables = {{"LANG", "C.UTF-8"}};
    desktop.compositor = std::move(compositor);
    if (desktop.compositor)
        desktop.variables["WAYLAND_DISPLAY"] = "wayland-0";
    if (framework == Framework::ibus)
        return desktop;
    desktop.outputs[hasFcitx5] = "   boolean true\n";
    desktop.files.insert({"/usr/share/fcitx5/inputmethod/vanoka.conf",
                          "/usr/lib/x86_64-linux-gnu/gtk-3.0/3.0.0/immodules/im-fcitx5.so",
                          "/usr/lib64/qt6/plugins/platforminputcontexts/"
                          "libfcitx5platforminputcontextplugin.so"});
    return desktop;
}

const Compositor gnome = {{"gtk_shell1", "zwp_text_input_manager_v3"}};
const Compositor kwin = {{"org_kde_plasma_shell", "zwp_text_input_manager_v1", "zwp_text_input_manager_v2",
                          "zwp_text_input_manager_v3"}};
const Compositor sway = {{"zwp_input_method_manager_v2", "zwp_text_input_manager_v3"}};
const Compositor plainCompositor = {{"wl_seat"}};

Compositor taken(Compositor compositor) {
    compositor.hasInputMethod = true;
    return compositor;
}

/// The rows of the table in docs/desktop.md, as tests/desktop/compositors.py finds them with real ones.
TEST(Doctor, KnowsWhichProgramsEachCompositorServes) {
    const std::string hasInputMethodOfPlasma =
        "dbus-send --session --print-reply=literal --dest=org.kde.KWin /VirtualKeyboard "
        "org.freedesktop.DBus.Properties.Get string:org.kde.kwin.VirtualKeyboard string:available";
    const std::string sinhala = "Sinhala, through", latin = "Latin letters: ";
    const std::string byModule = " their module", byCompositor = " the compositor.";
    const std::string unset = "QT_IM_MODULE is not set.", nobody = "they ask the compositor, which has no";
    struct Row {
        const char* name;
        Framework framework;
        std::optional<Compositor> compositor;
        std::string variable, available, gtk, qt;
    };
    for (const Row& row : std::vector<Row>{
             {"X11", Framework::ibus, {}, "", "", sinhala + byModule, latin + unset},
             {"X11", Framework::ibus, {}, "ibus", "", sinhala + byModule, sinhala + byModule},
             {"X11", Framework::fcitx5, {}, "", "", sinhala + byModule, latin + unset},
             {"GNOME", Framework::ibus, gnome, "", "", sinhala + byCompositor, latin + unset},
             {"GNOME", Framework::ibus, gnome, "ibus", "", sinhala + byCompositor, sinhala + byModule},
             {"GNOME", Framework::fcitx5, gnome, "", "", latin + "GNOME Shell hands text to IBus alone.",
              latin + unset},
             {"KWin", Framework::fcitx5, kwin, "", "true", sinhala + byCompositor, sinhala + byCompositor},
             {"KWin", Framework::fcitx5, kwin, "", "false", latin + nobody, latin + nobody},
             {"KWin", Framework::fcitx5, kwin, "fcitx", "false", latin + nobody, sinhala + byModule},
             {"sway", Framework::fcitx5, taken(sway), "", "", sinhala + byCompositor, latin + unset},
             {"sway", Framework::fcitx5, taken(sway), "fcitx", "", sinhala + byCompositor,
              sinhala + byModule},
             {"sway", Framework::fcitx5, sway, "", "", latin + nobody, latin + unset},
             {"sway", Framework::ibus, sway, "", "", latin + nobody, latin + unset},
             {"plain", Framework::ibus, plainCompositor, "", "", sinhala + byModule, latin + unset},
         }) {
        Desktop desktop = bareDesktop(row.framework, row.compositor);
        desktop.variables["QT_IM_MODULE"] = row.variable;
        desktop.outputs[hasInputMethodOfPlasma] = "   variant       boolean " + row.available + "\n";
        const bool isComplete = row.gtk.starts_with(sinhala) && row.qt.starts_with(sinhala);
        const std::string report = desktop.report(isComplete);
        EXPECT_TRUE(says(report, "Programs with GTK 3 get " + row.gtk)) << row.name << '\n' << report;
        EXPECT_TRUE(says(report, "Programs with Qt 6 get " + row.qt)) << row.name << '\n' << report;
        EXPECT_EQ(says(report, "such as foot"), row.compositor && !says(row.gtk, byCompositor))
            << row.name << '\n'
            << report;
    }
}

TEST(Doctor, AVariableThatNamesWaylandIsAsGoodAsNone) {
    Desktop desktop = bareDesktop(Framework::ibus, gnome);
    desktop.variables["GTK_IM_MODULE"] = "wayland";
    EXPECT_TRUE(says(desktop.report(false), "GTK 3 get Sinhala, through the compositor."));
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
    EXPECT_TRUE(system.fileHolds("/bin/s?", "ELF"));
    EXPECT_FALSE(system.fileHolds("/bin/s?", "what no program of the system says"));
    EXPECT_FALSE(system.fileHolds("/no-such-folder/*", ""));
    ::setenv("WAYLAND_DISPLAY", "no-such-compositor", 1);
    EXPECT_FALSE(system.compositor().has_value());
    ::unsetenv("XDG_RUNTIME_DIR");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(system.compositor().has_value());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "the doctor alone speaks";
    EXPECT_EQ(system.output({"echo", "two words", "$HOME"}), "two words $HOME\n");
    EXPECT_EQ(system.output({"no-such-program-at-all"}), std::nullopt);
    EXPECT_EQ(system.output({"false"}), std::nullopt);
    const auto much = system.output({"sh", "-c", "yes | head -c 300000"});
    ASSERT_TRUE(much.has_value());
    EXPECT_EQ(much->size(), 300000U);
    EXPECT_EQ(system.keysProblem(), "");
    const test::TemporaryFolder data;
    ::setenv("XDG_DATA_HOME", data.path().c_str(), 1);
    EXPECT_TRUE(system.wordProblems().empty());
    EXPECT_TRUE(std::filesystem::is_empty(data.path())) << "looking makes nothing";
    const std::string file = data.path() / "vanoka/words.sqlite";
    std::filesystem::create_directory(data.path() / "vanoka");
    std::ofstream(file) << std::string(5000, 'x');
    EXPECT_EQ(system.wordProblems(), std::vector{"Damaged words are kept as " + file + ".damaged-1."});
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    EXPECT_EQ(system.wordProblems().front(), "Your words cannot be read from " + file + ": Is a directory.");
    defaults.setData(SinglishSettings::storedName, "{");
    const SinglishSettings damaged(defaults);
    EXPECT_EQ(DoctorSystem::real(damaged).keysProblem(),
              "Your keys cannot be read: It is damaged. Your next change sets it aside.");
}

} // namespace

} // namespace vanoka
