#pragma once

#include "Program.h"

#include <istream>
#include <ostream>

namespace vanoka {

/// vanoka-swipe, and what it does with a command. The exit status refused (see "ExitStatus.h") means a file
/// that is not what it should be, and a stroke or a word that is not there.
namespace SwipeCommand {

extern const Program program;

int run(const CommandLine& line, std::istream& input, std::ostream& output, std::ostream& errors);

} // namespace SwipeCommand

} // namespace vanoka
