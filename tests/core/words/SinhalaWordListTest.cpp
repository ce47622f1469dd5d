#include "words/SinhalaWordList.h"

#include "Memory.h"
#include "words/CompactText.h"
#include "words/KeyedTexts.h"
#include "words/SinhalaSpelling.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace vanoka {

namespace {

using Words = std::vector<std::string>;
using Counts = std::vector<WordCount>;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

TEST(SinhalaWordList, AnEmptyListSuggestsNothing) {
    for (const SinhalaWordList& list :
         {SinhalaWordList(), SinhalaWordList(""), SinhalaWordList("# a comment\n#\u0D9A\t4\n"),
          SinhalaWordList(Counts{})}) {
        EXPECT_EQ(list.size(), 0);
        EXPECT_EQ(list.words(), Counts{});
        EXPECT_EQ(list.typicalCount(), 1);
        EXPECT_EQ(list.countOfSpelling("\u0D9A"), 0);
        EXPECT_EQ(list.suggestionsFor("\u0D9A", 5), Words{});
        EXPECT_EQ(list.suggestionsFor("\u0D9A\u0DCA\u0D9C", 5, &list), Words{});
    }
}

TEST(SinhalaWordList, KeepsItsWordsWhenItIsMovedFrom) {
    SinhalaWordList from("\u0D9A\u0DB8\t12");
    SinhalaWordList to = std::move(from);
    EXPECT_EQ(from.suggestionsFor("\u0D9A", 5, &from),
              Words{"\u0D9A\u0DB8"}); // NOLINT(bugprone-use-after-move)
    to = SinhalaWordList();
    from = std::move(to);
    EXPECT_EQ(to.size() + from.size(), 0); // NOLINT(bugprone-use-after-move)
}

TEST(SinhalaWordList, ReadsWordsAndCounts) {
    struct Row {
        const char* tsv;
        Counts words;
    };
    const std::vector<Row> rows = {
        {"\u0D9A\t12", {{"\u0D9A", 12}}},
        {"\u0D9A\t\t12\n", {{"\u0D9A", 12}}},
        {"\t\u0D9A\t12\t\n", {{"\u0D9A", 12}}},
        {"\u0D9A\t+5\n\u0D9C\t-5\n", {{"\u0D9A", 5}, {"\u0D9C", -5}}},
        {" \u0D9A \u0D9C \t5\n", {{" \u0D9A \u0D9C ", 5}}},
        {"\u0D9A\t5\t6\n", {}},
        {"\u0D9A 5\n", {}},
        {"\u0D9A\t5x\n\u0D9A\t\n\u0D9A\tchat\n", {}},
        {"\u0D9A\t5\r\n\u0D9C\t6\r\n", {}},
        {"\u0D9A\t5\r\n", {}},
        {"\u0D9A\t5\r\n\u0D9C\t6\n\u0DA0\t7\n", {{"\u0DA0", 7}}},
        {"\u0D9A\xFF\t5\n\u0D9C\t6\n", {{"\u0D9C", 6}}},
        {"\uFEFF\u0D9A\t5\n", {{"\uFEFF\u0D9A", 5}}},
        {"\u0D9A\t9223372036854775808\n", {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(SinhalaWordList(row.tsv).words(), row.words) << testing::PrintToString(row.tsv);
}

TEST(SinhalaWordList, KeepsEveryRowAsItStandsInTheOrderOfTheLooseKeys) {
    const Counts words = {{"\u0DB8", 1}, {"\u0D9B", 2}, {"\u0D9A\u0DCF", 3},
                          {"\u0D9A", 4}, {"\u0D9A", 4}, {"", 5}};
    const Counts sorted = {{"", 5},       {"\u0D9B", 2}, {"\u0D9A\u0DCF", 3},
                           {"\u0D9A", 4}, {"\u0D9A", 4}, {"\u0DB8", 1}};
    EXPECT_EQ(SinhalaWordList(words).words(), sorted);
    EXPECT_EQ(SinhalaWordList(Counts{{"\xE0\xB6", 4}, {"\u0D9A\u0DD9\u0DCF", 1}}).words(),
              (Counts{{"\u0D9A\u0DD9\u0DCF", 1}}))
        << "an ill-formed word is left out, a decomposed one stays so";
}

TEST(SinhalaWordList, TheTypicalCountIsTheOneInThe1001stPlace) {
    EXPECT_EQ(SinhalaWordList(
                  Counts{{"\u0D9A", 50}, {"\u0D9C", 40}, {"\u0DA0", 30}, {"\u0DA2", 10}, {"\u0DAD", 20}})
                  .typicalCount(),
              10);
    for (const std::int64_t size : {1000, 1001, 1002, 2000}) {
        Counts words;
        for (std::int64_t i = 1; i <= size; ++i)
            words.push_back({"\u0D9A", i * 7 % 3001});
        std::vector<std::int64_t> counts;
        for (const WordCount& word : words)
            counts.push_back(word.count);
        std::ranges::sort(counts, std::ranges::greater());
        EXPECT_EQ(SinhalaWordList(words).typicalCount(),
                  counts[static_cast<std::size_t>(std::min<std::int64_t>(size, 1001) - 1)]);
    }
}

TEST(SinhalaWordList, TakesTwelveBytesAWordBesideItsTextsAndSummaries) {
    KeyedTexts::Builder texts;
    Counts words;
    for (const char* letter :
         {"\u0D9A", "\u0D9C", "\u0DA0", "\u0DA2", "\u0DA7", "\u0DAD", "\u0DAF", "\u0DB1", "\u0DB4"}) {
        words.push_back({letter, 1});
        texts.add(CompactText::compact(SinhalaSpelling::looseKey(letter)), CompactText::compact(letter));
    }
    // Nine words have two summaries and one of those, by the key and, with the signs, by the skeleton.
    test::expectMemory(SinhalaWordList(words).memory(), texts.finish().memory() + 9 * (8 + 4) + 3 * (8 + 16));
}

TEST(SinhalaWordList, CountsASpellingLoosely) {
    const SinhalaWordList list(
        Counts{{"\u0D9A\u0DB8", 5}, {"\u0D9B\u0DB8", 9}, {"\u0D9A\u0DCF\u0DB8", 7}, {"\u0DBB", -3}});
    for (const char* text : {"\u0D9A\u0DB8", "\u0D9B\u0DB8", "\u0D9B\u0DCF\u0DB8", "\u0D9A\u200D\u0DB8"})
        EXPECT_EQ(list.countOfSpelling(text), 9) << text;
    EXPECT_EQ(list.countOfSpelling("\u0D9A"), 0);
    EXPECT_EQ(list.countOfSpelling("\u0D9A\u0DB8\u0DB8"), 0);
    EXPECT_EQ(list.countOfSpelling("\u0DBB"), 0) << "nothing is below 0";
    EXPECT_EQ(list.countOfSpelling(""), 0);
    EXPECT_EQ(SinhalaWordList(Counts{{"\u0DCF", 4}}).countOfSpelling(""), 4) << "both keys are empty";
    EXPECT_EQ(list.countOfSpelling("\u0D9A\u0DB8\xFF"), 0);
    EXPECT_TRUE(list.contains("\u0D9A\u0DB8"));
    EXPECT_FALSE(list.contains("\u0D9B\u0DCF\u0DB8")) << "equal in its loose key alone";
    EXPECT_FALSE(list.contains("\u0D9A\u0DB8\xFF"));
}

struct Suggestion {
    const char* text;
    std::int64_t limit;
    Words words;
};

void expectSuggestions(const SinhalaWordList& list, const SinhalaWordList* personal,
                       const std::vector<Suggestion>& rows) {
    for (const Suggestion& row : rows)
        EXPECT_EQ(list.suggestionsFor(row.text, row.limit, personal), row.words)
            << row.text << ' ' << row.limit;
}

// gama, gaama, gamak, gamana, gamiima, kata
constexpr const char* gama = "\u0D9C\u0DB8";
constexpr const char* gaama = "\u0D9C\u0DCF\u0DB8";
constexpr const char* gamak = "\u0D9C\u0DB8\u0D9A\u0DCA";
constexpr const char* gamana = "\u0D9C\u0DB8\u0DB1";
constexpr const char* gamima = "\u0D9C\u0DD0\u0DB8\u0DD2\u0DB8";

TEST(SinhalaWordList, SuggestsCompletionsByCount) {
    const SinhalaWordList list(
        Counts{{gama, 10}, {gaama, 4}, {gamak, 11}, {gamana, 50}, {"\u0D9A\u0DA7", 99}});
    expectSuggestions(
        list, nullptr,
        {
            {"\u0D9C", 5, {gamana, gamak, gama, gaama}},
            {"\u0D9C", 2, {gamana, gamak}},
            {"\u0D9D", 1, {gamana}},
            // whole words weigh three times their count: 50, 4 * 3, 11; the word itself is left out
            {gama, 5, {gamana, gaama, gamak}},
            {gaama, 5, {gamana, gama, gamak}},
            {"\u0D9D\u0DB8", 5, {gamana, gama, gaama, gamak}},
            {gamana, 5, {}},
            {"\u0DBB", 5, {}},
            {"", 5, {}},
            {"\u0DCA", 5, {}},
            {"\u0DCF\u200D", 5, {}},
            {"\u0D9C", 0, {}},
            {"\u0D9C", -1, {}},
            {"\u0D9C", smallest, {}},
            {"\u0D9C", largest, {gamana, gamak, gama, gaama}},
            {"\xE0", 5, {}},
            {"\u0D9C\xFF", 5, {}},
        });
}

TEST(SinhalaWordList, AVirmaAtTheEndIsNotYetAPartOfTheWord) {
    const SinhalaWordList list(Counts{{"\u0D9A\u0DA7", 2}, {"\u0D9A\u0DCA", 1}, {"\u0D9A\u0DD2", 3}});
    // The word that was typed is left out; the bare consonant would be a whole word.
    expectSuggestions(list, nullptr, {{"\u0D9A\u0DCA", 5, {"\u0D9A\u0DD2", "\u0D9A\u0DA7"}}});
    const SinhalaWordList viramas(Counts{{"\u0D9A\u0DCA\u0DCA", 1}, {"\u0D9A", 1}});
    expectSuggestions(viramas, nullptr,
                      {{"\u0D9A\u0DCA\u0DCA", 5, {}}, {"\u0D9A\u0DCA", 5, {"\u0D9A", "\u0D9A\u0DCA\u0DCA"}}});
}

TEST(SinhalaWordList, EqualScoresKeepTheOrderOfTheList) {
    const SinhalaWordList list(
        Counts{{"\u0D9A\u0DB8", 5}, {"\u0D9B\u0DB8", 5}, {"\u0D9A\u0D9A", 5}, {"\u0D9A\u0DB8", 5}});
    expectSuggestions(
        list, nullptr,
        {
            {"\u0D9A", 5, {"\u0D9A\u0D9A", "\u0D9A\u0DB8", "\u0D9B\u0DB8", "\u0D9A\u0DB8"}}, // both rows
            {"\u0D9A", 3, {"\u0D9A\u0D9A", "\u0D9A\u0DB8", "\u0D9B\u0DB8"}},
        });
}

TEST(SinhalaWordList, ConsonantsWithViramaAbbreviateWords) {
    // kamala, kumaraya, kimida, kmm..., akmala
    const std::string kamala = "\u0D9A\u0DB8\u0DBD", kumara = "\u0D9A\u0DD4\u0DB8\u0DCF\u0DBB\u0DBA",
                      kimi = "\u0D9A\u0DD2\u0DB8\u0DD2", kuma = "\u0D9A\u0DD4\u0DB8",
                      kmala = "\u0D9A\u0DCA\u0DB8\u0DBD";
    const SinhalaWordList list(Counts{{kamala, 20}, {kumara, 40}, {kimi, 30}, {kuma, 15}, {kmala, 1}});
    expectSuggestions(list, nullptr,
                      {
                          // k + ma: kmala is spelled so and stays first; kuma has as many syllables: 45
                          {"\u0D9A\u0DCA\u0DB8", 5, {kmala, kuma, kumara, kamala}},
                          {"\u0D9A\u0DCA\u0DB8", 2, {kmala, kuma}},
                          // k + m, both with any vowel: kimi 90
                          {"\u0D9A\u0DCA\u0DB8\u0DCA", 5, {kmala, kimi, kuma, kumara, kamala}},
                          // nothing is spelled so: the best abbreviated word is first
                          {"\u0D9A\u0DCA\u0DB8\u0DD2", 5, {kimi}},
                          {"\u0D9A\u0DCA\u0DB8\u0DCA\u0DBD\u0DCA", 5, {kamala, kmala}},
                          {"\u0D9A\u0DCA\u0DBD", 5, {}},
                      });
    // of equals, what is spelled so comes first
    const std::string kmava = "\u0D9A\u0DCA\u0DB8\u0DC0";
    expectSuggestions(SinhalaWordList(Counts{{kmala, 9}, {kamala, 5}, {kmava, 5}}), nullptr,
                      {{"\u0D9A\u0DCA\u0DB8", 5, {kmala, kmava, kamala}}});
}

TEST(SinhalaWordList, AnAnusvaraIsAnAbbreviationToo) {
    // sampatha as sa + anusvara + ...: the key holds n + virama, which stands for any syllable of n
    const std::string san = "\u0DC3\u0D82\u0D9A", sanika = "\u0DC3\u0DB1\u0DD2\u0D9A\u0DBA";
    const SinhalaWordList list(Counts{{san, 1}, {sanika, 9}});
    expectSuggestions(list, nullptr,
                      {
                          {"\u0DC3\u0D82", 5, {sanika, san}}, // it ends the text: no abbreviation
                          {"\u0DC3\u0D82\u0D9A", 5, {sanika}},
                          {"\u0DC3\u0D82\u0D9B", 5, {san, sanika}},
                      });
}

TEST(SinhalaWordList, TheWordItselfIsLeftOutInEveryForm) {
    const std::string composed = "\u0D9A\u0DDC", decomposed = "\u0D9A\u0DD9\u0DCF";
    const SinhalaWordList list(Counts{{decomposed, largest}, {"\u0D9A\u0DDD", 2}});
    expectSuggestions(list, nullptr,
                      {{composed.c_str(), 5, {"\u0D9A\u0DDD"}}, {decomposed.c_str(), 5, {"\u0D9A\u0DDD"}}});
}

TEST(SinhalaWordList, APersonalListAddsItsScores) {
    const SinhalaWordList list(Counts{{gamak, 10}, {gamana, 50}, {gamima, 30}});
    const SinhalaWordList personal(Counts{{gamak, 45}, {gamima, 5}, {"\u0D9C\u0DBB", 55}});
    expectSuggestions(list, &personal,
                      {
                          // 10 + 45 and 55, by the words' code points; 50; 30 + 5
                          {"\u0D9C", 5, {gamak, "\u0D9C\u0DBB", gamana, gamima}},
                          {"\u0D9C\u0DD0", 5, {gamima}},
                      });
}

TEST(SinhalaWordList, EachListIsCutBeforeScoresAreAdded) {
    const SinhalaWordList list(Counts{{gamana, 50}, {gamak, 49}});
    const SinhalaWordList personal(Counts{{gama, 20}, {gamak, 19}});
    expectSuggestions(
        list, &personal,
        {{"\u0D9C", 1, {gamana}}, {"\u0D9C", 2, {gamak, gamana}}, {"\u0D9C", 3, {gamak, gamana, gama}}});
}

TEST(SinhalaWordList, AnEmptyPersonalListIsAListAllTheSame) {
    const std::string first = "\u0D9A\u0DB8\u0DBB",
                      second = "\u0D9A\u0DB8\u0DB1"; // by key the second is first
    const SinhalaWordList list(Counts{{first, 5}, {first, 5}, {second, 5}});
    const SinhalaWordList empty;
    expectSuggestions(list, nullptr, {{"\u0D9A", 5, {second, first, first}}});
    expectSuggestions(list, &empty, {{"\u0D9A", 5, {first, second}}}); // rows of one word add up
}

TEST(SinhalaWordList, EquivalentWordsAreOneWordInTwoLists) {
    const std::string composed = "\u0D9A\u0DDC\u0DB8", decomposed = "\u0D9A\u0DD9\u0DCF\u0DB8";
    const SinhalaWordList list(Counts{{decomposed, 5}, {"\u0D9A\u0DDC\u0DBB", 8}});
    const SinhalaWordList personal(Counts{{composed, 4}});
    expectSuggestions(list, &personal,
                      {{"\u0D9A", 5, {decomposed, "\u0D9A\u0DDC\u0DBB"}}}); // as it is met first
}

TEST(SinhalaWordList, CopiesShareTheirWords) {
    const SinhalaWordList list(Counts{{gama, 1}});
    const SinhalaWordList copy = list;
    EXPECT_EQ(copy.words(), list.words());
    EXPECT_EQ(copy.memory(), list.memory());
    EXPECT_GT(list.memory(), 0U);
}

using SinhalaWordListDeathTest = testing::Test;

TEST(SinhalaWordListDeathTest, ACountThatOverflowsWhenTripledStops) {
    const std::int64_t third = largest / 3;
    const SinhalaWordList fits(Counts{{gama, third}, {gaama, smallest / 3}});
    EXPECT_EQ(fits.suggestionsFor("\u0D9D\u0DB8", 5), (Words{gama, gaama}));
    const std::string other = "\u0D9D\u0DB8";
    const SinhalaWordList low(Counts{{gama, smallest / 3}, {gaama, smallest / 3 - 1}});
    EXPECT_DEATH(low.suggestionsFor(other, 1), "A multiple of a count is too large");
    EXPECT_EQ(low.suggestionsFor(other, 0), Words{}) << "nothing is tripled";
    for (const std::int64_t count : {third + 1, largest, smallest / 3 - 1, smallest}) {
        // The one that overflows need not be among the best, nor be found first.
        const SinhalaWordList list(Counts{{gama, third}, {gaama, count}, {gamana, largest}});
        EXPECT_EQ(list.suggestionsFor("\u0D9C", 5).size(), 3U) << "nothing is tripled";
        EXPECT_DEATH(list.suggestionsFor(other, 1), "A multiple of a count is too large");
        EXPECT_EQ(list.suggestionsFor(gaama, 2), (Words{gamana, gama})) << "left out before it is tripled";
    }
}

TEST(SinhalaWordListDeathTest, AnAbbreviationIsTripledToo) {
    const std::string kuma = "\u0D9A\u0DD4\u0DB8", kumara = "\u0D9A\u0DD4\u0DB8\u0DBB",
                      km = "\u0D9A\u0DCA\u0DB8";
    EXPECT_EQ(SinhalaWordList(Counts{{kumara, largest}}).suggestionsFor(km, 5), Words{kumara});
    EXPECT_EQ(SinhalaWordList(Counts{{"\u0D9A\u0DD4\u0DB8\u0DD2", largest}}).suggestionsFor(km, 5), Words{})
        << "no match, so nothing is tripled";
    EXPECT_DEATH(SinhalaWordList(Counts{{kuma, largest}}).suggestionsFor(km, 5), "too large");
    EXPECT_DEATH(SinhalaWordList(Counts{{kuma, smallest}, {kumara, 5}}).suggestionsFor(km, 1), "too large");
}

TEST(SinhalaWordListDeathTest, ASumThatOverflowsStops) {
    const SinhalaWordList list(Counts{{gamana, largest}}), one(Counts{{gamana, 1}}),
        zero(Counts{{gamana, 0}});
    EXPECT_EQ(list.suggestionsFor("\u0D9C", 5, &zero), Words{gamana});
    EXPECT_DEATH(list.suggestionsFor("\u0D9C", 5, &one), "A sum of counts is too large");
    EXPECT_DEATH(one.suggestionsFor("\u0D9C", 5, &list), "A sum of counts is too large");
    const SinhalaWordList low(Counts{{gamana, smallest}}), minus(Counts{{gamana, -1}});
    EXPECT_DEATH(low.suggestionsFor("\u0D9C", 5, &minus), "A sum of counts is too large");
    const SinhalaWordList twice(Counts{{gamana, largest}, {gamana, largest}}), empty;
    EXPECT_EQ(twice.suggestionsFor("\u0D9C", 5), (Words{gamana, gamana})) << "one list adds nothing up";
    EXPECT_EQ(twice.suggestionsFor("\u0D9C", 1, &empty), Words{gamana}) << "cut before";
    EXPECT_DEATH(twice.suggestionsFor("\u0D9C", 2, &empty), "A sum of counts is too large");
}

} // namespace

} // namespace vanoka
