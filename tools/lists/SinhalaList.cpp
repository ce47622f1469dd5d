#include "SinhalaList.h"

#include "ListReading.h"
#include "text/Rows.h"

#include <string>
#include <vector>

namespace vanoka {

SinhalaWordList readSinhalaList(std::string_view list) {
    std::vector<WordCount> words;
    const auto take = [&words](std::string_view word, std::string_view field) {
        if (const auto count = text::integer(field))
            words.push_back({std::string(word), ListReading::held(*count)});
    };
    text::forEachRow(ListReading::withoutByteOrderMark(list), take);
    return SinhalaWordList(words);
}

} // namespace vanoka
