#include "Words.h"

#include "Randoms.h"
#include "WordCounter.h"
#include "WordLists.h"

#include <gtest/gtest.h>
#include <map>

namespace vanoka {

namespace {

using List = std::vector<std::string>;

List sinhalaWords(std::string_view text) {
    List words;
    forEachSinhalaWord(text, [&](std::string_view word) { words.emplace_back(word); });
    return words;
}

List englishWords(std::string_view text) {
    List words;
    forEachEnglishWord(text, [&](std::string_view word) { words.emplace_back(word); });
    return words;
}

TEST(Words, SinhalaWordsAreLettersSignsAndTheJoinersBetween) {
    struct Row {
        std::string text;
        List words;
    };
    const std::vector<Row> rows = {
        {"", {}},
        {"amma 12, \u0D82 \u200D", {}},
        {"\u0D9A\u0DB8", {"\u0D9A\u0DB8"}},
        {"\u0D9A, \u0DB8!\n(\u0DBB)", {"\u0D9A", "\u0DB8", "\u0DBB"}},
        {"x\u0D9Ay\u0DB8\u0DCA", {"\u0D9A", "\u0DB8\u0DCA"}},
        {"\u0DC1\u0DCA\u200D\u0DBB\u0DD3", {"\u0DC1\u0DCA\u200D\u0DBB\u0DD3"}},
        {"\u200D\u0D9A\u0DCA\u200D \u0D9A\u200C", {"\u0D9A\u0DCA", "\u0D9A"}},
        {"\u0DCF\u0D9A\u0DCF", {"\u0D9A\u0DCF"}},
        {"\u0D9A\u0DD9\u0DCF", {"\u0D9A\u0DDC"}},
        {"\u0D9A\u0DE7\u0DB8\u0DF4\u0DBB", {"\u0D9A", "\u0DB8", "\u0DBB"}},
        {"\u0D9A\xFF\u0DB8\xE0\xB6", {"\u0D9A", "\u0DB8"}},
        {"\u0D9A\u0DF2\u0D83\u0D85", {"\u0D9A\u0DF2\u0D83\u0D85"}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(sinhalaWords(row.text), row.words) << row.text;
}

TEST(Words, EnglishWordsAreInLowerCase) {
    struct Row {
        std::string text;
        List words;
    };
    const std::vector<Row> rows = {
        {"", {}},
        {"Hello, WORLD!", {"hello", "world"}},
        {"don't 'quote' rock'n'roll dogs'", {"don't", "quote", "rock'n'roll", "dogs"}},
        {"It\u2019s", {"it's"}},
        {"CAF\u00C9 cafe\u0301", {"caf\u00E9", "caf\u00E9"}},
        {"b2b 3\u00D74", {"b", "b"}},
        {"\u0D9Aa\u0D9A", {"a"}},
        {"a\xFFz", {"a", "z"}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(englishWords(row.text), row.words) << row.text;
}

TEST(Words, AreTheSameHoweverATextIsCut) {
    test::Randoms randoms(23);
    for (int i = 0; i < 500; ++i) {
        std::string text;
        for (int j = 0; j < 30; ++j)
            text += test::strangeWord(randoms, 5) + (randoms.oneIn(3) ? "\n" : " ");
        List pieced;
        const auto take = [&](std::string_view whole) {
            forEachSinhalaWord(whole, [&](std::string_view word) { pieced.emplace_back(word); });
        };
        PieceCutter cutter;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t length = 1 + randoms.below(20);
            cutter.write(std::string_view(text).substr(at, length), take);
            at += length;
        }
        cutter.finish(take);
        ASSERT_EQ(pieced, sinhalaWords(text));
    }
}

TEST(Words, ATextWithoutSpacesIsCutInTime) {
    std::size_t largest = 0, total = 0;
    PieceCutter cutter;
    const auto take = [&](std::string_view whole) {
        largest = std::max(largest, whole.size());
        total += whole.size();
        forEachSinhalaWord(whole, [](std::string_view word) { EXPECT_EQ(word.size() % 3, 0U); });
    };
    for (int i = 0; i < 10000; ++i)
        cutter.write("\u0D9A\u0DB8\u0DBB\xE0", take), cutter.write("\xB6\x9A", take);
    cutter.finish(take);
    EXPECT_EQ(total, 120000U);
    EXPECT_LT(largest, PieceCutter::longestWord + 20);
}

TEST(WordCounter, CountsLikeAMap) {
    test::Randoms randoms(24);
    WordCounter counter;
    std::map<std::string, std::int64_t> expected;
    for (int i = 0; i < 20000; ++i) {
        const std::string word = "w" + std::to_string(randoms.below(1 + randoms.below(3000)));
        counter.add(word);
        ++expected[word];
    }
    EXPECT_EQ(counter.distinct(), expected.size());
    const auto ranked = counter.ranked(2);
    std::size_t frequent = 0;
    for (const auto& [word, count] : expected)
        frequent += count >= 2;
    ASSERT_EQ(ranked.size(), frequent);
    for (std::size_t i = 0; i < ranked.size(); ++i) {
        EXPECT_EQ(ranked[i].count, expected[ranked[i].word]);
        if (i > 0) {
            EXPECT_TRUE(ranked[i - 1].count > ranked[i].count ||
                        (ranked[i - 1].count == ranked[i].count && ranked[i - 1].word < ranked[i].word));
        }
    }
}

} // namespace

} // namespace vanoka
