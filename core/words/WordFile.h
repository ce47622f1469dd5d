#pragma once

#include "words/WordCount.h"

#include <string>
#include <string_view>
#include <vector>

/// Word lists as every program loads them: by the rows of "text/Rows.h", without the byte order mark that a
/// list may begin with, and with counts held to a range (see "words/ListReading.h").
namespace vanoka {

/// The words of a list with their counts. Lines of another form are passed over.
std::vector<WordCount> readWordCounts(std::string_view list);

/// The list as text that is safe to hand to a list of the core. It is `list` itself, moved, where there is
/// nothing to hold; otherwise its rows alone.
std::string withHeldCounts(std::string list);

} // namespace vanoka
