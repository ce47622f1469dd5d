#pragma once

#include <cstdint>
#include <string>

namespace vanoka {

/// A text size of the platform, by what it is for. Each toolkit maps these to its own sizes.
enum class FontRole : std::uint8_t {
    body,
    title2,
    headline,
    subheadline,
    callout,
    footnote,
    caption,
    smallSystem, ///< the system font at the platform's small system size
    system       ///< the system font at the size that the font names
};

/// A font as content asks for it.
struct Font {
    FontRole role = FontRole::body;
    bool isMonospaced = false;
    bool isSemibold = false;
    double size = 0; ///< in points; for `FontRole::system` alone
    friend bool operator==(const Font&, const Font&) = default;
};

/// A colour by what it says. Each toolkit takes its own, for light and dark surroundings.
enum class ColourRole : std::uint8_t { primary, secondary, accent, red, orange };

/// A text with its looks.
struct StyledText {
    std::string text;
    Font font;
    ColourRole colour = ColourRole::primary;
    bool isStruckThrough = false;
    friend bool operator==(const StyledText&, const StyledText&) = default;
};

} // namespace vanoka
