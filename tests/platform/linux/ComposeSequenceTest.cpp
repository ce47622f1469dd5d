#include "ComposeSequence.h"

#include <gtest/gtest.h>
#include <vector>

namespace vanoka {

namespace {

constexpr std::uint32_t deadAcute = 0xFE51, deadTilde = 0xFE53, compose = 0xFF20, shift = 0xFFE1;

TEST(ComposeSequence, TakesTheKeysThatMakeOneCharacter) {
    struct Row {
        const char* name;
        std::vector<std::uint32_t> keys;
        std::size_t taken; // of the keys, from the first on
    };
    for (const Row& row : std::vector<Row>{
             {"letters", {'a', 'b'}, 0},
             {"a modifier", {shift, 'a'}, 0},
             {"a dead key and a letter", {deadAcute, 'e', 'x'}, 2},
             {"a capital", {deadAcute, shift, 'E', 'x'}, 3},
             {"two marks on a letter", {deadTilde, deadAcute, 'o', 'x'}, 3},
             {"Compose and two keys", {compose, '"', 'o', 'x'}, 3},
             {"with capitals", {compose, shift, 'A', shift, 'E', 'x'}, 5},
             {"Compose again", {compose, '"', compose, '"', 'o', 'x'}, 5},
         }) {
        ComposeSequence sequence;
        std::size_t taken = 0;
        for (const std::uint32_t key : row.keys)
            taken += sequence.takes(key);
        EXPECT_EQ(taken, row.taken) << row.name;
        EXPECT_FALSE(sequence.isUnderway()) << row.name;
    }
}

TEST(ComposeSequence, CanBeEnded) {
    ComposeSequence sequence;
    EXPECT_TRUE(sequence.takes(compose));
    EXPECT_TRUE(sequence.isUnderway());
    sequence.end();
    EXPECT_FALSE(sequence.takes('a'));
}

} // namespace

} // namespace vanoka
