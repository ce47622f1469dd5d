#pragma once

#include "typing/KeyEvent.h"

#include <cstdint>
#include <optional>

namespace vanoka::test {

/// What a keyboard under X sends for a key.
struct X11Key {
    std::uint32_t keysym = 0;
    std::uint32_t state = 0;
};

/// The X key behind an event that `keys` makes.
X11Key x11Key(const KeyEvent& event);

} // namespace vanoka::test
