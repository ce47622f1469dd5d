#pragma once

#include "DesktopContext.h"
#include "FieldClient.h"

#include <fcitx-utils/handlertable.h>
#include <fcitx/action.h>
#include <fcitx/addonfactory.h>
#include <fcitx/inputcontextproperty.h>
#include <fcitx/inputmethodengine.h>
#include <fcitx/instance.h>

namespace vanoka::fcitx5 {

/// The composition in one input context.
struct Field final : fcitx::InputContextProperty {
    Field(fcitx::InputContext& context, SinglishSettings& settings, FileWatch& storedSettings);

    FieldClient client;
    DesktopContext desktop;
};

/// The add-on: hands the framework's calls on to the controller of the input context they are about.
class VanokaEngine final : public fcitx::InputMethodEngineV2 {
public:
    explicit VanokaEngine(fcitx::Instance& instance);

    void keyEvent(const fcitx::InputMethodEntry& entry, fcitx::KeyEvent& event) override;
    void activate(const fcitx::InputMethodEntry& entry, fcitx::InputContextEvent& event) override;
    void deactivate(const fcitx::InputMethodEntry& entry, fcitx::InputContextEvent& event) override;
    void reset(const fcitx::InputMethodEntry& entry, fcitx::InputContextEvent& event) override;

private:
    Field& fieldOf(fcitx::InputContextEvent& event);
    SequenceStep followSequence(fcitx::InputContext& context, std::uint32_t keysym);
    void initialize(fcitx::SimpleAction& action, VanokaInputController::MenuItem item);

    fcitx::Instance& instance_;
    SinglishSettings& settings_;
    FileWatch storedSettings_;
    fcitx::FactoryFor<Field> fields_;
    fcitx::SimpleAction showSettings_, showAbout_;
};

class VanokaEngineFactory final : public fcitx::AddonFactory {
public:
    fcitx::AddonInstance* create(fcitx::AddonManager* manager) override;
};

} // namespace vanoka::fcitx5
