#pragma once

#include "TextStyle.h"
#include "settings/SinglishSettings.h"

#include <optional>
#include <string>
#include <vector>

namespace vanoka {

/// A filled circle that says something by being there.
struct Dot {
    double diameter = 0; ///< in points
    ColourRole colour = ColourRole::accent;
    std::string help;
    friend bool operator==(const Dot&, const Dot&) = default;
};

/// One letter in the sidebar, on one line: the letter, the keys that type it, and a dot when the user has
/// changed them. A value: it stays as it was when the settings change.
struct LetterRow {
    /// The row of the letter `shown` with the keys in force.
    LetterRow(const SinglishScheme::Letter& shown, const SinglishSettings& settings);

    static constexpr double letterWidth = 36; ///< of the frame around the letter, in points

    StyledText letterText() const;
    StyledText keysText() const;
    std::optional<Dot> dot() const;
    /// What a screen reader says for the whole row.
    std::string spokenText() const;

    SinglishScheme::Letter letter;
    std::vector<std::string> keys; ///< the keys that type the letter at present
    bool isCustomized = false;
    friend bool operator==(const LetterRow&, const LetterRow&) = default;
};

} // namespace vanoka
