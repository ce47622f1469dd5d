#pragma once

#include "TextStyle.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vanoka {

struct ParagraphStyle {
    enum class Alignment : std::uint8_t { natural, centred };

    Alignment alignment = Alignment::natural;
    double spacing = 0; ///< after each paragraph, in points
    friend bool operator==(const ParagraphStyle&, const ParagraphStyle&) = default;
};

struct TextAttributes {
    Font font;
    ColourRole colour = ColourRole::primary;
    ParagraphStyle paragraph;
    std::optional<std::string> link; ///< the address that the text opens
    friend bool operator==(const TextAttributes&, const TextAttributes&) = default;
};

/// A stretch of text with the same attributes throughout.
struct AttributedPiece {
    std::string text;
    TextAttributes attributes;
    friend bool operator==(const AttributedPiece&, const AttributedPiece&) = default;
};

/// A text of pieces in their order; a line feed ends a paragraph.
using AttributedText = std::vector<AttributedPiece>;

} // namespace vanoka
