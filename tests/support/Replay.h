#pragma once

#include "Scenario.h"
#include "TextField.h"
#include "settings/SinglishSettings.h"
#include "typing/KeyEvent.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace vanoka::test {

/// A text field whose keys go through the input method: at hand, or in other processes behind a framework.
class ServedField {
public:
    virtual ~ServedField() = default;

    /// Presses and releases a key, and lets the field have it if nobody consumed it.
    virtual void press(const KeyEvent& event) = 0;
    /// The field asks for the composition, as it does when it is clicked.
    virtual void askForComposition() = 0;
    /// The field loses the focus and gets it back.
    virtual void leaveAndReturn() = 0;

    /// The row of the line of candidates is clicked; a field without one fails the running test.
    virtual void chooseCandidate(std::size_t row);

    void type(std::string_view text);
    void type(const std::vector<KeyEvent>& events);
    TextField& field() noexcept { return field_; }

protected:
    ServedField() = default;
    ServedField(const ServedField&) = default;
    ServedField& operator=(const ServedField&) = default;

private:
    TextField field_;
};

/// Plays a scenario in the field; its edits are made to `settings`, which the input method has to notice.
/// Fails the running test where the screen is not as the scenario says.
void replay(const Scenario& scenario, ServedField& served, SinglishSettings& settings);

} // namespace vanoka::test
