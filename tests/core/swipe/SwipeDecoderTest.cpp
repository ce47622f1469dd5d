#include "swipe/SwipeDecoder.h"
#include "Repeated.h"
#include "SwipeRandoms.h"
#include "text/Utf8.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <malloc.h>
#include <memory>

namespace vanoka {

namespace {

using Words = std::vector<std::string>;
using Personal = SwipeDecoder::Personal;
using Path = std::vector<SwipePoint>;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t mostCount = std::numeric_limits<std::int64_t>::max();

SwipeDecoder decoderOf(const std::vector<SwipeDecoder::Word>& words) {
    return SwipeDecoder(words);
}

Words decode(const SwipeDecoder& decoder, std::string_view spelling, std::int64_t limit = 5,
             const Personal& personal = {}) {
    const SwipeKeys keys = test::qwerty();
    return decoder.wordsFor(test::strokeOver(keys, spelling), keys, 10, limit, personal);
}

TEST(SwipeDecoder, FindsEnglishAndSinhalaWords) {
    const SwipeDecoder decoder =
        decoderOf({{"Hello", 10}, {"hole", 10}, {"\u0D85\u0DB8\u0DCA\u0DB8\u0DCF", 10}});
    EXPECT_EQ(decoder.count(), 3U);
    EXPECT_EQ(decode(decoder, "helo"), Words{"Hello"});
    EXPECT_EQ(decode(decoder, "ama"), Words{"\u0D85\u0DB8\u0DCA\u0DB8\u0DCF"});
}

TEST(SwipeDecoder, FindsASinhalaWordByEitherSpelling) {
    const std::string word = "\u0DAF\u0DD4\u0D9A"; // dhuka, or duka
    const SwipeDecoder decoder = decoderOf({{word, 10}});
    EXPECT_EQ(decode(decoder, "dhuka"), Words{word});
    EXPECT_EQ(decode(decoder, "duka"), Words{word});
    const std::string ends = "\u0DB8\u0DAD\u0DCA"; // math, or mat
    EXPECT_EQ(decode(decoderOf({{ends, 10}}), "math"), Words{ends});
    EXPECT_EQ(decode(decoderOf({{ends, 10}}), "mat"), Words{ends});
}

TEST(SwipeDecoder, LeavesOutWhatCannotBeSwiped) {
    const std::string longest = test::repeated("as", 127) + "a", tooLong = test::repeated("as", 128);
    EXPECT_EQ(longest.size(), 255U);
    EXPECT_EQ(decoderOf({{longest, 1}}).count(), 1U);
    EXPECT_EQ(decoderOf({{tooLong, 1}}).count(), 0U);
    EXPECT_EQ(
        decoderOf({{"", 1}, {"it's", 1}, {"\u0D9Ak", 1}, {"\u0DCA", 1}, {"\xFF", 1}, {"ok", 1}}).count(), 1U);
    EXPECT_EQ(decoderOf({}).count(), 0U);
    EXPECT_EQ(decode(decoderOf({}), "ama"), Words());
    EXPECT_EQ(decode(decoderOf({{longest, 1}}), longest), Words{longest});
}

TEST(SwipeDecoder, TheLimitOnKeysCountsForEitherSpelling) {
    const std::string dha = test::repeated("\u0DAF", 85);
    EXPECT_EQ(decoderOf({{dha, 1}}).count(), 1U) << "255 in full, 170 in chat";
    EXPECT_EQ(decoderOf({{dha + "\u0D9A\u0DCA", 1}}).count(), 0U) << "256 in full, 171 in chat";
}

TEST(SwipeDecoder, AWordOfManyBytesAndFewKeys) {
    const std::string long_ = test::repeated("a", 70'000);
    EXPECT_EQ(decode(decoderOf({{long_, 1}, {"s", 1}}), "asa").front(), long_);
}

TEST(SwipeDecoder, CountsAreHeldToTheirRange) {
    // Equal shapes, so that the count alone decides; equal counts keep the order of the list.
    const auto order = [](std::int64_t one, std::int64_t other) {
        return decode(decoderOf({{"mama", one}, {"MAMA", other}}), "mama");
    };
    const Words given = {"mama", "MAMA"}, turned = {"MAMA", "mama"};
    EXPECT_EQ(order(1, 2), turned);
    EXPECT_EQ(order(0, 1), given) << "0 is 1";
    EXPECT_EQ(order(-5, 1), given) << "less than 0 is 1";
    EXPECT_EQ(order(std::numeric_limits<std::int64_t>::min(), 2), turned);
    EXPECT_EQ(order(2'147'483'646, 2'147'483'647), turned);
    EXPECT_EQ(order(2'147'483'647, 2'147'483'648), given);
    EXPECT_EQ(order(2'147'483'647, mostCount), given) << "3,000,000,000 and more are 2,147,483,647";
}

TEST(SwipeDecoder, WhatGivesNoWords) {
    const SwipeDecoder decoder = decoderOf({{"mama", 5}});
    const SwipeKeys keys = test::qwerty();
    const Path stroke = test::strokeOver(keys, "mama"), beside = {stroke[0], {0, 0}, stroke[3]};
    const auto wordsFor = [&](const Path& path, double width, std::int64_t limit) {
        return decoder.wordsFor(path, keys, width, limit, {});
    };
    EXPECT_EQ(wordsFor(stroke, 10, 1), Words{"mama"});
    EXPECT_EQ(wordsFor({}, 10, 1), Words());
    EXPECT_EQ(wordsFor({stroke[0]}, 10, 1), Words());
    for (const double width : {0.0, -0.0, -1.0, -infinity, nan})
        for (const Path& path : {stroke, beside})
            EXPECT_EQ(wordsFor(path, width, 1), Words()) << width;
    for (const std::int64_t limit :
         {std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()})
        EXPECT_EQ(wordsFor(stroke, 10, limit), Words()) << limit;
    EXPECT_EQ(wordsFor(stroke, 10, std::numeric_limits<std::int64_t>::max()), Words{"mama"});
    EXPECT_EQ(wordsFor(stroke, 5e-324, 1), Words{"mama"}) << "not a hair's breadth away";
    EXPECT_EQ(
        wordsFor({stroke[0], stroke[1], {stroke[1].x, stroke[1].y + 1}, stroke[2], stroke[3]}, 5e-324, 1),
        Words())
        << "infinitely many key widths away";
    EXPECT_EQ(wordsFor(stroke, infinity, 1), Words{"mama"});
    EXPECT_EQ(decoder.wordsFor(stroke, SwipeKeys{}, 10, 1, {}), Words());
    EXPECT_EQ(decoder.wordsFor(stroke, {{"\u0DB8", stroke[0]}}, 10, 1, {}), Words());
}

TEST(SwipeDecoder, AnInfiniteKeyWidthMakesEveryKeyNear) {
    const SwipeDecoder decoder = decoderOf({{"quip", 5}, {"mama", 7}, {"zoo", 6}});
    const SwipeKeys keys = test::qwerty();
    EXPECT_EQ(decoder.wordsFor(test::strokeOver(keys, "mama"), keys, infinity, 5, {}),
              (Words{"mama", "zoo", "quip"}));
}

TEST(SwipeDecoder, StrokesOfOnePlaceAndOfNoPlace) {
    const SwipeDecoder decoder = decoderOf({{"a", 5}, {"as", 5}, {"s", 1}});
    const SwipeKeys keys = test::qwerty();
    const SwipePoint a = keys.at("a");
    EXPECT_EQ(decoder.wordsFor(Path{a, a, a}, keys, 10, 2, {}), (Words{"a", "as"}));
    EXPECT_EQ(decoder.wordsFor(Path{a, {nan, nan}, a}, keys, 10, 1, {}), Words{"a"}) << "a point, then";
    EXPECT_EQ(decoder.wordsFor(Path{{nan, nan}, a}, keys, 10, 5, {}), Words()) << "no key is near";
    EXPECT_EQ(decoder.wordsFor(Path{a, {nan, nan}}, keys, 10, 5, {}), Words());
    EXPECT_EQ(decoder.wordsFor(Path{{infinity, 0}, a}, keys, 10, 5, {}), Words());
    EXPECT_EQ(decoder.wordsFor(Path{a, {infinity, 0}, a}, keys, 10, 5, {}), Words()) << "nothing is near";
}

TEST(SwipeDecoder, AWordMustStartAndEndWithANearKey) {
    // p is far from a; s is one width away, d two.
    const SwipeDecoder decoder =
        decoderOf({{"pama", 1'000'000}, {"dama", 1'000'000}, {"sama", 1}, {"amad", 1'000'000}});
    EXPECT_EQ(decode(decoder, "ama"), Words{"sama"});
    const SwipeKeys keys = test::qwerty();
    const Path beside = {{-3, 22.5}, keys.at("m"), keys.at("a")};
    EXPECT_EQ(decoder.wordsFor(beside, keys, 10, 5, {}), Words()) << "a is the nearest key and s is not near";
    EXPECT_EQ(decoderOf({{"ama", 1}}).wordsFor(beside, keys, 10, 5, {}), Words{"ama"});
}

TEST(SwipeDecoder, ASpellingWithAMissingKeyIsPassedOver) {
    SwipeKeys keys = test::qwerty();
    const Path stroke = test::strokeOver(keys, "duka");
    const SwipeDecoder decoder = decoderOf({{"\u0DAF\u0DD4\u0D9A", 1}, {"daka", 1}});
    EXPECT_EQ(decoder.wordsFor(stroke, keys, 10, 5, {}).size(), 2U);
    keys.erase("h");
    EXPECT_EQ(decoder.wordsFor(stroke, keys, 10, 5, {}).size(), 2U) << "duka needs no h";
    keys.erase("u");
    EXPECT_EQ(decoder.wordsFor(stroke, keys, 10, 5, {}), Words{"daka"});
}

TEST(SwipeDecoder, AFrequentWordWinsAboutTheSameShape) {
    EXPECT_EQ(decode(decoderOf({{"hole", 2}, {"hale", 1'000'000}}), "hole"), (Words{"hole", "hale"}));
    EXPECT_EQ(decode(decoderOf({{"hit", 1}, {"hut", 1'000'000}}), "hit"), (Words{"hut", "hit"}));
}

TEST(SwipeDecoder, KeepsAtMostTheLimit) {
    const SwipeDecoder decoder = decoderOf({{"hit", 3}, {"hut", 2}, {"hot", 1}});
    const Words all = decode(decoder, "hit", 5);
    EXPECT_EQ(all.size(), 3U);
    EXPECT_EQ(decode(decoder, "hit", 2), Words(all.begin(), all.begin() + 2));
    EXPECT_EQ(decode(decoder, "hit", 1), Words(all.begin(), all.begin() + 1));
}

TEST(SwipeDecoder, APersonalCountAddsToTheCountInTheList) {
    const SwipeDecoder decoder = decoderOf({{"mama", 10}, {"MAMA", 12}});
    EXPECT_EQ(decode(decoder, "mama"), (Words{"MAMA", "mama"}));
    EXPECT_EQ(decode(decoder, "mama", 5, {{"mama", 2}}), (Words{"mama", "MAMA"})) << "12 and 12";
    EXPECT_EQ(decode(decoder, "mama", 5, {{"mama", 1}}), (Words{"MAMA", "mama"})) << "11 and 12";
}

/// With the people's weights, too, equal scores go by the list, and the list goes first.
TEST(SwipeDecoder, APersonalCountByThePeoplesWeights) {
    const std::vector<SwipeDecoder::Word> list = {{"asa", 1}, {"ama", 1}, {"mama", 10}, {"MAMA", 12}};
    const SwipeDecoder decoder(list, SwipeWeights::people);
    EXPECT_EQ(decode(decoder, "mama", 2), (Words{"MAMA", "mama"}));
    EXPECT_EQ(decode(decoder, "mama", 2, {{"mama", 2}}), (Words{"mama", "MAMA"})) << "12 and 12";
    EXPECT_EQ(decode(decoder, "mama", 2, {{"mama", 1}}), (Words{"MAMA", "mama"})) << "11 and 12";
    EXPECT_EQ(decode(decoder, "mama", 3, {{"Mama", 6}}), (Words{"MAMA", "Mama", "mama"})) << "12 and 12";
}

TEST(SwipeDecoder, AWordOfTheListGoesBeforeAHundredOwnOnesOfItsScore) {
    const std::string longest = "mamamama";
    Personal personal;
    for (unsigned capitals = 0; capitals < 100; ++capitals) {
        std::string word = longest;
        for (std::size_t at = 0; at < word.size(); ++at)
            if (capitals >> at & 1U)
                word[at] = word[at] == 'm' ? 'M' : 'A';
        personal.emplace(std::move(word), 5);
    }
    const std::vector<SwipeDecoder::Word> list = {{"MAMAMAMA", 10}};
    EXPECT_EQ(decode(SwipeDecoder(list), longest, 1, personal), Words{"MAMAMAMA"});
    EXPECT_EQ(decode(SwipeDecoder(list, SwipeWeights::people), longest, 1, personal), Words{"MAMAMAMA"});
}

/// Of 10,000,000 and 10,000,023 occurrences the latter weigh a millionth more. The word that has them is less
/// likely at first sight, since it ends a thousandth of a key beside the stroke's end; a close look sees that
/// it is likelier.
TEST(SwipeDecoder, AWordThatIsBetterByAHairIsNotGivenUp) {
    const SwipeKeys keys = {{"a", {0, 0}}, {"l", {10, 0}}, {"m", {10.001, 0}}};
    const std::vector<SwipeDecoder::Word> list = {{"al", 10'000'000}, {"AL", 10'000'000}, {"am", 10'000'023}};
    const SwipeDecoder decoder(list, SwipeWeights::people);
    EXPECT_EQ(decoder.wordsFor(test::strokeOver(keys, "al"), keys, 1, 3, {}), (Words{"am", "al", "AL"}));
    EXPECT_EQ(decoder.wordsFor(test::strokeOver(keys, "al"), keys, 1, 1, {}), Words{"am"});
}

/// The first of these is met after the second, since its full spelling ends elsewhere.
TEST(SwipeDecoder, OfTwoWordsOfOneScoreTheFirstOfTheListIsTheBest) {
    const std::string mat = "\u0DB8\u0DAD\u0DCA"; // math, or mat
    const std::vector<SwipeDecoder::Word> list = {{mat, 10}, {"mat", 10}};
    const SwipeKeys keys = test::qwerty();
    Path stroke = test::strokeOver(keys, "mat");
    for (SwipePoint& point : stroke)
        point.y += 2; // neither is met exactly
    for (const SwipeWeights weights : {SwipeWeights::specified, SwipeWeights::people})
        EXPECT_EQ(SwipeDecoder(list, weights).wordsFor(stroke, keys, 10, 1, {}), Words{mat});
}

TEST(SwipeDecoder, EveryPersonalWordIsFoundInTheList) {
    std::vector<std::string> words;
    for (char key = 'b'; key <= 'z'; ++key)
        for (const char* around : {"a", "ay", "aqe", "ayqe"})
            words.push_back(around + std::string(1, key) + "ya");
    for (const std::string& word : words) {
        const std::vector<SwipeDecoder::Word> list = {{"aeya", 5}, {word, 10}, {"aleya", 5}};
        const Words found = decode(SwipeDecoder(list), word, 5, {{word, 7}});
        EXPECT_EQ(std::ranges::count(found, word), 1) << word;
        const std::string upper = "A" + word.substr(1); // 16 occurrences lie between 10 and 17
        const std::vector<SwipeDecoder::Word> both = {{upper, 16}, {word, 10}};
        EXPECT_EQ(decode(SwipeDecoder(both), word, 1), Words{upper});
        EXPECT_EQ(decode(SwipeDecoder(both), word, 1, {{word, 7}}), Words{word});
    }
}

TEST(SwipeDecoder, APersonalWordThatIsNotInTheListCountsTwice) {
    const SwipeDecoder decoder = decoderOf({{"MAMA", 10}});
    EXPECT_EQ(decode(decoder, "mama", 5, {{"mama", 6}}), (Words{"mama", "MAMA"})) << "12 and 10";
    EXPECT_EQ(decode(decoder, "mama", 5, {{"mama", 5}}), (Words{"MAMA", "mama"}))
        << "10 and 10: the list first";
    EXPECT_EQ(decode(decoderOf({}), "mama", 5, {{"mama", 1}, {"it's", 9}}), Words{"mama"});
    EXPECT_EQ(decode(decoderOf({}), "mama", 5, {{"papa", 1}}), Words()) << "far from p";
    const std::string tooLong = test::repeated("as", 128);
    EXPECT_EQ(decode(decoderOf({{tooLong, 1}}), tooLong, 5, {{tooLong, 1}}), Words{tooLong})
        << "a personal word may be longer";
}

TEST(SwipeDecoder, EquivalentWordsAreOneWord) {
    const std::string composed = "\u0D9A\u0DDC", decomposed = "\u0D9A\u0DD9\u0DCF";
    const SwipeDecoder both = decoderOf({{decomposed, 1}, {composed, 1000}, {"ko", 5}});
    EXPECT_EQ(both.count(), 3U);
    EXPECT_EQ(decode(both, "ko"), (Words{"ko", decomposed})) << "the first one, with its own count";
    EXPECT_EQ(decode(both, "ko", 5, {{composed, 10}}), (Words{decomposed, "ko"}));
    EXPECT_EQ(decode(decoderOf({{"mama", 1}, {"mama", 9}}), "mama"), Words{"mama"});
}

TEST(SwipeDecoder, APersonalCountIsTheWordsHoweverTheWordIsSpelled) {
    const std::string kelvin = "\u212Aama"; // U+212A is the letter K
    const SwipeDecoder decoder = decoderOf({{"Kama", 10}, {"kama", 12}});
    EXPECT_EQ(decode(decoder, "kama"), (Words{"kama", "Kama"}));
    EXPECT_EQ(decode(decoder, "kama", 5, {{kelvin, 3}}), (Words{"Kama", "kama"})) << "13 and 12";
    EXPECT_EQ(decode(decoder, "kama", 5, {{kelvin, -11}}), (Words{"Kama", "kama"}))
        << "no number, which came first";
    EXPECT_EQ(decode(decoderOf({{"kama", 12}}), "kama", 5, {{kelvin, 300}}), Words{"kama"})
        << "in no list, it cannot be swiped";
}

TEST(SwipeDecoder, KeepsItsWordsWhenItIsMovedFrom) {
    SwipeDecoder from = decoderOf({{"mama", 10}});
    const SwipeDecoder to = std::move(from);
    EXPECT_EQ(decode(from, "mama"), Words{"mama"}); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(decode(to, "mama"), Words{"mama"});
}

TEST(SwipeDecoder, PersonalCountsOfNothingAndLess) {
    const SwipeDecoder decoder = decoderOf({{"mama", 10}, {"MAMA", 5}});
    EXPECT_EQ(decode(decoder, "mama", 5, {{"mama", -10}}), (Words{"MAMA", "mama"})) << "minus infinity";
    EXPECT_EQ(decode(decoder, "mama", 1, {{"mama", -10}}), Words{"MAMA"});
    EXPECT_EQ(decode(decoder, "mama", 5, {{"Mama", 0}}), (Words{"mama", "MAMA", "Mama"}));
    EXPECT_EQ(decode(decoder, "mama", 5, {{"mama", -8}}), (Words{"MAMA", "mama"})) << "5 and 2";
}

TEST(SwipeDecoder, AScoreThatIsNoNumberStandsAtTheEndWhileThereIsRoom) {
    const std::vector<SwipeDecoder::Word> list = {{"mama", 10}, {"MAMA", 5}, {"Mama", 7}, {"mAma", 8}};
    const SwipeDecoder decoder = decoderOf(list);
    const auto with = [&](const char* word, std::int64_t limit) {
        return decode(decoder, "mama", limit, {{word, -100}});
    };
    EXPECT_EQ(with("mAma", 5), (Words{"mama", "Mama", "MAMA", "mAma"})) << "it comes last";
    EXPECT_EQ(with("mAma", 3), (Words{"mama", "Mama", "MAMA"})) << "no room";
    EXPECT_EQ(with("mama", 5), (Words{"mama", "mAma", "Mama", "MAMA"}))
        << "it came first, and no later word is before it";
    EXPECT_EQ(with("mama", 1), Words{"mama"});
    EXPECT_EQ(with("MAMA", 2), (Words{"mama", "MAMA"})) << "it keeps the place that it took";
    EXPECT_EQ(with("other", 2), (Words{"mama", "mAma"})) << "a word with other ends changes nothing";
}

TEST(SwipeDecoder, AskingForALayoutOnceIsTheSame) {
    const SwipeDecoder decoder = decoderOf({{"hit", 3}, {"hut", 2}, {"hot", 1}});
    const SwipeKeys keys = test::qwerty();
    const SwipeLayout layout(keys);
    const Path stroke = test::strokeOver(keys, "hut");
    EXPECT_EQ(decoder.wordsFor(stroke, layout, 10, 5, {}), decoder.wordsFor(stroke, keys, 10, 5, {}));
    EXPECT_EQ(decoder.wordsFor(stroke, layout, 10, 5, {}).size(), 3U);
}

TEST(SwipeDecoder, CopiesAreIndependent) {
    const auto original = std::make_unique<SwipeDecoder>(decoderOf({{"hit", 3}, {"hut", 2}}));
    const SwipeDecoder copy = *original;
    EXPECT_EQ(decode(copy, "hit").size(), 2U);
    EXPECT_EQ(copy.count(), 2U);
}

static_assert(SwipeDecoder::Memory().pool == 0 && SwipeDecoder::Memory().overhead == 0);

/// Nothing but the tables, and so many bytes: libraries round what they take up by a few.
void expectOverhead(std::size_t overhead, std::size_t ofWords) {
    const std::size_t ofNone = SwipeDecoder(std::vector<SwipeDecoder::Word>()).memory().overhead;
    EXPECT_GE(overhead, ofNone + ofWords - 64);
    EXPECT_LE(overhead, ofNone + ofWords + 64);
}

TEST(SwipeDecoder, TellsItsMemory) {
    std::vector<std::string> words;
    for (char first = 'a'; first <= 'z'; ++first)
        for (char second = 'a'; second <= 'z'; ++second)
            words.push_back({first, second, 'o'});
    std::vector<SwipeDecoder::Word> list;
    for (const std::string& word : words)
        list.push_back({word, 1});
    const auto memory = SwipeDecoder(list).memory();
    const std::size_t repeats = 26 + 26 - 1; // aao …, aoo …; ooo has two
    EXPECT_EQ(memory.pool, words.size() * (3 + 3) - repeats - 1) << "three bytes and up to three keys each";
    // Two lengths, a place, a count and a number.
    expectOverhead(memory.overhead, words.size() * (2 + 12));
}

TEST(SwipeDecoder, AWordWithTwoGroupsTakesALittleMore) {
    std::vector<std::string> words;
    for (char32_t first = 0x0D9A; first <= 0x0D9D; ++first)
        for (const char* second : {"\u0D9A", "\u0D9C", "\u0DA0", "\u0DA2", "\u0DB1", "\u0DB8"})
            words.push_back(text::utf8(first) + second + "\u0DAD\u0DCA"); // th, or t
    std::vector<SwipeDecoder::Word> list;
    for (const std::string& word : words)
        list.push_back({word, 1});
    expectOverhead(SwipeDecoder(list).memory().overhead, words.size() * (2 + 12 + 4));
}

TEST(SwipeDecoderDeathTest, ACountThatOverflowsIsFatal) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const SwipeDecoder decoder = decoderOf({{"mama", 10}});
    EXPECT_DEATH(decode(decoder, "mama", 5, {{"mama", mostCount - 9}}), "overflow");
    EXPECT_DEATH(decode(decoder, "mama", 5, {{"Mama", mostCount / 2 + 1}}), "overflow");
    EXPECT_DEATH(decode(decoder, "mama", 5, {{"Mama", std::numeric_limits<std::int64_t>::min()}}),
                 "overflow");
    EXPECT_EQ(decode(decoder, "mama", 5, {{"mama", mostCount - 10}}), Words{"mama"});
    EXPECT_EQ(decode(decoder, "mama", 5, {{"papa", mostCount}}), Words{"mama"}) << "never summed up";
}

/// Nobody draws such a stroke, but a machine does, and no rounding shall look like a place where a finger
/// slowed.
TEST(SwipeDecoder, AStrokeAtAnEvenPaceHasNoSlowPlaces) {
    const SwipeKeys keys = test::qwerty();
    const std::vector<SwipeDecoder::Word> words = {{"\u0DB8\u0DB8", 100},
                                                   {"\u0DB8\u0DB1\u0DCA\u0DAF", 100}}; // mama, manda
    const SwipeDecoder decoder(words, SwipeWeights::people);
    const SwipePoint m = keys.at("m"), a = keys.at("a");
    constexpr int steps = 12;
    std::vector<SwipePoint> stroke = {m};
    for (const auto& [from, to] : {std::pair(m, a), std::pair(a, m), std::pair(m, a)})
        for (int step = 1; step <= steps; ++step)
            stroke.push_back(
                {from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps});
    EXPECT_EQ(decoder.wordsFor(stroke, keys, 10, 1, {}), Words{"\u0DB8\u0DB8"});
}

std::size_t memoryInUse() {
    const auto use = ::mallinfo2();
    return use.uordblks + use.hblkhd;
}

TEST(SwipeDecoder, RemembersTheWordsOverOneLayoutInSixteenBytesForEach) {
    std::vector<std::string> list;
    for (const char first : std::string_view("abcdefghijklmnopqrstuvwxyz"))
        for (const char second : std::string_view("abcdefghijklmnopqrstuvwxyz"))
            for (const char third : std::string_view("aeiou"))
                list.push_back({first, second, third});
    std::vector<SwipeDecoder::Word> words;
    for (const std::string& word : list)
        words.push_back({word, 1});
    const std::size_t withoutDecoder = memoryInUse();
    const SwipeDecoder decoder = decoderOf(words);
    const std::size_t bytes = 16 * decoder.count();
    const SwipeKeys keys = test::qwerty();
    const Path stroke = test::strokeOver(keys, "ama");
    SwipeKeys mirrored = keys;
    for (auto& [label, center] : mirrored)
        center.x = -center.x;
    SwipeMemory memory;
    const std::size_t before = memoryInUse();
    if (before <= withoutDecoder)
        GTEST_SKIP() << "does not apply: a sanitizer counts memory in its own way";
    for (const SwipeKeys& each : {keys, keys, mirrored}) {
        decoder.wordsFor(stroke, SwipeLayout(each), 10, 5, {}, &memory);
        const std::size_t taken = memoryInUse() - before;
        EXPECT_GE(taken, bytes);
        EXPECT_LT(taken, 2 * bytes) << "of one layout";
    }
}

} // namespace

} // namespace vanoka
