#include "Candidates.h"

#include "MemoryWordStore.h"
#include "singlish/SinglishTransliterator.h"
#include "text/Equivalence.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace vanoka {

namespace {

TypedWord typed(const std::string& keys) {
    return {keys, SinglishTransliterator::standard().transliterate(keys)};
}

SuggestionLists someLists() {
    return readSuggestionLists(
        {.sinhala = "ගෙදර\t900\nගෙදරට\t400\nගෙදරදි\t300\nගෙදරින්\t200\nගෙදරම\t100\nගෙදරක\t90\n"
                    "ගෙදරයි\t80\nහා\t5000\nමල\t700\nමල්\t800\nගස\t300\nගාස\t10\nගසා\t5\n",
         .english = "mata\t1000\nmal\t300\nha\t600\ngas\t400\nhello\t3000\nok\tchat\ncat\t900\n",
         .emoji = "මල\t🌸 🌼 🌷\ncat\t🐈 😺 😸\nගස්\t🌳\n",
         .neverOffered = {}});
}

/// The rows as a person sees them: Latin words in parentheses, what was learnt with a star.
std::string rowsOf(const std::string& keys, const SuggestionLists& lists,
                   const PersonalWords* personal = nullptr, std::size_t limit = CandidateLimit::usual,
                   const LetterReadings& readings = {}) {
    std::string rows;
    for (const Candidate& row : candidatesFor(typed(keys), lists, personal, limit, readings))
        rows += (rows.empty() ? "" : " ") +
                (row.kind == Candidate::Kind::latin ? "(" + row.text + ")" : row.text) +
                (row.isLearnt ? "*" : "");
    return rows;
}

TEST(Candidates, StandInTheirOrder) {
    struct Row {
        const char *keys, *rows;
    };
    const SuggestionLists lists = someLists();
    for (const Row& row : std::vector<Row>{
             {"", ""},
             {"zz", "zz"},
             {"gedr", "ගෙඩ්\u200Dර් ගෙදර ගෙදරට ගෙදරදි ගෙදරින් ගෙදරම"}, // by count, no more than the usual six
             {"gedhara", "ගෙදර ගෙදරට ගෙදරදි ගෙදරින් ගෙදරම ගෙදරක"},   // what is typed is not there twice
             {"hello", "හෙල්ලො (hello)"},                          // it stays English
             {"ok", "ඔක් (ok)"},                                   // a chat word
             {"OK", "ඔඛ් (OK)"},                                   // as typed
             {"ha", "හ හා (ha)"},                                 // the Sinhala word is commoner: last
             {"gas", "ගස් ගස ගාස ගසා 🌳 (gas)"},                   // and after emoji
             {"mala", "මල මල් 🌸 🌼"},                             // two emoji at most
             {"cat", "චට් (cat) 🐈 😺"},                           // of an English word
         })
        EXPECT_EQ(rowsOf(row.keys, lists), row.rows) << row.keys;
}

TEST(Candidates, AreThreeToNine) {
    const SuggestionLists lists = someLists();
    for (const std::size_t limit : {0U, 1U, 2U, 3U})
        EXPECT_EQ(rowsOf("gedr", lists, nullptr, limit), "ගෙඩ්\u200Dර් ගෙදර ගෙදරට") << limit;
    EXPECT_EQ(rowsOf("gedr", lists, nullptr, 4), "ගෙඩ්\u200Dර් ගෙදර ගෙදරට ගෙදරදි");
    for (const std::size_t limit : {9U, 10U, 1000U})
        EXPECT_EQ(rowsOf("gedr", lists, nullptr, limit),
                  "ගෙඩ්\u200Dර් ගෙදර ගෙදරට ගෙදරදි ගෙදරින් ගෙදරම ගෙදරක ගෙදරයි")
            << limit;
    EXPECT_EQ(rowsOf("gas", lists, nullptr, 3), "ගස් ගස (gas)") << "words before emoji";
    EXPECT_EQ(rowsOf("gas", lists, nullptr, 4), "ගස් ගස 🌳 (gas)");
}

TEST(Candidates, EmojiHaveThePlacesThatNoWordNeeds) {
    const SuggestionLists lists = readSuggestionLists(
        {.sinhala = {}, .english = {}, .emoji = "මල\t🌸 🌼\nගස\t🌳 🌳\nහා\tහා 👍\n", .neverOffered = "👍\n"});
    EXPECT_EQ(rowsOf("mala", lists, nullptr, 3), "මල 🌸 🌼");
    EXPECT_EQ(rowsOf("gasa", lists), "ගස 🌳") << "none twice";
    EXPECT_EQ(rowsOf("haa", lists), "හා") << "what is typed, and what nobody wants offered";
}

TEST(Candidates, ThatWereLearntComeFirst) {
    const SuggestionLists lists = someLists();
    test::MemoryWordStore store;
    store.learn({"gedr", "ගෙදරක"});
    EXPECT_EQ(rowsOf("gedr", lists, store.words().get()), "ගෙඩ්\u200Dර් ගෙදරක* ගෙදර ගෙදරට ගෙදරදි ගෙදරින්")
        << "taken once, and the least of the list";
    store.learn({"gasa", "ගාස"});
    EXPECT_EQ(rowsOf("gasaa", lists, store.words().get()), "ගසා ගාස* ගස") << "before one spelled alike";
}

TEST(Candidates, OfOneWordThatMayBeASlipComeAfterTheOthers) {
    const SuggestionLists lists = someLists();
    test::MemoryWordStore store;
    store.learn({"gedaraka", "ගෙදරඇ"});
    store.learn({"gedhaka", "ගෙදරයි"});
    EXPECT_TRUE(rowsOf("gedr", lists, store.words().get()).starts_with("ගෙඩ්\u200Dර් ගෙදරයි* ගෙදරඇ* ගෙදර "));
    EXPECT_EQ(rowsOf("gedr", lists, store.words().get(), 3), "ගෙඩ්\u200Dර් ගෙදරයි* ගෙදර");
}

TEST(Candidates, OfOneWordAreNoSlipOnceItWasTypedTwiceOrIsListed) {
    const SuggestionLists lists =
        readSuggestionLists({.sinhala = "ගෙදරයි\t1\n", .english = {}, .emoji = {}, .neverOffered = {}});
    test::MemoryWordStore store;
    for (const char* word : {"ගෙදරඇ", "ගෙදරයි", "ගෙදරආ", "ගෙදරආ"})
        store.learn({"x", word});
    EXPECT_EQ(rowsOf("gedr", lists, store.words().get()), "ගෙඩ්\u200Dර් ගෙදරආ* ගෙදරයි* ගෙදරඇ*");
}

TEST(Candidates, OfWordsThatMayBeSlipsTwiceAsManyAreLookedAtAsAreOffered) {
    const SuggestionLists lists =
        readSuggestionLists({.sinhala = "ගෙදරයි\t1\n", .english = {}, .emoji = {}, .neverOffered = {}});
    test::MemoryWordStore store;
    for (const char* word : {"ගෙදරයි", "ගෙදරඅ", "ගෙදරආ", "ගෙදරඇ", "ගෙදරඈ", "ගෙදරඉ"})
        store.learn({"x", word});
    EXPECT_TRUE(rowsOf("gedr", lists, store.words().get()).starts_with("ගෙඩ්\u200Dර් ගෙදරයි* ගෙදරඅ* "));
    store.learn({"x", "ගෙදරඊ"});
    EXPECT_TRUE(rowsOf("gedr", lists, store.words().get()).starts_with("ගෙඩ්\u200Dර් ගෙදරඅ* "));
}

TEST(Candidates, OfThisPersonLeaveRoomForTheLanguage) {
    const SuggestionLists lists = someLists();
    test::MemoryWordStore store;
    for (const char* word : {"ගෙදරඅ", "ගෙදරආ", "ගෙදරඇ", "ගෙදරඈ", "ගෙදරඉ", "ගෙදරඊ"})
        store.learn({"x", word});
    const auto rows = candidatesFor(typed("gedr"), lists, store.words().get());
    ASSERT_EQ(rows.size(), 6U);
    EXPECT_EQ(std::ranges::count(rows, true, &Candidate::isLearnt), 3);
    EXPECT_EQ(rows[4].text, "ගෙදර");
    const auto fewer = candidatesFor(typed("gedr"), lists, store.words().get(), 5);
    EXPECT_EQ(std::ranges::count(fewer, true, &Candidate::isLearnt), 2);
}

TEST(Candidates, KeepEnglishAsThisPersonDoes) {
    const SuggestionLists lists = someLists();
    test::MemoryWordStore store;
    store.learn({"ha", "ha"});
    EXPECT_EQ(rowsOf("ha", lists, store.words().get()), "හ (ha)* හා");
    store.learn({"ha", "හ"});
    store.learn({"ha", "හ"});
    EXPECT_EQ(rowsOf("ha", lists, store.words().get()), "හ හා (ha)*") << "typed in Sinhala more often";
    store.learn({"Kasun", "Kasun"});
    EXPECT_EQ(rowsOf("kasun", lists, store.words().get()), "කසුන් (kasun)*") << "known to nobody else";
}

TEST(Candidates, AreNeverThoseThatNobodyWantsOffered) {
    SuggestionLists lists = someLists();
    lists.neverOffered = NeverOffered("ගෙදර\nගෙදරට\nHello\nමල\ncat\nගෙදරඅ\n");
    EXPECT_EQ(rowsOf("gedr", lists), "ගෙඩ්\u200Dර් ගෙදරදි ගෙදරින් ගෙදරම ගෙදරක ගෙදරයි") << "others take their place";
    EXPECT_EQ(rowsOf("hello", lists), "හෙල්ලො");
    lists.english = EnglishWordList("gedr\t3000\n");
    lists.neverOffered = NeverOffered("gedr\n");
    EXPECT_EQ(rowsOf("gedr", lists, nullptr, 3), "ගෙඩ්\u200Dර් ගෙදර ගෙදරට") << "no place is kept for it";
    lists = someLists();
    lists.neverOffered = NeverOffered("ගෙදර\nගෙදරට\nHello\nමල\ncat\nගෙදරඅ\n");
    EXPECT_EQ(rowsOf("mala", lists), "මල මල්") << "typed as ever, and no emoji for it";
    EXPECT_EQ(rowsOf("cat", lists), "චට්");
    test::MemoryWordStore store;
    store.learn({"gedara", "ගෙදරඅ"});
    EXPECT_FALSE(rowsOf("gedr", lists, store.words().get()).find("ගෙදරඅ") != std::string::npos)
        << "though it was typed";
}

SuggestionLists readLists(TypedWords::Unlisted unlisted = TypedWords::Unlisted::none) {
    return withReading(
        readSuggestionLists({.sinhala = "ගෙදර\t900\nගෙදරට\t400\nගෙඩර\t5\nගමන\t50\nගම්න\t1\nඥාන\t60\nඥානය\t70\n"
                                        "ගනන\t3\nකොහොමද\t300\nමම\t5000\nමාමා\t300\nමාම\t1\nමමත්\t2\n",
                             .english = {},
                             .emoji = "මල\t🌸\n",
                             .neverOffered = {}}),
        unlisted);
}

TEST(Candidates, AreWhatTheKeysAreReadAs) {
    struct Row {
        const char *keys, *rows;
    };
    const SuggestionLists lists = readLists();
    for (const Row& row : std::vector<Row>{
             {"gedara", "ගෙඩර ගෙදර ගෙදරට"},      // what they mean to most people
             {"mama", "මම මාමා මාම මමත්"},        // what is typed is not there twice
             {"gnana", "ඥන ඥාන ඥානය ගනන"},       // in letters that are no looser spelling
             {"gmn", "ග්ම්න් ගමන ගම්න"},             // consonants alone abbreviate first of all
             {"g", "ග් ගෙදර ගෙදරට ගමන ගෙඩර ගනන"}, // or begin
         })
        EXPECT_EQ(rowsOf(row.keys, lists), row.rows) << row.keys;
    EXPECT_EQ(rowsOf("gnana", lists, nullptr, 4), "ඥන ඥාන ඥානය ගනන")
        << "the place that is kept, and nobody takes";
}

TEST(Candidates, KeepAPlaceForWhatIsAbbreviatedSo) {
    const SuggestionLists lists =
        withReading(readSuggestionLists({.sinhala = "ක්ම්ට්ලා\t50\nක්ම්ත්ලා\t40\nක්ම්ත්ළා\t30\nකුමුතල\t900\n",
                                         .english = {},
                                         .emoji = {},
                                         .neverOffered = {}}),
                    TypedWords::Unlisted::none);
    EXPECT_EQ(rowsOf("kmtla", lists), "ක්ම්ට්ල ක්ම්ට්ලා ක්ම්ත්ලා ක්ම්ත්ළා කුමුතල");
    EXPECT_EQ(rowsOf("kmtla", lists, nullptr, 4), "ක්ම්ට්ල ක්ම්ට්ලා ක්ම්ත්ලා කුමුතල");
    EXPECT_EQ(rowsOf("kmtla", lists, nullptr, 3), "ක්ම්ට්ල ක්ම්ට්ලා ක්ම්ත්ලා") << "of three places or more";
}

TEST(Candidates, OfWordsThatNoListHolds) {
    const SuggestionLists lists = readLists(TypedWords::Unlisted::sixLetters);
    EXPECT_EQ(rowsOf("gedaramama", readLists()).find("ගෙදරමම"), std::string::npos);
    EXPECT_NE(rowsOf("gedaramama", lists).find("ගෙදරමම"), std::string::npos) << rowsOf("gedaramama", lists);
    EXPECT_TRUE(rowsOf("gmn", lists).starts_with("ග්ම්න් ගමන ")) << rowsOf("gmn", lists);
}

TEST(Candidates, ThatWereLearntAreReadToo) {
    const SuggestionLists lists = readLists();
    test::MemoryWordStore store;
    store.learn({"gnana", "ඥානය"});
    EXPECT_EQ(rowsOf("gnana", lists, store.words().get()), "ඥන ඥානය* ඥාන ගනන") << "first for the same keys";
    test::MemoryWordStore other;
    other.learn({"gnana", "ගනන"});
    EXPECT_EQ(rowsOf("gnana", lists, other.words().get()), "ඥන ගනන* ඥාන ඥානය")
        << "though it is spelled otherwise";
    store.learn({"gnanaya", "ගනනය"});
    EXPECT_EQ(rowsOf("gnanaya", lists, store.words().get()), "ඥනය ඥානය* ගනනය*") << "in no list";
}

TEST(Candidates, AreReadByTheKeysOfThisPerson) {
    const SuggestionLists lists = withReading(readSuggestionLists(
        {.sinhala = "ගම\t10\nකම\t5000\n", .english = {}, .emoji = {}, .neverOffered = {}}));
    EXPECT_TRUE(rowsOf("qama", lists).starts_with("qඅම කම ගම")) << rowsOf("qama", lists);
    const LetterReadings own({{{"q", "ග"}}, {}});
    EXPECT_TRUE(rowsOf("qama", lists, nullptr, 6, own).starts_with("qඅම ගම "))
        << rowsOf("qama", lists, nullptr, 6, own);
}

TEST(Candidates, ThatAreReadAreNeverThoseThatNobodyWantsOffered) {
    SuggestionLists lists = readLists();
    lists.neverOffered = NeverOffered("ගෙදර\n");
    EXPECT_EQ(rowsOf("gedara", lists), "ගෙඩර ගෙදරට");
}

TEST(Candidates, NeedKeysAndWhatTheyAreReadAs) {
    EXPECT_TRUE(candidatesFor({"gedara", ""}, someLists(), nullptr).empty());
    EXPECT_TRUE(candidatesFor({"", "ගෙදර"}, someLists(), nullptr).empty());
}

TEST(Candidates, ComeOfNothingWhereNothingIsKnown) {
    EXPECT_EQ(rowsOf("gedr", SuggestionLists()), "ගෙඩ්\u200Dර්");
    test::MemoryWordStore store;
    store.learn({"gedhara", "ගෙදර"});
    EXPECT_EQ(rowsOf("gedr", SuggestionLists(), store.words().get()), "ගෙඩ්\u200Dර් ගෙදර*");
}

TEST(Candidates, OfAListWithImpossibleCountsStopNothing) {
    const std::string most = std::to_string(std::numeric_limits<std::int64_t>::max());
    const SuggestionLists lists =
        readSuggestionLists({.sinhala = "\uFEFFගෙදර\t" + most + "\nගෙදරට\t-" + most + "\nහ\t" + most,
                             .english = "ha\t" + most + "\n",
                             .emoji = "\uFEFFමල\t🌸",
                             .neverOffered = "\uFEFFfool"});
    test::MemoryWordStore store;
    store.learn({"gedhara", "ගෙදර"});
    EXPECT_EQ(rowsOf("gedr", lists, store.words().get()), "ගෙඩ්\u200Dර් ගෙදර* ගෙදරට");
    EXPECT_EQ(rowsOf("ha", lists), "හ (ha)");
    EXPECT_EQ(rowsOf("mala", lists), "මල 🌸");
    EXPECT_TRUE(lists.neverOffered.holds("fool"));
}

} // namespace

} // namespace vanoka
