#pragma once

#include <cstdint>

namespace vanoka::mac {

/// Whom the menu is for: an application of its own can be quit from it; the input method server cannot, since
/// whoever is typing would lose it.
enum class MainMenuFor : std::uint8_t { application, server };

/// Gives the shared application its main menu. Without one, no text field knows copy and paste and no window
/// the shortcut that closes it, even where no menu bar is shown.
void installMainMenu(MainMenuFor purpose);

} // namespace vanoka::mac
