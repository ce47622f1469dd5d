#include "words/WordFile.h"

#include "text/Rows.h"
#include "words/ListReading.h"

namespace vanoka {

std::vector<WordCount> readWordCounts(std::string_view list) {
    std::vector<WordCount> words;
    text::forEachRow(ListReading::withoutByteOrderMark(list),
                     [&](std::string_view word, std::string_view field) {
                         if (const auto count = text::integer(field))
                             words.push_back({std::string(word), ListReading::held(*count)});
                     });
    return words;
}

} // namespace vanoka
