#include "LearntWord.h"

#include "WordTally.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

using Use = LearntWord::Use;

const std::string gedara = "\u0D9C\u0DD9\u0DAF\u0DBB";

TEST(LearntWord, IsTheTextTheKeysBothOrNothing) {
    const std::string longest(256, 'a');
    struct Row {
        std::string keys, text, sinhala, english;
        Use use = Use::typedInSinhala;
    };
    for (const Row& row : std::vector<Row>{
             {"gedara", gedara, gedara, "gedara"},
             {"Gedara", gedara, gedara, "gedara"},
             {"hello", "hello", "", "hello", Use::kept},
             {"Hello", "Hello", "", "hello", Use::kept},
             {"hello", "help", "", ""},
             {"me", "\u0DB8\u0DD9", "", "me"}, // one letter with its sign
             {"ga-ma", "\u0D9C\u0DB8", "\u0D9C\u0DB8", ""},
             {"k", "\u0D9A\u0DCA", "", ""},
             {"a", "a", "", ""},
             {"cat", "\U0001F408", "", ""},
             {"shrii", "\u0DC1\u0DCA\u200D\u0DBB\u0DD3", "\u0DC1\u0DCA\u200D\u0DBB\u0DD3", "shrii"},
             // The sign of long o, as its two pieces.
             {"koma", "\u0D9A\u0DD9\u0DCF\u0DB8", "\u0D9A\u0DDC\u0DB8", "koma"},
             {"gama", gedara + " " + gedara, "", "gama"},
             {"gama", gedara + ".", "", "gama"},
             {"gama", "\u0DCF\u0D9C\u0DB8", "", "gama"}, // begins with a sign
             {"gama", "\u0D9C\u0DB8\xFF", "", "gama"},
             {"gama\xFF", "\u0D9C\u0DB8", "\u0D9C\u0DB8", ""},
             {"don't", "don't", "", ""},
             {"", "", "", ""},
             {longest, longest, "", longest, Use::kept},
             {longest + "a", longest + "a", "", ""},
         }) {
        const LearntWord learnt = LearntWords::learntFrom({row.keys, row.text});
        EXPECT_EQ(learnt.sinhala, row.sinhala) << row.keys << " " << row.text;
        EXPECT_EQ(learnt.english, row.english) << row.keys << " " << row.text;
        if (!row.english.empty()) {
            EXPECT_EQ(learnt.use, row.use) << row.keys << " " << row.text;
        }
    }
}

TEST(WordTally, CountsAndTakesBackNoMoreThanThereIs) {
    WordTally tally;
    const LearntWord word = LearntWords::learntFrom({"gedara", gedara});
    const LearntWord kept = LearntWords::learntFrom({"gedara", "gedara"});
    apply({WordChange::Kind::learn, word}, tally);
    apply({WordChange::Kind::learn, word}, tally);
    apply({WordChange::Kind::learn, kept}, tally);
    EXPECT_EQ(tally.sinhala[gedara], 2);
    EXPECT_EQ(tally.english["gedara"], (PersonalWords::EnglishUse{1, 2}));
    apply({WordChange::Kind::unlearn, word}, tally);
    EXPECT_EQ(tally.sinhala[gedara], 1);
    EXPECT_EQ(tally.english["gedara"], (PersonalWords::EnglishUse{1, 1}));
    for (int i = 0; i < 2; ++i)
        apply({WordChange::Kind::unlearn, word}, tally);
    EXPECT_TRUE(tally.sinhala.empty());
    EXPECT_EQ(tally.english["gedara"], (PersonalWords::EnglishUse{1, 0}));
    apply({WordChange::Kind::unlearn, kept}, tally);
    EXPECT_EQ(tally, WordTally());
}

TEST(WordTally, LearnsNothingThatIsForgotten) {
    WordTally tally;
    const LearntWord word = LearntWords::learntFrom({"gedara", gedara});
    apply({WordChange::Kind::learn, word}, tally);
    apply({WordChange::Kind::forget, LearntWords::formOf(gedara)}, tally);
    apply({WordChange::Kind::learn, word}, tally);
    EXPECT_TRUE(tally.sinhala.empty());
    EXPECT_EQ(tally.english["gedara"].typedInSinhala, 2) << "the keys are another word";
    apply({WordChange::Kind::forget, LearntWords::formOf("GEDARA")}, tally);
    apply({WordChange::Kind::learn, word}, tally);
    EXPECT_TRUE(tally.english.empty());
    EXPECT_EQ(tally.forgotten.size(), 2U);
    EXPECT_EQ(WordTally(WordTally(tally).words()), tally);
}

TEST(WordTally, CountsToALimit) {
    WordTally tally;
    tally.sinhala[gedara] = LearntWords::largestCount;
    apply({WordChange::Kind::learn, LearntWords::learntFrom({"-", gedara})}, tally);
    EXPECT_EQ(tally.sinhala[gedara], LearntWords::largestCount);
}

} // namespace

} // namespace vanoka
