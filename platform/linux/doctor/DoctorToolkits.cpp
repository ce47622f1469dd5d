#include "DoctorToolkits.h"

#include <algorithm>
#include <array>

namespace vanoka {

namespace {

struct Toolkit {
    std::string_view name, variable;
    bool findsModule; // by itself, when its variable is not set
    // The library that speaks to the compositor, in a folder of libraries.
    std::string_view waylandLibrary;
    // Where modules are: patterns with the framework's name for the module.
    std::string_view folder, ibusModule, fcitxModule, ibusPackage, fcitxPackage;
};

constexpr std::array toolkits = std::to_array<Toolkit>({
    {"GTK 3", "GTK_IM_MODULE", true, "libgtk-3.so.0", "/gtk-3.0/3.*/immodules/", "im-ibus.so", "im-fcitx5.so",
     "ibus-gtk3", "fcitx5-frontend-gtk3"},
    {"GTK 4", "GTK_IM_MODULE", true, "libgtk-4.so.1", "/gtk-4.0/4.*/immodules/", "libim-ibus.so",
     "libim-fcitx5.so", "ibus-gtk4", "fcitx5-frontend-gtk4"},
    {"Qt 6", "QT_IM_MODULE", false, "libQt6WaylandClient.so.6", "/qt6/plugins/platforminputcontexts/",
     "libibusplatforminputcontextplugin.so", "libfcitx5platforminputcontextplugin.so", "libqt6gui6",
     "fcitx5-frontend-qt6"},
    {"Qt 5", "QT_IM_MODULE", false, "libQt5WaylandClient.so.5", "/qt5/plugins/platforminputcontexts/",
     "libibusplatforminputcontextplugin.so", "libfcitx5platforminputcontextplugin.so", "libqt5gui5",
     "fcitx5-frontend-qt5"},
});

/// The interfaces with which programs ask a compositor for text, of which each toolkit knows some.
constexpr std::array textInputs = std::to_array<std::string_view>(
    {"zwp_text_input_manager_v1", "zwp_text_input_manager_v2", "zwp_text_input_manager_v3"});

enum class Desktop : std::uint8_t { x11, gnome, plasma, other, unknown };

/// What decides for every toolkit.
struct Session {
    const DoctorSystem& system;
    FrameworkModules framework;
    std::optional<Compositor> compositor;
    Desktop desktop = Desktop::x11;
    bool handsOn = false; ///< the compositor hands what programs ask it for to the framework
};

/// Libraries are in a folder of their architecture on some distributions and not on others.
std::array<std::string, 2> inLibraries(std::string_view path) {
    return {"/usr/lib*/" + std::string(path), "/usr/lib*/*/" + std::string(path)};
}

bool hasLibraryFile(const DoctorSystem& system, std::string_view path) {
    return std::ranges::any_of(inLibraries(path), system.hasFile);
}

Desktop desktopOf(const DoctorSystem& system, const std::optional<Compositor>& compositor) {
    if (system.variable("WAYLAND_DISPLAY").empty())
        return Desktop::x11;
    if (!compositor)
        return Desktop::unknown;
    if (compositor->offers("org_kde_plasma_shell"))
        return Desktop::plasma;
    if (compositor->offers("gtk_shell1") && !compositor->offers(Compositor::inputMethods))
        return Desktop::gnome;
    return Desktop::other;
}

/// KWin tells nobody of the protocol, and starts the input method itself.
bool hasInputMethodOfPlasma(const DoctorSystem& system) {
    const auto answer = system.output(
        {"dbus-send", "--session", "--print-reply=literal", "--dest=org.kde.KWin", "/VirtualKeyboard",
         "org.freedesktop.DBus.Properties.Get", "string:org.kde.kwin.VirtualKeyboard", "string:available"});
    return answer && answer->find("true") != std::string::npos;
}

bool doesHandOn(const Session& session) {
    switch (session.desktop) {
    case Desktop::gnome:
        return session.framework.module == "ibus";
    case Desktop::plasma:
        return hasInputMethodOfPlasma(session.system);
    case Desktop::other:
        return session.compositor->hasInputMethod;
    case Desktop::x11:
    case Desktop::unknown:
        break;
    }
    return false;
}

Session sessionOf(const DoctorSystem& system, const FrameworkModules& framework) {
    Session session{system, framework, system.compositor()};
    session.desktop = desktopOf(system, session.compositor);
    session.handsOn = doesHandOn(session);
    return session;
}

bool asksCompositor(const Session& session, const Toolkit& toolkit) {
    return session.compositor && std::ranges::any_of(textInputs, [&](std::string_view interface) {
               if (!session.compositor->offers(interface))
                   return false;
               return std::ranges::any_of(inLibraries(toolkit.waylandLibrary), [&](const std::string& file) {
                   return session.system.fileHolds(file, interface);
               });
           });
}

/// What else helps than the variable, with a space after it.
std::string otherRemedy(const Session& session) {
    const std::string name(session.framework.name);
    if (session.desktop == Desktop::plasma)
        return "Choose " + (name == "Fcitx5" ? "Fcitx 5" : name) +
               " under Virtual Keyboard in the System Settings. Or: ";
    if (session.desktop == Desktop::other && name == "Fcitx5")
        return "Start Fcitx5 inside the session: fcitx5 -rd. Or: ";
    return {};
}

std::string setVariable(const Session& session, const Toolkit& toolkit) {
    return "Set " + std::string(toolkit.variable) + "=" + std::string(session.framework.module) +
           " where your session sets it, for instance with im-config, and log in again.";
}

void examineCompositor(const Session& session, const Toolkit& toolkit, Findings& findings) {
    const std::string programs = "Programs with " + std::string(toolkit.name);
    if (session.handsOn) {
        findings.good(programs + " get Sinhala, through the compositor.");
        return;
    }
    const std::string why = session.desktop == Desktop::gnome
                                ? "GNOME Shell hands text to IBus alone."
                                : "they ask the compositor, which has no input method.";
    findings.missing(programs + " get Latin letters: " + why,
                     otherRemedy(session) + setVariable(session, toolkit));
}

void examineModule(const Session& session, const Toolkit& toolkit, Findings& findings) {
    const std::string programs = "Programs with " + std::string(toolkit.name);
    const std::string name(session.framework.name);
    const bool isIBus = session.framework.module == "ibus";
    const std::string file(isIBus ? toolkit.ibusModule : toolkit.fcitxModule);
    if (hasLibraryFile(session.system, std::string(toolkit.folder.substr(1)) + file)) {
        findings.good(programs + " get Sinhala, through their module for " + name + ".");
        return;
    }
    findings.note(programs + " get Latin letters: they have no module for " + name + ".",
                  "Install the package " + std::string(isIBus ? toolkit.ibusPackage : toolkit.fcitxPackage) +
                      ".");
}

bool isModuleOf(const FrameworkModules& framework, std::string_view value) {
    return value == framework.module || (framework.module == "fcitx" && value == "fcitx5");
}

void examineToolkit(const Session& session, const Toolkit& toolkit, Findings& findings) {
    const std::string variable(toolkit.variable), value = session.system.variable(variable);
    const std::string programs = "Programs with " + std::string(toolkit.name) + " get Latin letters: ";
    const bool isUnset = value.empty() || value == "wayland"; // the latter is what an unset one means
    if (isUnset && session.desktop == Desktop::unknown)
        findings.note("What programs with " + std::string(toolkit.name) +
                          " get could not be found out: it depends on the compositor.",
                      setVariable(session, toolkit));
    else if (!isUnset && !isModuleOf(session.framework, value))
        findings.missing(programs + variable + " is " + value + ".", setVariable(session, toolkit));
    else if (isUnset && asksCompositor(session, toolkit))
        examineCompositor(session, toolkit, findings);
    else if (isUnset && !toolkit.findsModule)
        findings.missing(programs + variable + " is not set.", setVariable(session, toolkit));
    else
        examineModule(session, toolkit, findings);
}

/// The folder that is there when the toolkit is installed, whatever modules it has.
std::string_view baseOf(const Toolkit& toolkit) {
    return toolkit.folder.substr(1, toolkit.folder.find('/', 1));
}

/// Some programs bring no toolkit and have no module, among them some terminals.
void examinePlainPrograms(const Session& session, Findings& findings) {
    if (session.compositor && !session.handsOn)
        findings.note("Programs that know nothing but Wayland's own text input, such as foot, get Latin "
                      "letters: the compositor hands none to " +
                      std::string(session.framework.name) + ".");
}

} // namespace

void examineToolkits(const DoctorSystem& system, const FrameworkModules& framework, Findings& findings) {
    const Session session = sessionOf(system, framework);
    for (const Toolkit& toolkit : toolkits)
        if (hasLibraryFile(system, baseOf(toolkit)))
            examineToolkit(session, toolkit, findings);
    examinePlainPrograms(session, findings);
}

} // namespace vanoka
