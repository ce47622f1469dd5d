#pragma once

#include <ostream>
#include <span>
#include <string_view>

namespace vanoka {

/// Runs vanoka-swipe with these arguments. Returns the exit status: 0 done, 1 refused (a file that is not
/// what it should be, a stroke or a word that is not there), 2 not understood, 3 a file that could not be
/// read.
int runSwipeCommand(std::span<const std::string_view> arguments, std::ostream& output, std::ostream& errors);

} // namespace vanoka
