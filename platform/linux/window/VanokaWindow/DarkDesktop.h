#pragma once

namespace vanoka {

/// Whether the desktop is dark by any of the signs that one without a settings portal gives: the toolkit's
/// own palette, the theme of GTK in the environment, and the files in which GTK and KDE keep their colours.
bool isDesktopDark();

} // namespace vanoka
