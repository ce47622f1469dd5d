#include "WordFile.h"

#include "Reading.h"
#include "text/Rows.h"

namespace vanoka {

CountedWords readWords(std::istream& input) {
    CountedWords words;
    Lines lines(input);
    for (std::string line; lines.next(line);) {
        const auto fields = parts(line, "\t\r");
        if (line.starts_with('#') || line.starts_with('\t') || fields.size() != 2)
            continue;
        if (const auto count = text::integer(fields[1]))
            words.emplace_back(fields[0], ListReading::held(*count));
    }
    return words;
}

std::vector<SwipeDecoder::Word> views(const CountedWords& words) {
    std::vector<SwipeDecoder::Word> views;
    views.reserve(words.size());
    for (const auto& [word, count] : words)
        views.push_back({word, count});
    return views;
}

} // namespace vanoka
