#pragma once

#include "RemoteField.h"

#include <ibus.h>
#include <string>

namespace vanoka::test {

/// A text field that is a client of the daemon.
class IBusField final : public RemoteField {
public:
    /// Who puts the marked text in when the field loses it: the daemon, or the field, which says so before.
    enum class Commits : std::uint8_t { daemon, field };

    explicit IBusField(const std::string& name = "test", Commits commits = Commits::daemon,
                       guint capabilities = IBUS_CAP_PREEDIT_TEXT | IBUS_CAP_FOCUS | IBUS_CAP_PROPERTY);
    IBusField(const IBusField&) = delete;
    IBusField& operator=(const IBusField&) = delete;
    ~IBusField() override;

    void press(const KeyEvent& event) override;
    void askForComposition() override;
    void leaveAndReturn() override;
    void chooseCandidate(std::size_t row) override;

    void press(std::uint32_t keysym, std::uint32_t state) override;
    void pressAtOnce(const KeyEvent& event) override;
    bool waitUntilFinished(std::size_t count) override;
    void focusIn() override;
    void focusOut() override;
    /// The focus goes from here to another field without a pause, as a click there makes it go.
    void leaveFor(IBusField& other);
    /// Chooses an engine; true when it is in force.
    bool choose(const char* engine);
    std::string chosen() const;
    void setPurpose(guint purpose, guint hints = 0);

    IBusInputContext* context() const noexcept { return context_; }
    IBusPropList* menu() const noexcept { return menu_; }
    guint preeditMode() const noexcept { return preeditMode_; }

private:
    void commitMarkedText();
    void settleDaemon() const;
    void onPreedit(IBusText* text, guint caret, gboolean isVisible, guint mode);

    IBusInputContext* context_;
    Commits commits_;
    IBusPropList* menu_ = nullptr;
    guint preeditMode_ = IBUS_ENGINE_PREEDIT_CLEAR;
    std::size_t finished_ = 0;
};

} // namespace vanoka::test
