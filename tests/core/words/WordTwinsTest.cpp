#include "PlainWords.h"
#include "Rounds.h"
#include "WordLists.h"
#include "text/Utf8.h"
#include "words/EmojiWords.h"
#include "words/EnglishWordList.h"
#include "words/SinhalaWordList.h"

#include <gtest/gtest.h>
#include <unordered_set>

/// The lists give what the plain rules give, word for word and tie for tie.
namespace vanoka {

namespace {

using test::Randoms;

constexpr std::int64_t manyMatches = 1000;

std::int64_t someLimit(Randoms& randoms) {
    return randoms.oneIn(8) ? manyMatches : static_cast<std::int64_t>(randoms.below(7));
}

/// The start of a word of the list, or anything.
std::string someQuery(Randoms& randoms, const std::vector<WordCount>& words) {
    if (words.empty() || randoms.oneIn(3))
        return test::strangeWord(randoms, 4);
    std::string start = randoms.of(words).word;
    start.resize(randoms.below(start.size() + 1));
    while (!text::isWellFormed(start))
        start.pop_back();
    return start + (randoms.oneIn(4) ? test::strangeWord(randoms, 1) : "");
}

TEST(WordTwins, SuggestionsOfStrangeLists) {
    Randoms randoms(11);
    std::size_t suggested = 0;
    for (std::size_t i = 0; i < test::rounds(3000); ++i) {
        const auto words = test::strangeWords(randoms, randoms.oneIn(10) ? 120 : 25);
        const auto own = randoms.oneIn(6) ? std::vector<WordCount>() : test::strangeWords(randoms, 12);
        const SinhalaWordList list(words), personal(own);
        const test::plain::SinhalaWords plainList(words), plainPersonal(own);
        ASSERT_EQ(list.words(), plainList.words());
        ASSERT_EQ(list.typicalCount(), plainList.typicalCount());
        for (int j = 0; j < 12; ++j) {
            const std::string query = someQuery(randoms, words);
            const std::int64_t limit = someLimit(randoms);
            const auto expected = plainList.suggestionsFor(query, limit);
            ASSERT_EQ(list.suggestionsFor(query, limit), expected) << query << ' ' << limit;
            ASSERT_EQ(list.suggestionsFor(query, limit, &personal),
                      plainList.suggestionsFor(query, limit, &plainPersonal))
                << query << ' ' << limit;
            ASSERT_EQ(list.countOfSpelling(query), plainList.countOfSpelling(query)) << query;
            suggested += expected.size();
        }
    }
    EXPECT_GT(suggested, test::rounds(10000));
}

TEST(WordTwins, SuggestionsOfALanguage) {
    Randoms randoms(12);
    auto words = test::sinhalaLikeWords(20000);
    const std::vector<WordCount> own(words.begin() + 5000, words.begin() + 5300);
    const SinhalaWordList list(test::tsvOf(words)), personal(own);
    const auto plainList = test::plain::SinhalaWords::read(test::tsvOf(words));
    const test::plain::SinhalaWords plainPersonal(own);
    ASSERT_EQ(list.words(), plainList.words());
    for (std::size_t i = 0; i < test::rounds(1500); ++i) {
        std::string query;
        if (randoms.oneIn(2)) {
            const std::string& word = randoms.of(words).word;
            query = word.substr(0, 3 * (1 + randoms.below(5)));
        } else {
            for (std::size_t letters = 1 + randoms.below(4); letters > 0; --letters)
                query += randoms.of(words).word.substr(0, 3) + (randoms.oneIn(4) ? "" : "\u0DCA");
        }
        const bool isPersonal = randoms.oneIn(2);
        ASSERT_EQ(list.suggestionsFor(query, 5, isPersonal ? &personal : nullptr),
                  plainList.suggestionsFor(query, 5, isPersonal ? &plainPersonal : nullptr))
            << query;
    }
}

TEST(WordTwins, ManyRowsUnderOneKey) {
    Randoms randoms(13);
    std::vector<WordCount> words;
    const std::vector<std::string> spellings = {"\u0D9A\u0DCA\u0DB8",       "\u0D9B\u0DCA\u0DB8",
                                                "\u0D9A\u0DCA\u200D\u0DB8", "\u0D9A\u0DCA\u0DB8\u0DCF",
                                                "\u0D9A\u0DD2\u0DB8",       "\u0D9A\u0DD3\u0DB8"};
    for (int i = 0; i < 3000; ++i)
        words.push_back({randoms.of(spellings), static_cast<std::int64_t>(randoms.below(12))});
    const SinhalaWordList list(words);
    const test::plain::SinhalaWords plainList(words);
    for (const char* query :
         {"\u0D9A", "\u0D9A\u0DCA\u0DB8", "\u0D9A\u0DD2\u0DB8", "\u0D9A\u0DCA\u0DB8\u0DCA"})
        for (const std::int64_t limit : {1, 5, 2999, 100000})
            EXPECT_EQ(list.suggestionsFor(query, limit), plainList.suggestionsFor(query, limit)) << query;
}

TEST(WordTwins, DamagedSinhalaLists) {
    Randoms randoms(14);
    for (std::size_t i = 0; i < test::rounds(2000); ++i) {
        const std::string tsv = test::strangeTsv(randoms, 15);
        ASSERT_EQ(SinhalaWordList(tsv).words(), test::plain::SinhalaWords::read(tsv).words())
            << testing::PrintToString(tsv);
    }
}

TEST(WordTwins, EnglishWords) {
    Randoms randoms(15);
    for (std::size_t i = 0; i < test::rounds(1500); ++i) {
        const std::string tsv = test::strangeTsv(randoms, 20);
        const auto sinhalaWords = test::strangeWords(randoms, 20);
        const EnglishWordList list(tsv);
        const auto plainList = test::plain::EnglishWords::read(tsv);
        const SinhalaWordList sinhala(sinhalaWords);
        const test::plain::SinhalaWords plainSinhala(sinhalaWords);
        ASSERT_EQ(list.count(), static_cast<std::int64_t>(plainList.counts.size() + plainList.chat.size()));
        for (int j = 0; j < 12; ++j) {
            const std::string word = randoms.oneIn(3) ? "OK" : test::strangeWord(randoms, 3);
            const std::string over = someQuery(randoms, sinhalaWords);
            const auto kept = static_cast<std::int64_t>(randoms.below(2)),
                       typed = static_cast<std::int64_t>(randoms.below(2));
            ASSERT_EQ(list.countOf(word), plainList.countOf(word)) << word;
            ASSERT_EQ(list.keepsEnglish(word, over, sinhala, kept, typed),
                      plainList.keepsEnglish(word, over, plainSinhala, kept, typed))
                << word << ' ' << over;
        }
    }
}

TEST(WordTwins, Emoji) {
    Randoms randoms(16);
    for (std::size_t i = 0; i < test::rounds(2000); ++i) {
        const std::string tsv = test::strangeTsv(randoms, 20);
        const EmojiWords table(tsv);
        const auto plainTable = test::plain::EmojiTable::read(tsv);
        ASSERT_EQ(table.count(),
                  static_cast<std::int64_t>(plainTable.sinhala.size() + plainTable.english.size()));
        for (int j = 0; j < 12; ++j) {
            const std::string word = randoms.oneIn(3) ? "oK" : test::strangeWord(randoms, 3);
            const auto expected = plainTable.matchForSinhala(word);
            ASSERT_EQ(table.matchForSinhala(word), expected) << word;
            ASSERT_EQ(table.emojiForSinhala(word), expected ? expected->emoji : std::vector<std::string>())
                << word;
            ASSERT_EQ(table.emojiForEnglish(word), plainTable.emojiForEnglish(word)) << word;
        }
    }
}

TEST(WordLaws, EverySuggestionIsAListedWordAndNoneIsTheText) {
    Randoms randoms(18);
    for (int i = 0; i < 500; ++i) {
        const auto words = test::strangeWords(randoms, 40);
        const SinhalaWordList list(words);
        const SinhalaWordList empty;
        std::unordered_set<std::string> listed;
        for (const WordCount& word : words)
            listed.insert(word.word);
        for (int j = 0; j < 10; ++j) {
            const std::string query = someQuery(randoms, words);
            const auto suggestions = list.suggestionsFor(query, 6, &empty);
            EXPECT_LE(suggestions.size(), 6U);
            EXPECT_EQ(std::unordered_set<std::string>(suggestions.begin(), suggestions.end()).size(),
                      suggestions.size());
            for (const std::string& word : suggestions) {
                EXPECT_TRUE(listed.contains(word));
                EXPECT_NE(word, query);
            }
        }
    }
}

TEST(WordLists, AMillionWordsLoad) {
    const auto words = test::sinhalaLikeWords(test::rounds(1'000'000));
    const std::string tsv = test::tsvOf(words);
    const SinhalaWordList list(tsv);
    EXPECT_EQ(list.size(), std::ssize(words));
    EXPECT_EQ(list.typicalCount(), words[1000].count);
    std::size_t own = 0;
    for (const WordCount& word : words)
        own += word.word.size();
    EXPECT_LT(list.memory(), own + 40 * words.size());
    EXPECT_GT(list.memory(), own / 3 + 20 * words.size());
    // The commonest word is the first one that any of its beginnings suggests.
    const std::string& commonest = words[0].word;
    EXPECT_EQ(list.suggestionsFor(commonest.substr(0, 3), 1), std::vector<std::string>{commonest});
    for (std::size_t i = 0; i < words.size(); i += 997)
        EXPECT_GE(list.countOfSpelling(words[i].word), words[i].count);
}

} // namespace

} // namespace vanoka
