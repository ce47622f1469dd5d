#include "VanokaEngine.h"

#include "FileUserDefaults.h"
#include "Keysym.h"
#include "SettingsProgram.h"
#include "XimKey.h"
#include "text/Utf8.h"

#include <dlfcn.h>
#include <fcitx-utils/misc.h>
#include <fcitx/addonmanager.h>
#include <fcitx/inputcontextmanager.h>
#include <fcitx/inputpanel.h>
#include <fcitx/statusarea.h>
#include <fcitx/userinterfacemanager.h>

namespace vanoka::fcitx5 {

namespace {

namespace fs = std::filesystem;
using MenuAction = VanokaInputController::MenuAction;

KeyEvent keyEventOf(const fcitx::KeyEvent& event, std::uint32_t keysym) {
    const std::uint32_t release = event.isRelease() ? Keysym::release : 0;
    return Keysym::keyEvent(keysym, event.rawKey().states().toInteger() | release,
                            fcitx::Key::keySymToUnicode(static_cast<fcitx::KeySym>(keysym)));
}

/// The folder of this add-on.
fs::path addonFolder() {
    Dl_info info{};
    if (::dladdr(reinterpret_cast<const void*>(&addonFolder), &info) == 0 || !info.dli_fname)
        return {};
    return fs::path(info.dli_fname).parent_path();
}

/// A program of its own, so that no window toolkit is ever loaded here.
void activateMenu(MenuAction action) {
    const auto program = SettingsProgram::find(addonFolder());
    if (!program)
        return;
    std::vector<std::string> command = {program->native()};
    if (action == MenuAction::showAbout)
        command.emplace_back(SettingsProgram::aboutSwitch);
    fcitx::startProcess(command);
}

} // namespace

Field::Field(fcitx::InputContext& context, SinglishSettings& settings, FileWatch& storedSettings)
    : client(context), desktop(client, settings, storedSettings) {}

VanokaEngine::VanokaEngine(fcitx::Instance& instance)
    : instance_(instance),
      settings_(SinglishSettings::shared()),
      storedSettings_(FileUserDefaults::standard().pathOf(SinglishSettings::storedName)),
      fields_(
          [this](fcitx::InputContext& context) { return new Field(context, settings_, storedSettings_); }) {
    instance_.inputContextManager().registerProperty("vanokaField", &fields_);
    const auto menu = VanokaInputController::menu();
    initialize(showSettings_, menu[0]);
    initialize(showAbout_, menu[1]);
    instance_.userInterfaceManager().registerAction("vanoka-settings", &showSettings_);
    instance_.userInterfaceManager().registerAction("vanoka-about", &showAbout_);
}

void VanokaEngine::keyEvent(const fcitx::InputMethodEntry&, fcitx::KeyEvent& event) {
    Field& field = fieldOf(event);
    const std::uint32_t keysym = keysymOf(event, instance_);
    const DesktopKey key = {keysym, event.isRelease(), keyEventOf(event, keysym)};
    // A shortcut may be one to another window.
    if (field.desktop.handle(key, field.client.losesTextToOtherWindows(),
                             [&](const KeyEvent&) { return followSequence(*event.inputContext(), keysym); }))
        event.filterAndAccept();
}

void VanokaEngine::activate(const fcitx::InputMethodEntry&, fcitx::InputContextEvent& event) {
    fieldOf(event).desktop.activate();
    fcitx::StatusArea& area = event.inputContext()->statusArea();
    area.addAction(fcitx::StatusGroup::InputMethod, &showSettings_);
    area.addAction(fcitx::StatusGroup::InputMethod, &showAbout_);
}

void VanokaEngine::deactivate(const fcitx::InputMethodEntry&, fcitx::InputContextEvent& event) {
    Field& field = fieldOf(event);
    const bool isSwitch = event.type() == fcitx::EventType::InputContextSwitchInputMethod;
    // On any other occasion the framework or the client puts in what the client shows. Done twice, it would
    // be there twice, or in the field that has focus next.
    if (isSwitch || !field.client.showsMarkedText())
        field.desktop.commit();
    field.desktop.forget();
    // What is taken away from a client that puts it in itself is lost: Qt does so long after another program
    // has the focus.
    if (isSwitch || !field.client.putsTextInItself())
        field.client.clear();
}

void VanokaEngine::reset(const fcitx::InputMethodEntry&, fcitx::InputContextEvent& event) {
    Field& field = fieldOf(event);
    if (field.client.resetsFirst()) {
        field.client.clear();
        field.desktop.commit();
    }
    field.desktop.forget();
    field.client.clear();
}

Field& VanokaEngine::fieldOf(fcitx::InputContextEvent& event) {
    return *event.inputContext()->propertyFor(&fields_);
}

/// A dead key, the Compose key and the keys after them, of which the framework makes one character.
SequenceStep VanokaEngine::followSequence(fcitx::InputContext& context, std::uint32_t keysym) {
    if (!Keysym::startsSequence(keysym) && !instance_.isComposing(&context))
        return {};
    const auto made = instance_.processComposeString(&context, static_cast<fcitx::KeySym>(keysym));
    const bool givesUp = keysym == FcitxKey_BackSpace || keysym == FcitxKey_Escape;
    if (made ? made->empty() : !instance_.isComposing(&context) && !givesUp)
        return {}; // it knows no sequence with this key
    return {true, made.value_or("")};
}

void VanokaEngine::initialize(fcitx::SimpleAction& action, VanokaInputController::MenuItem item) {
    action.setShortText(std::string(item.title));
    action.connect<fcitx::SimpleAction::Activated>(
        [action = item.action](fcitx::InputContext*) { activateMenu(action); });
}

fcitx::AddonInstance* VanokaEngineFactory::create(fcitx::AddonManager* manager) {
    return new VanokaEngine(*manager->instance());
}

} // namespace vanoka::fcitx5
