#include "LetterEditor.h"

#include "Letters.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

class LetterEditorTest : public testing::Test {
protected:
    LetterEditor editor(const char* id, std::string draft = {}) {
        return {*SinglishScheme::letter(id), settings, std::move(draft)};
    }
    std::vector<std::string> keysOf(const char* id) const {
        return settings.activeKeysFor(*SinglishScheme::letter(id));
    }

    MemoryUserDefaults defaults;
    SinglishSettings settings{defaults};
};

using Keys = std::vector<std::string>;

TEST_F(LetterEditorTest, TheHeaderShowsTheLetterItsKindAndAnExample) {
    struct Row {
        const char* letter;
        std::string display, kind, example;
    };
    const std::vector<Row> rows = {
        {aa, aa, "Vowel", "kaa \u2192 \u0D9A\u0DCF"},
        {ka, ka, "Consonant", "ka \u2192 \u0D9A"},
        {binduwa, "\u25CC\u0D82", "Sign", "kax \u2192 \u0D9A\u0D82"},
    };
    for (const Row& row : rows) {
        const LetterEditor shown = editor(row.letter);
        EXPECT_EQ(shown.letterText(), (StyledText{row.display, {.role = FontRole::system, .size = 56}}));
        EXPECT_EQ(shown.kind(), (StyledText{row.kind, {FontRole::headline}}));
        EXPECT_EQ(shown.example(), (StyledText{row.example, {}, ColourRole::secondary}));
    }
}

TEST_F(LetterEditorTest, TheExampleTakesTheFirstKeyThatTypesTheLetter) {
    EXPECT_EQ(editor(kha).example().text, std::string("kha \u2192 ") + kha);
    settings.setBuiltIn("kh", false);
    EXPECT_EQ(editor(kha).example().text, std::string("Ka \u2192 ") + kha);
}

TEST_F(LetterEditorTest, TheHeaderWarnsOfALetterWithoutAKey) {
    settings.setBuiltIn("k", false);
    EXPECT_EQ(editor(ka).example(),
              (StyledText{"No key types this letter right now", {}, ColourRole::orange}));
    settings.setBuiltIn("k", true);
    settings.add("k", aa);
    EXPECT_EQ(editor(ka).example().colour, ColourRole::orange);
}

TEST_F(LetterEditorTest, ListsTheLettersKeys) {
    settings.add("q", kha);
    settings.add("K", ka);
    const auto rows = editor(kha).keyRows();
    const auto states = settings.keysFor(*SinglishScheme::letter(kha));
    ASSERT_EQ(rows.size(), 3U);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].state, states[i]);
        EXPECT_EQ(rows[i].letter.id, kha);
    }
    EXPECT_EQ(rows[0].keyText().text, "kh");
    EXPECT_EQ(rows[1].note()->text, std::string("now types ") + ka);
    EXPECT_EQ(rows[2].note()->text, "Your key");
}

TEST_F(LetterEditorTest, HasItsTexts) {
    EXPECT_EQ(LetterEditor::keysTitle(), (StyledText{"Keys", {FontRole::headline}, ColourRole::secondary}));
    EXPECT_EQ(LetterEditor::addTitle(),
              (StyledText{"Add your own key", {FontRole::headline}, ColourRole::secondary}));
    EXPECT_EQ(editor(ka, "zq").field(),
              (TextField{"New key", "For example zq", {.role = FontRole::body, .isMonospaced = true}, "zq"}));
    EXPECT_EQ(editor(ka).footnote(),
              (StyledText{"English letters only, up to 6. Capitals count: L and l are different keys.",
                          {FontRole::footnote},
                          ColourRole::secondary}));
}

TEST_F(LetterEditorTest, TellsWhatTheDraftWouldDo) {
    struct Row {
        const char* letter;
        std::string draft, message;
        ColourRole colour;
        bool canBeAdded;
    };
    const std::vector<Row> rows = {
        {ka, "", std::string("Type the letters you want to press for ") + ka + ".", ColourRole::secondary,
         false},
        {binduwa, "", "Type the letters you want to press for \u25CC\u0D82.", ColourRole::secondary, false},
        {ka, "k1", "Use English letters only", ColourRole::red, false},
        {ka, " k", "Use English letters only", ColourRole::red, false},
        {ka, " ", "Use English letters only", ColourRole::red, false},
        {ka, ka, "Use English letters only", ColourRole::red, false},
        {ka, "1234567", "Use English letters only", ColourRole::red, false},
        {ka, "abcdefg", "Use at most 6 letters", ColourRole::red, false},
        {ka, "k", "This letter already has that key", ColourRole::red, false},
        {ka, "kh",
         std::string("kha \u2192 ") + ka + "  \u00B7  kh currently types " + kha + "; it will type " + ka +
             " instead.",
         ColourRole::orange, true},
        {ka, "x",
         std::string("xa \u2192 ") + ka + "  \u00B7  x currently types \u25CC\u0D82; it will type " + ka +
             " instead.",
         ColourRole::orange, true},
        {binduwa, "k",
         std::string("kak \u2192 \u0D9A\u0D82  \u00B7  k currently types ") + ka +
             "; it will type \u25CC\u0D82 instead.",
         ColourRole::orange, true},
        {ka, "q", std::string("qa \u2192 ") + ka, ColourRole::secondary, true},
        {ka, "Q", std::string("Qa \u2192 ") + ka, ColourRole::secondary, true},
        {aa, "q", "kq \u2192 \u0D9A\u0DCF", ColourRole::secondary, true},
        {ka, "qwerty", std::string("qwertya \u2192 ") + ka, ColourRole::secondary, true},
    };
    for (const Row& row : rows) {
        const LetterEditor shown = editor(row.letter, row.draft);
        EXPECT_EQ(shown.message(), (StyledText{row.message, {FontRole::callout}, row.colour})) << row.draft;
        EXPECT_EQ(shown.addButton(), (Button{.title = "Add", .isEnabled = row.canBeAdded, .isDefault = true}))
            << row.draft;
    }
}

TEST_F(LetterEditorTest, AddingEmptiesTheField) {
    LetterEditor shown = editor(ka, "q");
    shown.add();
    EXPECT_EQ(shown.draft(), "");
    EXPECT_EQ(keysOf(ka), (Keys{"k", "q"}));
    EXPECT_FALSE(shown.addButton().isEnabled);
}

TEST_F(LetterEditorTest, ARefusedDraftStaysWithItsMessage) {
    for (const char* draft : {"", "k1", "abcdefg", "k"}) {
        LetterEditor shown = editor(ka, draft);
        const StyledText message = shown.message();
        shown.add();
        EXPECT_EQ(shown.draft(), draft);
        EXPECT_EQ(shown.message(), message);
    }
    EXPECT_TRUE(settings.customization().isEmpty());
}

TEST_F(LetterEditorTest, AnAddedKeyLeavesItsFormerLetter) {
    LetterEditor shown = editor(ka, "kh");
    shown.add();
    EXPECT_EQ(keysOf(ka), (Keys{"k", "kh"}));
    EXPECT_EQ(keysOf(kha), (Keys{"K"}));
    const LetterEditor former = editor(kha);
    ASSERT_EQ(former.keyRows().size(), 2U);
    EXPECT_TRUE(former.keyRows().front().keyText().isStruckThrough);
    perform(former.keyRows().front().edit(), settings);
    EXPECT_EQ(keysOf(kha), (Keys{"kh", "K"}));
    EXPECT_EQ(keysOf(ka), (Keys{"k"}));
    EXPECT_TRUE(settings.customization().isEmpty());
}

} // namespace

} // namespace vanoka
