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

IBusProperty* newEntry(std::string_view name, std::string_view title) {
    return ibus_property_new(std::string(name).c_str(), PROP_TYPE_NORMAL, newText(title), nullptr, nullptr,
                             TRUE, TRUE, PROP_STATE_UNCHECKED, nullptr);
}

IBusProperty* newSwitch(const SuggestionSwitch& each, const SuggestionChoices& choices) {
    return ibus_property_new(std::string(each.name).c_str(), PROP_TYPE_TOGGLE, newText(each.title), nullptr,
                             nullptr, TRUE, TRUE,
                             choices.*each.choice ? PROP_STATE_CHECKED : PROP_STATE_UNCHECKED, nullptr);
}

FieldPrivacy privacyOf(guint purpose, guint hints) {
    if (purpose == IBUS_INPUT_PURPOSE_PASSWORD || purpose == IBUS_INPUT_PURPOSE_PIN)
        return FieldPrivacy::notSuggested;
    if (purpose == IBUS_INPUT_PURPOSE_TERMINAL || (hints & IBUS_INPUT_HINT_PRIVATE) != 0)
        return FieldPrivacy::notLearnt;
    return FieldPrivacy::open;
}

} // namespace

InputContext::InputContext(IBusEngine& engine, EngineEnvironment& environment)
    : engine_(engine),
      environment_(environment),
      client_(engine),
      desktop_(client_, environment.settings, environment.storedSettings),
      table_(engine),
      droppedTexts_(environment.droppedTexts) {
    desktop_.setSuggestions(&environment.suggestions.inForce());
    updatePolicy();
}

bool InputContext::processKeyEvent(guint keysym, guint keyCode, guint state) {
    if (isBeingReplaced_ && !takesNoInput()) {
        environment_.keysForReplacement.push_back({keysym, keyCode, state});
        return true;
    }
    putDroppedTextIn(); // keys come from the field that has the focus
    const bool isConsumed = answers(keysym, keyCode, state);
    updateCandidatesLater();
    return isConsumed;
}

bool InputContext::answers(guint keysym, guint keyCode, guint state) {
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
    if (environment_.suggestions.adoptStoredBeforeKey())
        environment_.suggestionsChanged();
    const DesktopKey key = {keysym, (state & IBUS_RELEASE_MASK) != 0,
                            Keysym::keyEvent(keysym, state, ibus_keyval_to_unicode(keysym))};
    return desktop_.handle(key, policy_.commitsBeforeShortcut, [&] { return followSequence(key); });
}

SequenceStep InputContext::followSequence(const DesktopKey& key) {
    if (key.event.modifierFlags & KeyEvent::shortcutModifiers) {
        sequence_.end(); // a shortcut is none
        return {};
    }
    ComposeSequence::Result result = sequence_.press(key.keysym);
    return {result.outcome != ComposeSequence::Outcome::notPart, std::move(result.text)};
}

void InputContext::enable() {
    becomesActive();
}

void InputContext::disable() {
    forget();
    forgetCandidates();
}

void InputContext::focusIn() {
    becomesActive();
    // A field that is left and entered again in these milliseconds has the same engine still.
    isBeingReplaced_ = environment_.replaceEngine() || isBeingReplaced_;
    if (!isBeingReplaced_)
        takeKeysForReplacement();
}

void InputContext::focusIn(const std::string& field, std::string client) {
    using Holder = DroppedTexts::Holder;
    const Holder holder = client == daemonItself ? Holder::daemon : Holder::field;
    const bool isAwaited = droppedTexts_.enter(field, holder);
    field_ = field;
    client_.setName(std::move(client));
    updatePolicy();
    becomesActive();
    // Windows that change hand the focus on within milliseconds, and the daemon gives a text to whoever has
    // it when the text comes: it would go to another program, or nowhere.
    if (isAwaited)
        environment_.askForFocus();
    // IBus 1.5.32 tells the first engine its client after all, a moment before the other engine comes.
    if (holder == Holder::field && !isBeingReplaced_)
        takeKeysForReplacement();
}

void InputContext::hasFocus(std::string_view field) {
    if (field == field_)
        putDroppedTextIn();
}

/// Which waits for a field that shows what is put in.
void InputContext::putDroppedTextIn() {
    if (takesNoInput())
        return;
    if (const std::string dropped = droppedTexts_.take(field_); !dropped.empty())
        client_.insertText(dropped, VanokaInputController::noReplacement);
}

void InputContext::stays() {
    if (isBeingReplaced_)
        takeKeysForReplacement();
}

/// They have been answered as consumed, so those that are not go back.
void InputContext::takeKeysForReplacement() {
    isBeingReplaced_ = false;
    for (const auto& [keysym, keyCode, state] : std::exchange(environment_.keysForReplacement, {}))
        if (!processKeyEvent(keysym, keyCode, state))
            ibus_engine_forward_key_event(&engine_, keysym, keyCode, state);
}

