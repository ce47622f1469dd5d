#include "WordTally.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

const std::string talliedGama = "\u0D9C\u0DB8", talliedAmma = "\u0D85\u0DB8\u0DCA\u0DB8";

TEST(WordTally, MergingTakesTheLargerCountsAndAllThatIsForgotten) {
    WordTally tally, other;
    tally.sinhala = {{talliedGama, 2}, {talliedAmma, 9}};
    tally.english = {{"hello", {3, 1}}, {"mate", {1, 1}}};
    tally.forgotten = {"kiri"};
    other.sinhala = {{talliedGama, 5}};
    other.english = {{"hello", {1, 4}}, {"kiri", {7, 7}}, {"new", {1, 0}}};
    other.forgotten = {talliedAmma, "mate"};

    merge(other, tally);

    WordTally expected;
    expected.sinhala = {{talliedGama, 5}};
    expected.english = {{"hello", {3, 4}}, {"new", {1, 0}}};
    expected.forgotten = {talliedAmma, "kiri", "mate"};
    EXPECT_EQ(tally, expected);
}

TEST(WordTally, IsTheSameAsPersonalWords) {
    WordTally tally;
    tally.sinhala = {{talliedGama, 2}, {talliedAmma, 9}};
    tally.english = {{"hello", {3, 1}}};
    tally.forgotten = {"kiri"};
    EXPECT_EQ(WordTally(WordTally(tally).words()), tally);
}

TEST(WordTally, TheLeastUsedWordsMakeRoom) {
    WordTally tally;
    for (std::int64_t word = 0; word < LearntWords::most + 3; ++word)
        tally.english["word" + std::to_string(word)] = {word == 7 ? 0 : 1, word % 2};
    makeRoom(tally);
    EXPECT_EQ(tally.english.size(), static_cast<std::size_t>(LearntWords::most));
    EXPECT_TRUE(tally.english.contains("word7")) << "one use is as good as another's";
    EXPECT_TRUE(tally.english.contains("word1"));
    EXPECT_TRUE(tally.english.contains("word9999")) << "used twice";

    WordTally full;
    for (std::int64_t word = 0; word < LearntWords::most; ++word)
        full.sinhala["word" + std::to_string(word)] = 1;
    WordTally merged;
    merged.sinhala = {{"words", 2}};
    merge(full, merged);
    EXPECT_EQ(merged.sinhala.size(), static_cast<std::size_t>(LearntWords::most));
    EXPECT_TRUE(merged.sinhala.contains("words")) << "used twice";
    EXPECT_FALSE(merged.sinhala.contains("word9999"));

    WordTally few;
    few.sinhala = {{talliedGama, 1}};
    makeRoom(few);
    EXPECT_EQ(few.sinhala.size(), 1U);
}

} // namespace

} // namespace vanoka
