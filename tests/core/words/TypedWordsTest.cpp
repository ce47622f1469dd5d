#include "words/TypedWords.h"

#include "Randoms.h"
#include "Rounds.h"
#include "WordLists.h"
#include "singlish/SinglishTransliterator.h"
#include "singlish/WrittenLetters.h"
#include "text/Utf8.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace vanoka {

namespace {

using Words = std::vector<std::string>;

constexpr std::string_view small = "ගෙදර\t900\nගෙදරට\t200\nකොහොමද\t300\nමම\t5000\nමාමා\t300\n"
                                   "ඔබට\t800\nස්තුතියි\t100\nලංකාව\t700\nපොත\t60\nපොට\t40\n";

// The C interface has these numbers.
static_assert(static_cast<int>(TypedWords::Unlisted::fourLetters) == 4);
static_assert(static_cast<int>(TypedWords::Unlisted::sixLetters) == 6);

TypedWords read(std::string_view tsv, TypedWords::Unlisted unlisted = TypedWords::Unlisted::none) {
    return TypedWords(SinhalaWordList(tsv), unlisted);
}

TEST(TypedWords, ReadWhatPeopleTypeWithoutAScheme) {
    const TypedWords words = read(small);
    EXPECT_EQ(words.wordsTyped("gedara", 2), (Words{"ගෙදර", "ගෙදරට"}));
    EXPECT_EQ(words.wordsTyped("kohomada", 1), Words{"කොහොමද"});
    EXPECT_EQ(words.wordsTyped("mama", 2), (Words{"මම", "මාමා"}));
    EXPECT_EQ(words.wordsTyped("sthuthiyi", 1), Words{"ස්තුතියි"});
    EXPECT_EQ(words.wordsTyped("lankawa", 1), Words{"ලංකාව"});
    EXPECT_EQ(words.wordsTyped("pota", 2), (Words{"පොට", "පොත"}));
    EXPECT_EQ(words.wordsTyped("potha", 1), Words{"පොත"});
}

TEST(TypedWords, ReadTheKeysOfTheScheme) {
    const TypedWords words = read(small);
    EXPECT_EQ(words.wordsTyped("gedhara", 1), Words{"ගෙදර"});
    EXPECT_EQ(words.wordsTyped("kohomadha", 1), Words{"කොහොමද"});
    EXPECT_EQ(words.wordsTyped("laxkaawa", 1), Words{"ලංකාව"});
}

TEST(TypedWords, AnyCaseIsTheSame) {
    const TypedWords words = read(small);
    EXPECT_EQ(words.wordsTyped("GeDaRa", 5), words.wordsTyped("gedara", 5));
}

TEST(TypedWords, GoOnAfterWhatWasTyped) {
    EXPECT_EQ(read(small).wordsTyped("koh", 1), Words{"කොහොමද"});
    EXPECT_EQ(read(small).wordsTyped("gedarat", 2), Words{"ගෙදරට"});
}

/// The example of docs/word-lists.md, figure by figure.
TEST(TypedWords, TheWorkedExample) {
    const TypedWords words = read("පොත\t60\nපොට\t40\n");
    EXPECT_EQ(words.wordsTyped("pota", 5), (Words{"පොට", "පොත"}));
    EXPECT_EQ(words.wordsTyped("potha", 5), Words{"පොත"});
}

TEST(TypedWords, FarBehindTheBestAreNoise) {
    EXPECT_EQ(read("පොට\t40\n").wordsTyped("potha", 5), Words{"පොට"}) << "the best there is";
    EXPECT_EQ(read("පොත\t10\nපොට\t9000000\n").wordsTyped("potha", 5), (Words{"පොත", "පොට"}))
        << "as often as it occurs";
}

TEST(TypedWords, ThePersonalCountAdds) {
    const TypedWords words = read(small), personal = read("පොත\t100\nකමල්\t5\n");
    EXPECT_EQ(words.wordsTyped("pota", 2, &personal), (Words{"පොත", "පොට"}));
    EXPECT_EQ(words.wordsTyped("kamal", 1, &personal), Words{"කමල්"});
    EXPECT_EQ(words.wordsTyped("kamal", 1), Words());
}

TEST(TypedWords, TheUsersOwnKeysCount) {
    const LetterReadings readings({{{"q", "\u0D9C"}}, {}});
    EXPECT_EQ(read(small).wordsTyped("qedara", 1, nullptr, readings), Words{"ගෙදර"});
    EXPECT_EQ(LetterReadings({{{"q", "\u0D9C"}}, {}}).of("q").size(), 1U);
}

TEST(TypedWords, SpellingsThatDifferInJoinersAreOneWord) {
    const TypedWords words = read("\u0DC1\u0DCA\u0DBB\u0DD3\t10\n\u0DC1\u0DCA\u200D\u0DBB\u0DD3\t90\n");
    EXPECT_EQ(words.wordsTyped("sri", 5), Words{"\u0DC1\u0DCA\u200D\u0DBB\u0DD3"});
    // Of two lists, the one in which the word is more frequent says how it is spelled.
    const std::string joined = "\u0DC1\u0DCA\u200D\u0DBB\u0DD3", plain = "\u0DC1\u0DCA\u0DBB\u0DD3";
    for (const auto& [count, spelled] : {std::pair(89, joined), {90, joined}, {91, plain}}) {
        const TypedWords personal = read(plain + '\t' + std::to_string(count) + '\n');
        EXPECT_EQ(words.wordsTyped("sri", 5, &personal), Words{spelled}) << count;
    }
}

/// The Sinhala forms of English words are written as they sound, which is not how English spells them.
TEST(TypedWords, EnglishWordsAreTakenForWhatTheyAreInSinhala) {
    const TypedWords words = read("ෆයිල්\t500\nසයිට්\t400\nකොම්පියුටර්\t300\nෆෝන්\t900\nස්ටේෂන්\t200\n"
                                  "බොක්ස්\t100\nපවුන්ඩ්\t100\nලැංග්වේජ්\t50\nසිතේ\t700\nටයිම්\t50\n");
    const auto english = [&words](const char* typed) {
        return words.wordsTyped(typed, 1, nullptr, {}, nullptr, TypedWords::Spelling::sinhalaOrEnglish);
    };
    EXPECT_EQ(english("file"), Words{"ෆයිල්"});
    EXPECT_EQ(english("computer"), Words{"කොම්පියුටර්"});
    EXPECT_EQ(english("phone"), Words{"ෆෝන්"});
    EXPECT_EQ(english("station"), Words{"ස්ටේෂන්"});
    EXPECT_EQ(english("box"), Words{"බොක්ස්"});
    EXPECT_EQ(english("pound"), Words{"පවුන්ඩ්"});
    EXPECT_EQ(english("language"), Words{"ලැංග්වේජ්"});
    EXPECT_EQ(english("site"), Words{"සිතේ"}) << "what sounds as it is spelled comes first";
    EXPECT_EQ(words.wordsTyped("site", 5), Words{"සිතේ"});
    EXPECT_EQ(words.wordsTyped("time", 5), Words{"ටයිම්"}) << "no word sounds so";
}

TEST(TypedWords, TheSameLettersAreReadAnewWhenMoreIsAsked) {
    const TypedWords words = read("පොත\t60\nපොට\t40\nසයිට්\t400\nසිතේ\t700\n");
    ReadingMemory memory;
    const auto typed = [&](const char* letters, std::int64_t limit, TypedWords::Spelling spelling) {
        return words.wordsTyped(letters, limit, nullptr, {}, &memory, spelling);
    };
    EXPECT_EQ(typed("pota", 1, TypedWords::Spelling::sinhala), Words{"පොට"});
    EXPECT_EQ(typed("pota", 2, TypedWords::Spelling::sinhala), (Words{"පොට", "පොත"}));
    EXPECT_EQ(typed("pota", 1, TypedWords::Spelling::sinhala), Words{"පොට"});
    EXPECT_EQ(typed("site", 5, TypedWords::Spelling::sinhala), Words{"සිතේ"});
    EXPECT_EQ(typed("site", 5, TypedWords::Spelling::sinhalaOrEnglish), (Words{"සිතේ", "සයිට්"}));
    EXPECT_EQ(typed("site", 5, TypedWords::Spelling::sinhala), Words{"සිතේ"});
}

TEST(TypedWords, GuessWordsThatNoListHolds) {
    for (const auto unlisted : {TypedWords::Unlisted::fourLetters, TypedWords::Unlisted::sixLetters}) {
        const TypedWords words = read(small, unlisted);
        const Words guessed = words.wordsTyped("gedama", 3); // put together of what the words are made of
        EXPECT_EQ(std::ranges::count(guessed, "ගෙදම"), 1);
        EXPECT_EQ(words.wordsTyped("gedara", 1), Words{"ගෙදර"});
    }
    EXPECT_EQ(read(small).wordsTyped("gedamala", 3), Words());
}

/// Signs and viramas on consonants alone, vowels at the start or after a mark, and the joiner where a killed
/// consonant meets another ya or ra than itself, and nowhere else.
bool looksTyped(const std::string& word) {
    constexpr char32_t virama = 0x0DCA, joiner = 0x200D, ya = 0x0DBA, ra = 0x0DBB;
    char32_t killed = 0, before = 0;
    for (const text::Scalar& scalar : text::Scalars(word)) {
        const char32_t now = scalar.value;
        const bool isConsonant = now >= 0x0D9A && now <= 0x0DC6, isMark = now == 0x0D82 || now == 0x0D83;
        const bool wasConsonant = before >= 0x0D9A && before <= 0x0DC6;
        const bool wasMark = before == 0x0D82 || before == 0x0D83;
        const bool joins = before == virama && (now == ya || now == ra) && now != killed;
        if (joins || (now == joiner) != (before == virama && now == joiner))
            return false;
        if (before == joiner && ((now != ya && now != ra) || now == killed))
            return false;
        if (now >= virama && now <= 0x0DDF && !wasConsonant)
            return false;
        if (now < 0x0D9A && !isMark && before != 0 && !wasMark)
            return false;
        if (isMark && (before == 0 || before == virama || wasMark))
            return false;
        killed = isConsonant ? now : killed;
        before = now;
    }
    return before != joiner && before != 0;
}

TEST(TypedWords, GuessesAreWellFormed) {
    EXPECT_TRUE(looksTyped("ක්\u200Dරියාව") && looksTyped("අම්මා") && looksTyped("ය්යා") && looksTyped("සංගීත"));
    EXPECT_FALSE(looksTyped("ක්\u0DBBි") || looksTyped("ික") || looksTyped("කඅ") || looksTyped("ක්\u200D"));
    test::Randoms randoms(8);
    const SinhalaWordList list(test::sinhalaLikeWords(2000));
    const TypedWords words(list, TypedWords::Unlisted::sixLetters);
    std::set<std::string> listed;
    for (const WordCount& each : list.words())
        listed.insert(each.word);
    std::size_t guesses = 0;
    const std::string latin = "aeioukgcjtdnpbmyrlvshffhyr";
    for (std::size_t round = 0; round < test::rounds(400); ++round) {
        std::string typed;
        for (std::size_t length = 1 + randoms.below(12); length > 0; --length)
            typed += latin[randoms.below(latin.size())];
        for (const std::string& word : words.wordsTyped(typed, 10))
            if (!listed.contains(word)) {
                ++guesses;
                EXPECT_TRUE(looksTyped(word)) << word;
            }
    }
    EXPECT_GT(guesses, test::rounds(1000));
}

TEST(TypedWords, AGuessIsNoWordOfTheList) {
    const auto all = test::sinhalaLikeWords(500);
    const SinhalaWordList list(all);
    const TypedWords words(list, TypedWords::Unlisted::sixLetters);
    for (std::size_t i = 0; i < all.size(); i += 7) {
        std::string keys;
        if (!forEachTypedLetter(all[i].word, [&keys](const WrittenLetter& each) { keys += each.key; }))
            continue;
        const Words found = words.wordsTyped(keys, 20);
        EXPECT_EQ(std::ranges::count(found, all[i].word), 1) << keys;
    }
}

TEST(TypedWords, BadInputGivesNothing) {
    for (const auto unlisted : {TypedWords::Unlisted::none, TypedWords::Unlisted::sixLetters}) {
        const TypedWords words = read(small, unlisted);
        for (const char* letters : {"", "1", "ge dara", "ගෙදර", "gedara\u0D9A", "\xFF", "\U0001F600", "k\0"})
            EXPECT_EQ(words.wordsTyped(letters, 5),
                      std::string_view(letters) == "k" ? words.wordsTyped("k", 5) : Words())
                << letters;
        EXPECT_EQ(words.wordsTyped("gedara", 0), Words());
        EXPECT_EQ(words.wordsTyped("gedara", INT64_MIN), Words());
        EXPECT_EQ(words.wordsTyped(std::string(10'000, 'a'), 5), Words());
        EXPECT_EQ(words.wordsTyped(std::string(97, 'a'), 5), Words());
        words.wordsTyped(std::string(96, 'a'), INT64_MAX);
        words.wordsTyped(std::string(96, 't'), 5);
    }
}

TEST(TypedWords, TheLongestThatIsReadHas96Letters) {
    std::string word, typed;
    for (int i = 0; i < 48; ++i) {
        word += "ක";
        typed += "ka";
    }
    const TypedWords words(SinhalaWordList(std::vector<WordCount>{{word, 5}, {word + "ක", 5}}));
    EXPECT_EQ(words.wordsTyped(typed, 1), Words{word});
    EXPECT_EQ(words.wordsTyped(typed + "k", 1), Words());
}

TEST(TypedWords, OfAnEmptyList) {
    const TypedWords nothing = read("", TypedWords::Unlisted::sixLetters);
    const TypedWords own = read(small);
    EXPECT_EQ(read("").wordsTyped("gedara", 5), Words());
    EXPECT_EQ(nothing.wordsTyped("gedara", 1, &own), Words{"ගෙදර"});
    for (const std::string& word : nothing.wordsTyped("gedara", 5))
        EXPECT_FALSE(word.empty());
    EXPECT_EQ(own.wordsTyped("gedara", 1, &nothing), Words{"ගෙදර"});
}

TEST(TypedWords, OfOneWordManyTimes) {
    const SinhalaWordList list(std::vector<WordCount>(20'000, {"ගෙදර", 3}));
    const TypedWords words(list, TypedWords::Unlisted::sixLetters);
    EXPECT_EQ(words.wordsTyped("gedara", 1), Words{"ගෙදර"});
    EXPECT_LT(words.memory(), 5000U);
    EXPECT_EQ(TypedWords(list).memory(), test::trieOf({{"ගෙදර", 3}}).memory()) << "no sequences of letters";
}

TEST(TypedWords, CountsOfZeroAndBelowAreNone) {
    const TypedWords words = read("ගෙදර\t0\nගෙදරා\t-5\nගේදර\t-9223372036854775808\nගේදරා\t1\n");
    EXPECT_EQ(words.wordsTyped("gedara", 5).size(), 4U);
    EXPECT_EQ(read("ගෙදර\t0\n").wordsTyped("gedara", 5), Words{"ගෙදර"});
    const TypedWords huge = read("ගෙදර\t9223372036854775807\nගේදර\t9223372036854775807\n");
    EXPECT_EQ(huge.wordsTyped("gedara", 5, &huge).front(), "ගෙදර");
}

TEST(TypedWords, WordsThatCannotBeReadAreLeftOut) {
    std::string endless;
    for (int i = 0; i < 300; ++i)
        endless += "ක";
    const TypedWords words(SinhalaWordList({{endless, 5}, {"abc", 5}, {"ක1", 5}, {"", 5}, {"ක", 5}}));
    EXPECT_EQ(words.wordsTyped("ka", 5), Words{"ක"});
    EXPECT_EQ(words.wordsTyped("abc", 5), Words());
}

SinhalaWordList shippedList() {
    std::ifstream file(VANOKA_TESTS_FOLDER "/../data/si.tsv");
    std::stringstream tsv;
    tsv << file.rdbuf();
    return SinhalaWordList(tsv.str());
}

/// Gives every fortieth word that has keys, with its keys.
template <class Take>
void forEachFortieth(const SinhalaWordList& list, Take take) {
    const auto all = list.words();
    for (std::size_t i = 0; i < all.size(); i += 40 * VANOKA_FEWER_ROUNDS) {
        std::string keys;
        if (forEachTypedLetter(all[i].word, [&keys](const WrittenLetter& each) { keys += each.key; }))
            take(all[i], keys);
    }
}

bool holds(const Words& words, std::string_view word) {
    return std::ranges::find(words, word) != words.end();
}

/// Whoever knows the keys is read as well: the keys of a word give one of the first three words. Few words
/// are missing there, rare ones of which the keys are also how people write three others: dharmaya is ධර්මය to
/// most, not දර්මය. All can be had as they were typed.
TEST(TypedWords, TheKeysOfAWordGiveIt) {
    const SinhalaWordList list = shippedList();
    const TypedWords words(list);
    std::size_t typed = 0, outranked = 0;
    forEachFortieth(list, [&](const WordCount& meant, const std::string& keys) {
        ++typed;
        const Words first = words.wordsTyped(keys, 3);
        if (holds(first, meant.word))
            return;
        ++outranked;
        EXPECT_EQ(SinglishTransliterator::standard().transliterate(keys), meant.word) << keys;
        EXPECT_EQ(first.size(), 3U) << keys;
        EXPECT_LT(meant.count, 300) << keys << ", of " << list.typicalCount() << " for a typical word";
    });
    EXPECT_GT(typed, test::rounds(1000));
    EXPECT_LT(outranked, typed / 50 + 3) << "a few words say little of all";
}

/// Where a finger slipped twice in ten letters or more, the others still say which word was meant.
TEST(TypedWords, LongWordsAreReadInSpiteOfTwoSlips) {
    test::Randoms randoms(12);
    const SinhalaWordList list = shippedList();
    const TypedWords words(list);
    std::size_t typed = 0, read = 0;
    forEachFortieth(list, [&](const WordCount& meant, const std::string& keys) {
        if (keys.size() < 10)
            return;
        ++typed;
        read += holds(words.wordsTyped(randoms.slipped(randoms.slipped(keys)), 3), meant.word);
    });
    EXPECT_GT(typed, test::rounds(300));
    EXPECT_GT(read, typed / 2) << "of " << typed;
}

} // namespace

} // namespace vanoka