void InputContext::focusOut() {
    forget();
    forgetCandidates();
}

void InputContext::focusOut(std::string field) {
    const std::string text = forget();
    forgetCandidates();
    field_.clear();
    if (policy_.losesTextToOthers)
        droppedTexts_.leave(std::move(field), text);
}

void InputContext::reset() {
    client_.finishHiding();
    if (!policy_.commitsInReset) {
        forget();
    } else {
        client_.hideMarkedText();
        commit();
    }
    updateCandidates();
}

void InputContext::setContentType(guint purpose, guint hints) {
    // It comes after the focus and only when it is another, so the last one holds until then.
    purpose_ = purpose;
    desktop_.setFieldPrivacy(privacyOf(purpose, hints));
    if (takesNoInput()) {
        commit();
        updateCandidates();
    }
}

void InputContext::activateProperty(std::string_view name) {
    for (const NamedAction& named : actions)
        if (named.name == name)
            environment_.activate(named.action);
    for (const SuggestionSwitch& each : suggestionSwitches) {
        if (each.name == name) {
            environment_.suggestions.toggle(each);
            environment_.suggestionsChanged();
        }
    }
}

/// What others have chosen by then counts, but the rows are those that were clicked.
void InputContext::clickCandidate(guint row) {
    const bool haveChanged = environment_.suggestions.adoptStoredBeforeKey();
    desktop_.chooseCandidate(row);
    updateCandidates();
    if (haveChanged)
        environment_.suggestionsChanged();
}

void InputContext::moveHighlight(std::ptrdiff_t rows) {
    desktop_.moveHighlight(rows);
    updateCandidates();
}

void InputContext::showSuggestions() {
    updateCandidates();
    for (const SuggestionSwitch& each : suggestionSwitches)
        ibus_engine_update_property(&engine_, newSwitch(each, environment_.suggestions.choices()));
}

void InputContext::finish() {
    desktop_.commit();
}

bool InputContext::takesNoInput() const noexcept {
    return purpose_ == IBUS_INPUT_PURPOSE_PASSWORD || purpose_ == IBUS_INPUT_PURPOSE_PIN;
}

/// Finds the candidates if they are missing, and shows the line as it is now.
void InputContext::updateCandidates() {
    cancelUpdate();
    if (desktop_.updateCandidates())
        table_.show(desktop_.candidates(), desktop_.candidateHint());
}

/// When nothing else is to be done: neither this key's answer nor a key that is waiting comes later for it.
void InputContext::updateCandidatesLater() {
    if (update_ != 0 || (!environment_.suggestions.inForce().areOn && !table_.isShown()))
        return;
    const auto update = [](gpointer context) -> gboolean {
        auto& self = *static_cast<InputContext*>(context);
        self.update_ = 0;
        // A thread of the connection writes the answer, and may wait for this processor.
        g_dbus_connection_flush_sync(ibus_service_get_connection(IBUS_SERVICE(&self.engine_)), nullptr,
                                     nullptr);
        self.updateCandidates();
        return G_SOURCE_REMOVE;
    };
    update_ = g_idle_add_full(G_PRIORITY_DEFAULT_IDLE, update, this, nullptr);
}

/// The daemon has hidden them before it took the focus away. What is sent now would reach the next field.
void InputContext::forgetCandidates() {
    cancelUpdate();
    desktop_.updateCandidates();
    table_.forget();
}

void InputContext::cancelUpdate() {
    if (update_ != 0)
        g_source_remove(std::exchange(update_, 0));
}

/// Puts the composition in. A dead key before it makes nothing with the letter after it.
void InputContext::commit() {
    sequence_.end();
    desktop_.commit();
}

/// Ends the composition whose text has been put in by others, and returns the text.
std::string InputContext::forget() {
    client_.forgetMarkedText();
    sequence_.end();
    return desktop_.forget();
}

void InputContext::becomesActive() {
    desktop_.activate();
    environment_.suggestions.adoptStored();
    showMenu();
}

void InputContext::updatePolicy() {
    policy_ = commitPolicyFor(client_.name(), environment_.versions);
    client_.setPolicy(policy_);
}

/// The daemon drops the menu with the focus, so each focus brings it anew.
void InputContext::showMenu() {
    IBusPropList* properties = ibus_prop_list_new();
    for (const SuggestionSwitch& each : suggestionSwitches)
        ibus_prop_list_append(properties, newSwitch(each, environment_.suggestions.choices()));
    for (const auto& item : VanokaInputController::menu())
        ibus_prop_list_append(properties, newEntry(nameOf(item.action), item.title));
    ibus_engine_register_properties(&engine_, properties);
}

} // namespace vanoka::ibus
