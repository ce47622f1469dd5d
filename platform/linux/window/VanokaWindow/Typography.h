#pragma once

#include "TextStyle.h"

#include <QFont>

namespace vanoka {

/// The application's default font: the desktop's own Latin family first, and a Sinhala family that joins
/// letters as they must be joined wherever it is installed. Call it once the application object exists.
QFont applicationFont();

/// The font that is meant on this desktop. It follows the application's font size.
QFont fontOf(const Font& wanted);

} // namespace vanoka
