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

FieldPrivacy privacyOf(fcitx::CapabilityFlags flags) {
    if (flags.test(fcitx::CapabilityFlag::Password))
        return FieldPrivacy::notSuggested;
    const bool isPrivate = flags.testAny(
        fcitx::CapabilityFlags{fcitx::CapabilityFlag::Sensitive, fcitx::CapabilityFlag::Terminal});
    return isPrivate ? FieldPrivacy::notLearnt : FieldPrivacy::open;
}

} // namespace

Field::Field(fcitx::InputContext& context, SinglishSettings& settings, FileWatch& storedSettings)
    : client(context), desktop(client, settings, storedSettings) {}

VanokaEngine::VanokaEngine(fcitx::Instance& instance)
    : instance_(instance),
      settings_(SinglishSettings::shared()),
      storedSettings_(FileUserDefaults::standard().pathOf(SinglishSettings::storedName)),
      keyThread_(instance_.eventLoop()),
      suggestions_(FileUserDefaults::standard(),
                   [this] {
                       keyThread_.schedule([this] {
                           if (suggestions_.adoptLists())
                               showSuggestions();
                       });
                   }),
      fields_([this](fcitx::InputContext& context) {
          auto* field = new Field(context, settings_, storedSettings_);
          field->desktop.setSuggestions(&suggestions_.inForce());
          return field;
      }) {
    instance_.inputContextManager().registerProperty("vanokaField", &fields_);
    for (std::size_t each = 0; each < switches_.size(); ++each)
        initialize(switches_[each], suggestionSwitches[each]);
    const auto menu = VanokaInputController::menu();
    initialize(showSettings_, menu[0]);
    initialize(showAbout_, menu[1]);
    instance_.userInterfaceManager().registerAction("vanoka-settings", &showSettings_);
    instance_.userInterfaceManager().registerAction("vanoka-about", &showAbout_);
    show(suggestions_.choices(), options_);
    // Once the field shows none, it is told none either, and what stood there would stay.
    watches_ = {
        watchMarkedText(fcitx::EventType::InputContextCapabilityAboutToChange, &FieldClient::hideMarkedText),
        watchMarkedText(fcitx::EventType::InputContextCapabilityChanged, &FieldClient::showHiddenMarkedText)};
}

/// Calls `then` at each `change` that decides where marked text is shown.
VanokaEngine::Watch VanokaEngine::watchMarkedText(fcitx::EventType change, void (FieldClient::*then)()) {
    return instance_.watchEvent(
        change, fcitx::EventWatcherPhase::PreInputMethod, [this, then](fcitx::Event& event) {
            auto& capabilities = static_cast<fcitx::CapabilityEvent&>(event);
            constexpr auto which = fcitx::CapabilityFlag::Preedit;
            if (capabilities.oldFlags().test(which) != capabilities.newFlags().test(which))
                (fieldOf(*capabilities.inputContext()).client.*then)();
        });
}

void VanokaEngine::keyEvent(const fcitx::InputMethodEntry&, fcitx::KeyEvent& event) {
    if (suggestions_.adoptStoredBeforeKey())
        showSuggestions();
    fcitx::InputContext& context = *event.inputContext();
    Field& field = fieldOf(context);
    field.desktop.setFieldPrivacy(privacyOf(context.capabilityFlags()));
    const std::uint32_t keysym = keysymOf(event, instance_);
    const DesktopKey key = {keysym, event.isRelease(), keyEventOf(event, keysym)};
    // A shortcut may be one to another window.
    if (field.desktop.handle(key, field.client.losesTextToOtherWindows(),
                             [&] { return followSequence(context, key); }))
        event.filterAndAccept();
    updateCandidatesLater(context);
}

void VanokaEngine::activate(const fcitx::InputMethodEntry&, fcitx::InputContextEvent& event) {
    fieldOf(*event.inputContext()).desktop.activate();
    if (suggestions_.adoptStored())
        showSuggestions();
    fcitx::StatusArea& area = event.inputContext()->statusArea();
    for (fcitx::SimpleAction& each : switches_)
        area.addAction(fcitx::StatusGroup::InputMethod, &each);
    area.addAction(fcitx::StatusGroup::InputMethod, &showSettings_);
    area.addAction(fcitx::StatusGroup::InputMethod, &showAbout_);
}

void VanokaEngine::deactivate(const fcitx::InputMethodEntry&, fcitx::InputContextEvent& event) {
    Field& field = fieldOf(*event.inputContext());
    const bool isSwitch = event.type() == fcitx::EventType::InputContextSwitchInputMethod;
    // On any other occasion the framework or the client puts in what the client shows. Done twice, it would
    // be there twice, or in the field that has focus next.
    if (isSwitch || !field.client.holdsMarkedText())
        field.desktop.commit();
    field.desktop.forget();
    // What is taken away from a client that puts it in itself is lost: Qt does so long after another program
    // has the focus.
    if (isSwitch || !field.client.putsTextInItself())
        field.client.clear();
    else
        field.client.leaveMarkedText();
    instance_.resetCompose(event.inputContext()); // a sequence ends with the focus, and with the input method
    updateCandidates(*event.inputContext());
}

