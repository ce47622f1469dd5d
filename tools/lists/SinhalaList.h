#pragma once

#include "words/SinhalaWordList.h"

#include <string_view>

namespace vanoka {

/// The words of a list, with their counts held to a range and without the byte order mark that the list may
/// begin with (see "ListReading.h").
SinhalaWordList readSinhalaList(std::string_view list);

} // namespace vanoka
