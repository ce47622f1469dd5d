#pragma once

#include "Explanation.h"
#include "KeyboardFile.h"
#include "StrokeFile.h"

#include <ostream>
#include <span>

namespace vanoka {

/// Writes an SVG picture: the keyboard, the stroke as it was reported, the points at which it is compared,
/// and the ideal path of each explained word in a colour of its own, with a row below that says why it stands
/// where it does.
void drawStroke(std::ostream& output, const Keyboard& keyboard, const MeantStroke& stroke,
                std::span<const Explanation> words);

} // namespace vanoka