void VanokaEngine::reset(const fcitx::InputMethodEntry&, fcitx::InputContextEvent& event) {
    Field& field = fieldOf(*event.inputContext());
    if (field.client.resetsFirst() || !field.client.holdsMarkedText()) {
        field.client.clear();
        field.desktop.commit();
    }
    field.desktop.forget();
    field.client.clear();
    updateCandidates(*event.inputContext());
}

/// A click into the marked text. The framework would put it in, and reset the field that may put it in, too.
void VanokaEngine::invokeActionImpl(const fcitx::InputMethodEntry&, fcitx::InvokeActionEvent& event) {
    fieldOf(*event.inputContext()).desktop.commit();
    updateCandidates(*event.inputContext());
    event.filter();
}

const fcitx::Configuration* VanokaEngine::getConfig() const {
    show(suggestions_.stored(), options_);
    return &options_;
}

void VanokaEngine::setConfig(const fcitx::RawConfig& config) {
    const SuggestionChoices shown = choicesOf(options_);
    options_.load(config, true);
    suggestions_.change(shown, choicesOf(options_));
    show(suggestions_.choices(), options_);
    showSuggestions();
}

Field& VanokaEngine::fieldOf(fcitx::InputContext& context) {
    return *context.propertyFor(&fields_);
}

/// Finds the candidates if they are missing, and shows the line as it is now.
void VanokaEngine::updateCandidates(fcitx::InputContext& context) {
    Field& field = fieldOf(context);
    if (!field.desktop.updateCandidates())
        return;
    field.client.showCandidates(
        field.desktop.candidates(), field.desktop.candidateHint(),
        {.choose = [this, &context](std::size_t row) { chooseCandidate(context, row); },
         .moveHighlight =
             [this, &context](std::ptrdiff_t rows) {
                 fieldOf(context).desktop.moveHighlight(rows);
                 updateCandidates(context);
             }});
}

/// What others have chosen by then counts, but the rows are those that were clicked.
void VanokaEngine::chooseCandidate(fcitx::InputContext& context, std::size_t row) {
    const bool haveChanged = suggestions_.adoptStoredBeforeKey();
    DesktopContext& desktop = fieldOf(context).desktop;
    desktop.setFieldPrivacy(privacyOf(context.capabilityFlags()));
    desktop.chooseCandidate(row);
    updateCandidates(context);
    if (haveChanged)
        showSuggestions();
}

/// When the key has its answer.
void VanokaEngine::updateCandidatesLater(fcitx::InputContext& context) {
    Field& field = fieldOf(context);
    if (!suggestions_.inForce().areOn && !field.client.showsCandidates())
        return;
    if (!field.update) {
        field.update = instance_.eventLoop().addDeferEvent([this, &context](fcitx::EventSource*) {
            updateCandidates(context);
            return true;
        });
    }
    field.update->setOneShot();
}

/// They are other ones than before, or the user's choices about them are.
void VanokaEngine::showSuggestions() {
    fcitx::InputContext* focused = instance_.inputContextManager().lastFocusedInputContext();
    for (std::size_t each = 0; each < switches_.size(); ++each) {
        switches_[each].setChecked(suggestions_.choices().*suggestionSwitches[each].choice);
        if (focused)
            switches_[each].update(focused);
    }
    if (focused)
        updateCandidates(*focused);
}

/// A dead key, the Compose key and the keys after them, of which the framework makes one character.
SequenceStep VanokaEngine::followSequence(fcitx::InputContext& context, const DesktopKey& key) {
    if (key.event.modifierFlags & KeyEvent::shortcutModifiers) {
        instance_.resetCompose(&context); // a shortcut is none
        return {};
    }
    const bool isUnderway = instance_.isComposing(&context), mayBegin = Keysym::startsSequence(key.keysym);
    if (!mayBegin && !isUnderway)
        return {};
    const auto press = [&] {
        return instance_.processComposeString(&context, static_cast<fcitx::KeySym>(key.keysym));
    };
    auto made = press();
    if (!made && !instance_.isComposing(&context) && mayBegin && isUnderway)
        made = press(); // what it ended may be followed by what it begins
    const bool givesUp = key.keysym == FcitxKey_BackSpace || key.keysym == FcitxKey_Escape;
    if (made ? made->empty() : !instance_.isComposing(&context) && !givesUp)
        return {}; // it knows no sequence with this key
    return {true, made.value_or("")};
}

void VanokaEngine::initialize(fcitx::SimpleAction& action, const SuggestionSwitch& which) {
    action.setShortText(std::string(which.title));
    action.setCheckable(true);
    action.setChecked(suggestions_.choices().*which.choice);
    action.connect<fcitx::SimpleAction::Activated>([this, &which](fcitx::InputContext*) {
        suggestions_.toggle(which);
        showSuggestions();
    });
    instance_.userInterfaceManager().registerAction("vanoka-" + std::string(which.name), &action);
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
