#pragma once

#include "KeyEvent.h"
#include "Scenario.h"
#include "TextField.h"
#include "settings/SinglishSettings.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace vanoka::test {

/// A text field whose keys go through the input method: at hand, or in other processes behind a framework.
class RemoteField {
public:
    virtual ~RemoteField() = default;

    /// Presses and releases a key, and lets the field have it if nobody consumed it.
    virtual void press(const KeyEvent& event) = 0;
    /// One event of a key as X has it, with `Keysym::release` in the state or without.
    virtual void press(std::uint32_t keysym, std::uint32_t state) = 0;
    /// Presses a key and does not wait until the framework has answered.
    virtual void pressAtOnce(const KeyEvent& event) = 0;
    /// Waits until so many of these have been answered; false when it takes too long.
    virtual bool waitUntilFinished(std::size_t count) = 0;
    /// The field asks for the composition, as it does when it is clicked.
    virtual void askForComposition() = 0;
    /// The field loses the focus and gets it back.
    virtual void leaveAndReturn() = 0;
    virtual void focusIn() = 0;
    virtual void focusOut() = 0;

    void type(std::string_view text);
    void type(const std::vector<KeyEvent>& events);
    TextField& field() noexcept { return field_; }

protected:
    RemoteField() = default;
    RemoteField(const RemoteField&) = default;
    RemoteField& operator=(const RemoteField&) = default;

private:
    TextField field_;
};

/// Plays a scenario in the field; its edits are made to `settings`, which the input method has to notice.
/// Fails the running test where the screen is not as the scenario says.
void replay(const Scenario& scenario, RemoteField& remote, SinglishSettings& settings);

} // namespace vanoka::test
