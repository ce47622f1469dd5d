#include "AttributedText.h"
#include "CandidateTyping.h"
#include "Controls.h"
#include "LetterRow.h"
#include "Suggestions.h"
#include "TextInputClient.h"
#include "WindowToolkit.h"
#include "WordsDocument.h"

#include <cstdint>
#include <gtest/gtest.h>

// Content names what is special and leaves the rest to the values' own beginnings. They are part of what is
// drawn and sent, so that they are as fixed as what is named.

namespace vanoka {

namespace {

TEST(TextStyle, ATextIsPlain) {
    const StyledText text;
    EXPECT_EQ(text.colour, ColourRole::primary);
    EXPECT_FALSE(text.isStruckThrough);
    EXPECT_EQ(text.font.role, FontRole::body);
    EXPECT_FALSE(text.font.isMonospaced);
    EXPECT_FALSE(text.font.isSemibold);
    EXPECT_EQ(text.font.size, 0);
}

TEST(AttributedText, AParagraphHasNoSpaceAfterIt) {
    EXPECT_EQ(ParagraphStyle().alignment, ParagraphStyle::Alignment::natural);
    EXPECT_EQ(ParagraphStyle().spacing, 0);
}

TEST(Controls, AButtonCanBePressedAndIsNothingSpecial) {
    const Button button;
    EXPECT_TRUE(button.isEnabled);
    EXPECT_FALSE(button.isDefault);
    EXPECT_FALSE(button.isDestructive);
}

TEST(Controls, ASwitchIsOff) {
    EXPECT_FALSE(Switch().isOn);
}

TEST(WindowToolkit, AWindowHasNoSize) {
    EXPECT_EQ(WindowDescription().width, 0);
    EXPECT_EQ(WindowDescription().height, 0);
}

TEST(KeyEdit, ABuiltInKeyIsSwitchedOn) {
    EXPECT_TRUE(SetBuiltIn().on);
}

TEST(LetterRow, ADotHasNoSize) {
    EXPECT_EQ(Dot().diameter, 0);
}

TEST(TextInputClient, ARangeIsEmptyAtTheStart) {
    EXPECT_EQ(TextRange().location, 0);
    EXPECT_EQ(TextRange().length, 0);
    EXPECT_EQ(TextRange::notFound, INT64_MAX);
    EXPECT_EQ(MarkedText().underline, MarkedText::Underline::single);
    EXPECT_NE(MarkedText::Underline::none, MarkedText::Underline::single);
}

TEST(Suggestions, AreOffAndNotPrivate) {
    EXPECT_FALSE(Suggestions().areOn);
    EXPECT_FALSE(Suggestions().isPrivate);
}

TEST(PersonalWords, AnEnglishWordWasNeverUsed) {
    EXPECT_EQ(PersonalWords::EnglishUse().kept, 0);
    EXPECT_EQ(PersonalWords::EnglishUse().typedInSinhala, 0);
}

TEST(Candidates, OneIsWhatWasTyped) {
    EXPECT_EQ(Candidate().kind, Candidate::Kind::typed);
    EXPECT_FALSE(Candidate().isLearnt);
    EXPECT_EQ(CandidateLimit::least, 3U);
    EXPECT_EQ(CandidateLimit::usual, 6U);
    EXPECT_EQ(CandidateLimit::most, 9U);
}

TEST(CandidateTypingValues, TheFirstRowIsHighlightedAndNothingWasAskedFor) {
    EXPECT_EQ(CandidateLine().highlighted, 0U);
    EXPECT_EQ(CandidateRequest().generation, 0U);
}

TEST(WordsDocument, AProblemIsOfNoLine) {
    EXPECT_EQ(WordsDocument::Problem().line, 0U);
    EXPECT_EQ(WordsDocument::largest, 16U << 20);
}

} // namespace

} // namespace vanoka
