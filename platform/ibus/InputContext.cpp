#include "InputContext.h"

#include "Keysym.h"

#include <array>
#include <utility>

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
      desktop_(client_, environment.settings, environment.storedSettings) {
    updatePolicy();
}

bool InputContext::processKeyEvent(guint keysym, guint keyCode, guint state) {
    if (!takesNoInput() && takes(keysym, state))
        return true;
    client_.finishHiding(); // the key is the client's, which shall find no marked text
    // A key without a code, such as a program can make up, would not come back as the key it was.
    if (!policy_.forwardsPassedKeys || keyCode == 0)
        return false;
    ibus_engine_forward_key_event(&engine_, keysym, keyCode, state);
    return true;
}

bool InputContext::takes(guint keysym, guint state) {
    const DesktopKey key = {keysym, (state & IBUS_RELEASE_MASK) != 0,
                            Keysym::keyEvent(keysym, state, ibus_keyval_to_unicode(keysym))};
    return desktop_.handle(key, policy_.commitsBeforeShortcut,
                           [&](const KeyEvent& event) { return followSequence(keysym, event); });
}

SequenceStep InputContext::followSequence(guint keysym, const KeyEvent& event) {
    if (event.modifierFlags & KeyEvent::shortcutModifiers) {
        sequence_.end(); // a shortcut is none
        return {};
    }
    ComposeSequence::Result result = sequence_.press(keysym);
    return {result.outcome != ComposeSequence::Outcome::notPart, std::move(result.text)};
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
    updatePolicy();
    becomesActive();
    if (!dropped.empty())
        client_.insertText(dropped, VanokaInputController::noReplacement);
}

void InputContext::focusOut() {
    forget();
}

void InputContext::focusOut(std::string field) {
    const std::string text = forget();
    if (policy_.losesTextToOthers)
        droppedTexts_.leave(std::move(field), text);
}

void InputContext::reset() {
    client_.finishHiding();
    if (!policy_.commitsInReset) {
        forget();
        return;
    }
    client_.hideMarkedText();
    desktop_.commit();
}

void InputContext::setContentType(guint purpose) {
    // It comes after the focus and only when it is another, so the last one holds until then.
    purpose_ = purpose;
    if (takesNoInput())
        desktop_.commit();
}

void InputContext::activateProperty(std::string_view name) {
    for (const NamedAction& named : actions)
        if (named.name == name)
            environment_.activate(named.action);
}

void InputContext::finish() {
    desktop_.commit();
}

bool InputContext::takesNoInput() const noexcept {
    return purpose_ == IBUS_INPUT_PURPOSE_PASSWORD || purpose_ == IBUS_INPUT_PURPOSE_PIN;
}

/// Ends the composition whose text has been put in by others, and returns the text.
std::string InputContext::forget() {
    client_.forgetMarkedText();
    sequence_.end();
    return desktop_.forget();
}

void InputContext::becomesActive() {
    desktop_.activate();
    showMenu();
}

void InputContext::updatePolicy() {
    policy_ = commitPolicyFor(client_.name(), environment_.versions);
    client_.setPolicy(policy_);
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
