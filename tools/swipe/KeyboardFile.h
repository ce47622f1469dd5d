#pragma once

#include "Reading.h"
#include "swipe/SwipeGeometry.h"

#include <istream>
#include <string>
#include <variant>
#include <vector>

namespace vanoka {

/// A keyboard as it is drawn: keys of one size.
struct Keyboard {
    struct Key {
        std::string label;
        SwipePoint center;
    };
    double keyWidth = 0;
    double keyHeight = 0;
    std::vector<Key> keys;

    SwipeKeys layout() const;
};

/// Reads a layout file. Lines, in any unit of length, apart from comments with # and empty lines:
///     width 36                     of a key; before the first row, as is
///     height 54                    of a key
///     row 18 a s d f               the next row's keys from left to right, the first one's left edge at 18
///     key LABEL 100 200            one more key, by its centre
std::variant<Keyboard, BadLine> readKeyboard(std::istream& input);

} // namespace vanoka
