#pragma once

#include "DesktopContext.h"
#include "DesktopSuggestions.h"
#include "FieldClient.h"
#include "KeyThread.h"
#include "SuggestionOptions.h"

#include <array>
#include <fcitx-utils/event.h>
#include <fcitx-utils/handlertable.h>
#include <fcitx/action.h>
#include <fcitx/addonfactory.h>
#include <fcitx/inputcontextproperty.h>
#include <fcitx/inputmethodengine.h>
#include <fcitx/instance.h>
#include <memory>

namespace vanoka::fcitx5 {

/// The composition in one input context.
struct Field final : fcitx::InputContextProperty {
    Field(fcitx::InputContext& context, SinglishSettings& settings, FileWatch& storedSettings);

    FieldClient client;
    DesktopContext desktop;
    std::unique_ptr<fcitx::EventSource> update; ///< finds and shows candidates; null before the first ones
};

/// The add-on: hands the framework's calls on to the controller of the input context they are about.
class VanokaEngine final : public fcitx::InputMethodEngineV3 {
public:
    explicit VanokaEngine(fcitx::Instance& instance);

    void keyEvent(const fcitx::InputMethodEntry& entry, fcitx::KeyEvent& event) override;
    void activate(const fcitx::InputMethodEntry& entry, fcitx::InputContextEvent& event) override;
    void deactivate(const fcitx::InputMethodEntry& entry, fcitx::InputContextEvent& event) override;
    void reset(const fcitx::InputMethodEntry& entry, fcitx::InputContextEvent& event) override;
    void invokeActionImpl(const fcitx::InputMethodEntry& entry, fcitx::InvokeActionEvent& event) override;
    const fcitx::Configuration* getConfig() const override;
    void setConfig(const fcitx::RawConfig& config) override;

private:
    using Watch = std::unique_ptr<fcitx::HandlerTableEntry<fcitx::EventHandler>>;

    Watch watchMarkedText(fcitx::EventType change, void (FieldClient::*then)());
    Field& fieldOf(fcitx::InputContext& context);
    void updateCandidates(fcitx::InputContext& context);
    void chooseCandidate(fcitx::InputContext& context, std::size_t row);
    void updateCandidatesLater(fcitx::InputContext& context);
    void showSuggestions();
    SequenceStep followSequence(fcitx::InputContext& context, const DesktopKey& key);
    void initialize(fcitx::SimpleAction& action, VanokaInputController::MenuItem item);
    void initialize(fcitx::SimpleAction& action, const SuggestionSwitch& which);

    fcitx::Instance& instance_;
    SinglishSettings& settings_;
    FileWatch storedSettings_;
    KeyThread keyThread_; ///< before what reads on another thread from its beginning
    DesktopSuggestions suggestions_;
    mutable SuggestionOptions options_; ///< as the framework was told them last
    fcitx::FactoryFor<Field> fields_;
    std::array<fcitx::SimpleAction, suggestionSwitches.size()> switches_;
    fcitx::SimpleAction showSettings_, showAbout_;
    std::array<Watch, 2> watches_;
};

class VanokaEngineFactory final : public fcitx::AddonFactory {
public:
    fcitx::AddonInstance* create(fcitx::AddonManager* manager) override;
};

} // namespace vanoka::fcitx5
