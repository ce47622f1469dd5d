#pragma once

#include <ostream>
#include <span>
#include <string_view>

namespace vanoka {

/// Runs vanoka-swipe with these arguments. Returns the exit status (see "ExitStatus.h"); refused is a
/// file that is not what it should be, and a stroke or a word that is not there.
int runSwipeCommand(std::span<const std::string_view> arguments, std::ostream& output, std::ostream& errors);

} // namespace vanoka
