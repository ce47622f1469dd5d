#include "SwipeWords.h"

#include <algorithm>
#include <array>
#include <random>
#include <string_view>
#include <unordered_set>

namespace vanoka::bench {

namespace {

template <std::size_t size>
std::string_view of(const std::array<std::string_view, size>& parts, std::mt19937& random) {
    return parts[random() % size];
}

std::string word(std::mt19937& random) {
    // As often here as they are in running text, roughly.
    static constexpr auto roots = std::to_array<std::string_view>(
        {"\u0DB1", "\u0DB1", "\u0DB1", "\u0DBA", "\u0DBA", "\u0DBA", "\u0DC0", "\u0DC0", "\u0DC0", "\u0D9A",
         "\u0D9A", "\u0D9A", "\u0DBB", "\u0DBB", "\u0DBB", "\u0DAD", "\u0DAD", "\u0DB8", "\u0DB8", "\u0DC3",
         "\u0DC3", "\u0DBD", "\u0DBD", "\u0DB4", "\u0DB4", "\u0DAF", "\u0DAF", "\u0DC4", "\u0DC4", "\u0D9C",
         "\u0DB6", "\u0DA7", "\u0DA7", "\u0DAB", "\u0DC1", "\u0DC0", "\u0DA2", "\u0DA0", "\u0DB0", "\u0DB7",
         "\u0DB3", "\u0DC5", "\u0D9F", "\u0DB9", "\u0DB5", "\u0D9B"});
    static constexpr auto signs = std::to_array<std::string_view>(
        {"",       "",       "",       "",       "",       "",       "\u0DD2", "\u0DD2",
         "\u0DD2", "\u0DCF", "\u0DCF", "\u0DD4", "\u0DD4", "\u0DD9", "\u0DDA", "\u0DDC",
         "\u0DDD", "\u0DD3", "\u0DD6", "\u0DD0", "\u0DCA", "\u0DCA", "\u0DCA"});
    static constexpr auto beginnings =
        std::to_array<std::string_view>({"", "", "", "", "", "", "\u0D85", "\u0D89", "\u0D8B", "\u0D86"});
    static constexpr auto endings =
        std::to_array<std::string_view>({"", "", "\u0DBA", "\u0DC0", "\u0DB1\u0DCA", "\u0DA7", "\u0D9A\u0DCA",
                                         "\u0DBA\u0DD2", "\u0DB8\u0DCA"});
    std::string word(of(beginnings, random));
    for (std::size_t syllables = 2 + random() % 4; syllables > 0; --syllables)
        word.append(of(roots, random)).append(of(signs, random));
    return word.append(of(endings, random));
}

} // namespace

std::vector<WordCount> sampleWords(std::size_t count) {
    std::mt19937 random(20);
    std::unordered_set<std::string> seen;
    std::vector<WordCount> words;
    while (words.size() < count) {
        std::string next = word(random);
        if (!seen.insert(next).second)
            continue;
        const auto rank = static_cast<std::int64_t>(words.size() + 1);
        words.push_back({std::move(next), std::max<std::int64_t>(1, 50'000 / rank)});
    }
    std::shuffle(words.begin(), words.end(), random); // real lists are in any order
    return words;
}

} // namespace vanoka::bench
