#include "ComposeSequence.h"

#include "TemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <vector>

namespace vanoka::ibus {

namespace {

constexpr std::uint32_t deadAcute = 0xFE51, deadCircumflex = 0xFE52, compose = 0xFF20, shift = 0xFFE1,
                        backSpace = 0xFF08, escape = 0xFF1B, enter = 0xFF0D;

class ComposeSequenceTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        static const test::TemporaryFolder home;
        // The sequences are read once, with the first that begins.
        std::ofstream(home.path() / ".XCompose") << "include \"%L\"\n"
                                                    "<Multi_key> <k> <k> <k> <k> <k> : \"\u0D9A\u0DCA\"\n";
        ::setenv("HOME", home.path().c_str(), 1);
        ::setenv("LC_ALL", "C.UTF-8", 1);
        ::unsetenv("XCOMPOSEFILE");
        ::unsetenv("XDG_CONFIG_HOME");
    }
};

TEST_F(ComposeSequenceTest, MakesOneTextOfItsKeys) {
    struct Row {
        const char* name;
        std::vector<std::uint32_t> keys;
        std::size_t taken; // of the keys, from the first on
        const char* text;
    };
    for (const Row& row : std::vector<Row>{
             {"letters", {'a', 'b'}, 0, ""},
             {"a modifier", {shift, 'a'}, 0, ""},
             {"a dead key and a letter", {deadAcute, 'e', 'x'}, 2, "\u00E9"},
             {"a capital", {deadAcute, shift, 'E', 'x'}, 2, "\u00C9"},
             {"two marks on a letter", {deadCircumflex, deadAcute, 'a', 'x'}, 3, "\u1EA5"},
             {"Compose and two keys", {compose, '"', 'o', 'x'}, 3, "\u00F6"},
             {"with capitals", {compose, shift, 'A', shift, 'E', 'x'}, 3, "\u00C6"},
             {"Compose and three keys", {compose, '-', '-', '-', 'x'}, 4, "\u2014"},
             {"and four keys", {compose, '(', '1', '2', ')', 'x'}, 5, "\u246B"},
             {"and five keys, the user's own", {compose, 'k', 'k', 'k', 'k', 'k', 'x'}, 6, "\u0D9A\u0DCA"},
             {"Compose again", {compose, '"', compose, '"', 'o', 'x'}, 5, "\u00F6"},
             {"another dead key", {compose, '%', deadAcute, 'e', 'x'}, 4, "\u00E9"},
             {"a letter that fits none", {deadAcute, 'q', 'x'}, 1, ""},
             {"Return", {compose, enter, 'x'}, 1, ""},
             {"given up with Escape", {compose, '"', escape, 'x'}, 3, ""},
             {"given up with Backspace", {compose, '"', backSpace, 'x'}, 3, ""},
             {"Escape after one", {deadAcute, 'e', escape}, 2, "\u00E9"},
         }) {
        ComposeSequence sequence;
        std::size_t taken = 0;
        std::string text;
        for (const std::uint32_t key : row.keys) {
            const auto result = sequence.press(key);
            taken += result.outcome != ComposeSequence::Outcome::notPart;
            EXPECT_EQ(result.outcome == ComposeSequence::Outcome::made, !result.text.empty()) << row.name;
            text += result.text;
        }
        EXPECT_EQ(taken, row.taken) << row.name;
        EXPECT_EQ(text, row.text) << row.name;
        EXPECT_FALSE(sequence.isUnderway()) << row.name;
    }
}

TEST_F(ComposeSequenceTest, CanBeEnded) {
    ComposeSequence sequence;
    EXPECT_EQ(sequence.press(compose).outcome, ComposeSequence::Outcome::underway);
    EXPECT_TRUE(sequence.isUnderway());
    sequence.end();
    EXPECT_FALSE(sequence.isUnderway());
    EXPECT_EQ(sequence.press('a').outcome, ComposeSequence::Outcome::notPart);
}

} // namespace

} // namespace vanoka::ibus
