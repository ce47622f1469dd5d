#include "InputContext.h"

#include "Keysym.h"
#include "ServedClient.h"
#include "SettingsProgram.h"

#include <array>

namespace vanoka::ibus {

namespace {

using MenuAction = VanokaInputController::MenuAction;

struct NamedAction {
    std::string_view name;
    MenuAction action;
};

/// The client's name when no field has the focus.
constexpr std::string_view daemonItself = "fake";

constexpr std::array actions = std::to_array<NamedAction>({
    {"settings", MenuAction::showSettings},
    {"about", MenuAction::showAbout},
});

std::string nameOf(MenuAction action) {
    for (const NamedAction& named : actions)
        if (named.action == action)
            return std::string(named.name);
    return {};
}

IBusText* newText(std::string_view text) {
    return ibus_text_new_from_string(std::string(text).c_str());
}

} // namespace

InputContext::InputContext(IBusEngine& engine, EngineEnvironment& environment)
    : engine_(engine),
      environment_(environment),
      client_(engine),
      controller_(SettingsProgram::name, environment.settings) {
    updateDelivery();
}

bool InputContext::processKeyEvent(guint keysym, guint keyCode, guint state) {
    if (!takesNoInput() && takes(keysym, state))
        return true;
    client_.finishHiding(); // the key is the client's, which shall find no marked text
    // A key without a code, such as a program can make up, would not come back as the key it was.
    if (!delivery_.forwardsPassedKeys || keyCode == 0)
        return false;
    ibus_engine_forward_key_event(&engine_, keysym, keyCode, state);
    return true;
}

bool InputContext::takes(guint keysym, guint state) {
    const KeyEvent event = Keysym::keyEvent(keysym, state, ibus_keyval_to_unicode(keysym));
    if (environment_.storedSettings.hasChanged())
        environment_.settings.reloadIfChanged();
    if (delivery_.commitsBeforeShortcut && !(state & IBUS_RELEASE_MASK) && Keysym::isShortcutModifier(keysym))
        controller_.commitComposition(&client_);
    return takesForSequence(keysym, event) || controller_.handle(&event, &client_);
}

/// Whether the key is part of a sequence that makes one text.
bool InputContext::takesForSequence(guint keysym, const KeyEvent& event) {
    if (event.type != KeyEvent::keyDown)
        return false;
    if (event.modifierFlags != 0) {
        sequence_.end(); // a shortcut is none
        return false;
    }
    const ComposeSequence::Result result = sequence_.press(keysym);
    if (result.outcome == ComposeSequence::Outcome::notPart)
        return false;
    controller_.commitComposition(&client_); // as a key does that types nothing
    if (!result.text.empty())
        client_.insertText(result.text, VanokaInputController::noReplacement);
    return true;
}

void InputContext::enable() {
    becomesActive();
}

void InputContext::disable() {
    forget();
}

void InputContext::focusIn() {
    becomesActive();
}

void InputContext::focusIn(const std::string& field, std::string client) {
    using Holder = DroppedTexts::Holder;
    const std::string dropped =
        droppedTexts_.enter(field, client == daemonItself ? Holder::daemon : Holder::field);
    client_.setName(std::move(client));
    updateDelivery();
    becomesActive();
    if (!dropped.empty())
        client_.insertText(dropped, VanokaInputController::noReplacement);
}

void InputContext::focusOut() {
    forget();
}

void InputContext::focusOut(std::string field) {
    const std::string text = forget();
    if (delivery_.losesTextToOthers)
        droppedTexts_.leave(std::move(field), text);
}

void InputContext::reset() {
    client_.finishHiding();
    if (!delivery_.commitsInReset) {
        forget();
        return;
    }
    client_.hideMarkedText();
    controller_.commitComposition(&client_);
}

void InputContext::setCapabilities(guint capabilities) {
    capabilities_ = capabilities;
    updateDelivery();
}

void InputContext::setContentType(guint purpose) {
    // It comes after the focus and only when it is another, so the last one holds until then.
    purpose_ = purpose;
    if (takesNoInput())
        controller_.commitComposition(&client_);
}

void InputContext::activateProperty(std::string_view name) {
    for (const NamedAction& named : actions)
        if (named.name == name)
            environment_.activate(named.action);
}

void InputContext::finish() {
    controller_.commitComposition(&client_);
}

bool InputContext::takesNoInput() const noexcept {
    return purpose_ == IBUS_INPUT_PURPOSE_PASSWORD || purpose_ == IBUS_INPUT_PURPOSE_PIN;
}

/// Ends the composition whose text has been put in by others, and returns the text.
std::string InputContext::forget() {
    ServedClient served;
    controller_.deactivateServer(&served);
    client_.forgetMarkedText();
    sequence_.end();
    return served.text();
}

void InputContext::becomesActive() {
    controller_.activateServer();
    showMenu();
}

void InputContext::updateDelivery() {
    delivery_ = deliveryTo(client_.name(), environment_.versions);
    client_.setDelivery(delivery_);
}

/// The daemon drops the menu with the focus, so each focus brings it anew.
void InputContext::showMenu() {
    IBusPropList* properties = ibus_prop_list_new();
    for (const auto& item : VanokaInputController::menu()) {
        ibus_prop_list_append(properties, ibus_property_new(nameOf(item.action).c_str(), PROP_TYPE_NORMAL,
                                                            newText(item.title), nullptr, nullptr, TRUE, TRUE,
                                                            PROP_STATE_UNCHECKED, nullptr));
    }
    ibus_engine_register_properties(&engine_, properties);
}

} // namespace vanoka::ibus
