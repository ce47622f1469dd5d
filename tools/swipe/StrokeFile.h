#pragma once

#include "Reading.h"
#include "swipe/SwipePoint.h"

#include <istream>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

namespace vanoka {

/// A stroke and the word that it was meant for.
struct MeantStroke {
    std::string word;
    double keyWidth = 0;
    std::vector<SwipePoint> points;

    friend bool operator==(const MeantStroke&, const MeantStroke&) = default;
};

/// Reads strokes, one on a line: the word, a tab, the key width, a tab, the points as x,y between spaces.
/// Empty lines and comments with # are passed over.
std::variant<std::vector<MeantStroke>, BadLine> readStrokes(std::istream& input);

/// Writes a stroke so that reading it gives an equal one.
void writeStroke(std::ostream& output, const MeantStroke& stroke);

} // namespace vanoka
