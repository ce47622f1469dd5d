#pragma once

#include "words/WordCount.h"

#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The words of a list with their counts, as every program here loads it: by the rows of "text/Rows.h",
/// without the byte order mark that it may begin with, and with counts held to a range (see
/// "words/ListReading.h"). Lines of another form are passed over.
std::vector<WordCount> readWordCounts(std::string_view list);

} // namespace vanoka
