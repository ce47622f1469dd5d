#pragma once

#include "singlish/SinglishCustomization.h"

#include <string>

namespace vanoka {

/// Keys that come from elsewhere, as they are stored: what comes of switching off each disabled key and then
/// adding each added key in its turn, through settings that were empty. So no key is there twice, and a
/// built-in key of its own letter is switched on rather than added.
struct ImportedKeys {
    SinglishCustomization keys;
    std::string problems; ///< a line for each key that cannot be added; `keys` are without it
};

/// What `wanted` are when they are imported, in time in proportion to their number.
ImportedKeys imported(const SinglishCustomization& wanted);

} // namespace vanoka
