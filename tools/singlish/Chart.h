#pragma once

#include "settings/SinglishSettings.h"

#include <ostream>
#include <string>
#include <vector>

namespace vanoka {

/// Writes every letter with the keys that type it at present and an example, group by group.
void writeChart(std::ostream& output, const SinglishSettings& settings);

/// Writes rows of cells, as `text::visible` shows them, in columns that are as wide as their widest cell; the
/// last one is not padded.
void writeColumns(std::ostream& output, std::vector<std::vector<std::string>> rows);

} // namespace vanoka
