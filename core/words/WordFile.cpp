#include "words/WordFile.h"

#include "text/Rows.h"
#include "words/ListReading.h"

#include <utility>

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

std::string withHeldCounts(std::string list) {
    if (list.starts_with(ListReading::byteOrderMark))
        list.erase(0, ListReading::byteOrderMark.size());
    bool isInRange = true;
    std::string held;
    text::forEachRow(list, [&](std::string_view, std::string_view field) {
        const auto count = text::integer(field);
        isInRange = isInRange && (!count || *count == ListReading::held(*count));
    });
    if (isInRange)
        return list;
    text::forEachRow(list, [&](std::string_view word, std::string_view field) {
        const auto count = text::integer(field);
        held.append(word).append(1, '\t');
        held.append(count ? std::to_string(ListReading::held(*count)) : std::string(field)).append(1, '\n');
    });
    return held;
}

} // namespace vanoka
