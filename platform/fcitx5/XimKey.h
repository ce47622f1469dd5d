#pragma once

#include <cstdint>
#include <fcitx/event.h>
#include <fcitx/instance.h>

namespace vanoka::fcitx5 {

/// The keysym of the key that was pressed or released.
///
/// XIM's server looks a key up with the modifiers that are down when it comes to handle it. Shift may be
/// released by then, or pressed for the next letter, so such a key is looked up again with the modifiers that
/// were down at its time, which it carries.
std::uint32_t keysymOf(const fcitx::KeyEvent& event, fcitx::Instance& instance);

} // namespace vanoka::fcitx5
