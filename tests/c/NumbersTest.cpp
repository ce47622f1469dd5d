#include "Handles.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string>

/// The numbers that go with texts, and how much is taken.
namespace vanoka {

namespace {

const std::string letterKha = "\u0D9B", letterKa = "\u0D9A";

/// The number of the first item of this kind that has this text, or any where it is null; -1 when there is
/// none.
std::int64_t numberOf(const vanoka_answer* answer, std::int32_t kind, const char* text = nullptr) {
    const vanoka_item* items = vanoka_answer_items(answer);
    const vanoka_item* end = items + vanoka_answer_count(answer);
    const auto* found = std::find_if(items, end, [&](const vanoka_item& item) {
        return item.kind == kind && (!text || test::textOf(item) == text);
    });
    return found == end ? -1 : found->number;
}

class Numbers : public testing::Test {
protected:
    test::AnswerHandle answer = test::created<test::AnswerHandle>(vanoka_answer_create);
    test::SettingsHandle settings = test::created<test::SettingsHandle>(vanoka_settings_create);
};

/// Programs that were compiled before, in whatever language, know these by their numbers.
TEST(Header, EveryNameKeepsItsNumber) {
    struct Row {
        std::int64_t is, was;
    };
    constexpr Row rows[] = {
        {VANOKA_OK, 0},
        {VANOKA_BAD_ARGUMENT, 1},
        {VANOKA_ILL_FORMED, 2},
        {VANOKA_TOO_LARGE, 3},
        {VANOKA_NO_MEMORY, 4},
        {VANOKA_WORD, 1},
        {VANOKA_EMOJI, 2},
        {VANOKA_TEXT, 3},
        {VANOKA_TYPED, 4},
        {VANOKA_LATIN, 5},
        {VANOKA_HIGHLIGHTED, 6},
        {VANOKA_INSERT, 10},
        {VANOKA_MARK, 11},
        {VANOKA_KEYS, 12},
        {VANOKA_PREVIEW, 13},
        {VANOKA_VOWEL, 20},
        {VANOKA_CONSONANT, 21},
        {VANOKA_SIGN, 22},
        {VANOKA_DISPLAY, 23},
        {VANOKA_BUILT_IN, 30},
        {VANOKA_ADDED, 31},
        {VANOKA_TAKEN_BY, 32},
        {VANOKA_KEY_FREE, 40},
        {VANOKA_KEY_REPLACES, 41},
        {VANOKA_KEY_EMPTY, 42},
        {VANOKA_KEY_NOT_LETTERS, 43},
        {VANOKA_KEY_TOO_LONG, 44},
        {VANOKA_KEY_ALREADY_THERE, 45},
        {VANOKA_LEARN, 50},
        {VANOKA_UNLEARN, 51},
        {VANOKA_FORGET, 52},
        {VANOKA_REFUSED, 53},
        {VANOKA_GROUP, 60},
        {VANOKA_EXAMPLE, 61},
        {VANOKA_NOTE, 62},
        {VANOKA_CONTROL_NAME, 63},
        {VANOKA_MESSAGE, 64},
        {VANOKA_FOOTNOTE, 65},
        {VANOKA_SPACE, 49},
        {VANOKA_DELETE, 51},
        {VANOKA_ESCAPE, 53},
        {VANOKA_OTHER_KEY, 0xFFFF},
        {VANOKA_SHIFT, 131072},
        {VANOKA_CONTROL, 262144},
        {VANOKA_OPTION, 524288},
        {VANOKA_COMMAND, 1048576},
        {VANOKA_BY_DISTANCE, 0},
        {VANOKA_BY_PEOPLE, 1},
        {VANOKA_ABI, 1},
        {VANOKA_LARGEST_TEXT, 16777216},
        {VANOKA_LARGEST_LIST, 268435456},
        {VANOKA_MOST_LISTS, 64},
        {VANOKA_MOST_POINTS, 1000000},
        {VANOKA_MOST_RESULTS, 1000000},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.is, row.was);
}

TEST_F(Numbers, AreZeroWhereAKindSaysNothingOfThem) {
    EXPECT_EQ(vanoka_settings_letters(settings.get(), answer.get()), VANOKA_OK);
    EXPECT_EQ(numberOf(answer.get(), VANOKA_DISPLAY), 0);
}

TEST_F(Numbers, TellWhichLettersAndKeysWereChanged) {
    EXPECT_EQ(vanoka_settings_set_built_in(settings.get(), "kh", 2, 0), VANOKA_OK);
    EXPECT_EQ(vanoka_settings_letters(settings.get(), answer.get()), VANOKA_OK);
    EXPECT_EQ(numberOf(answer.get(), VANOKA_CONSONANT, letterKha.c_str()), 1);
    EXPECT_EQ(numberOf(answer.get(), VANOKA_CONSONANT, letterKa.c_str()), 0);
    EXPECT_EQ(vanoka_settings_keys(settings.get(), letterKha.data(), letterKha.size(), answer.get()),
              VANOKA_OK);
    EXPECT_EQ(numberOf(answer.get(), VANOKA_BUILT_IN, "kh"), 0);
    EXPECT_EQ(numberOf(answer.get(), VANOKA_BUILT_IN, "K"), 1);
    EXPECT_EQ(vanoka_settings_long_press(settings.get(), "K", 1, answer.get()), VANOKA_OK);
    EXPECT_EQ(numberOf(answer.get(), VANOKA_CONSONANT, letterKha.c_str()), 0) << "says nothing there";
}

TEST_F(Numbers, TellWhetherAnExampleCanBeTyped) {
    const auto example = [&] {
        EXPECT_EQ(
            vanoka_settings_editor(settings.get(), letterKa.data(), letterKa.size(), "", 0, answer.get()),
            VANOKA_OK);
        return numberOf(answer.get(), VANOKA_EXAMPLE);
    };
    EXPECT_EQ(example(), 1);
    EXPECT_EQ(vanoka_settings_set_built_in(settings.get(), "k", 1, 0), VANOKA_OK);
    EXPECT_EQ(example(), 0);
}

TEST_F(Numbers, ADocumentOfOneByteIsADocument) {
    EXPECT_EQ(vanoka_settings_load(settings.get(), "x", 1), VANOKA_ILL_FORMED);
    EXPECT_EQ(vanoka_settings_load(settings.get(), "", 0), VANOKA_OK);
}

TEST_F(Numbers, ATextMayBeAsLongAsTheHeaderSays) {
    const std::string longest(VANOKA_LARGEST_TEXT, '.');
    EXPECT_EQ(vanoka_settings_load(settings.get(), longest.data(), longest.size()), VANOKA_ILL_FORMED);
    EXPECT_EQ(vanoka_settings_load(settings.get(), longest.data(), longest.size() + 1), VANOKA_TOO_LARGE);
}

TEST_F(Numbers, OfWaysInWhichAnEnglishWordWasMeantDecide) {
    const std::string once = "hello\t1\n", often = "hello\t9\n";
    const auto isEnglishSecond = [&](const std::string& kept, const std::string& typed) {
        const auto own = test::created<test::PersonalHandle>(vanoka_personal_create, nullptr, kept.data(),
                                                             kept.size(), typed.data(), typed.size());
        const std::string list = "\u0DC4\u0DD9\u0DBD\u0DCA\u0DBD\u0DDC\u0DBA\t5\n";
        const auto sinhala = test::created<test::WordsHandle>(vanoka_words_create, list.data(), list.size());
        const auto all = test::created<test::CandidatesHandle>(vanoka_candidates_create, sinhala.get(),
                                                               nullptr, nullptr, "", std::size_t{0});
        const std::string preview = "\u0DC4\u0DD9\u0DBD\u0DCA\u0DBD\u0DDC";
        EXPECT_EQ(vanoka_candidates_find(all.get(), own.get(), "hello", 5, preview.data(), preview.size(), 6,
                                         answer.get()),
                  VANOKA_OK);
        EXPECT_EQ(vanoka_answer_count(answer.get()), 3U);
        return vanoka_answer_items(answer.get())[1].text == std::string("hello");
    };
    EXPECT_TRUE(isEnglishSecond(often, once));
    EXPECT_FALSE(isEnglishSecond(once, often));
}

/// Four consonants, others for each number below 65,536.
std::string wordOf(std::size_t number) {
    std::string word;
    for (int digits = 0; digits < 4; ++digits, number /= 16) {
        word += letterKa;
        word.back() = static_cast<char>(letterKa.back() + static_cast<char>(number % 16));
    }
    return word;
}

TEST_F(Numbers, NoMoreWordsAreLearntThanAreKept) {
    constexpr std::size_t most = 20'000;
    const auto learnt = test::created<test::LearntHandle>(vanoka_learnt_create);
    for (std::size_t number = 0; number <= most; ++number) {
        const std::string word = wordOf(number);
        ASSERT_EQ(vanoka_learnt_learn(learnt.get(), "x", 1, word.data(), word.size()), VANOKA_OK);
    }
    EXPECT_EQ(vanoka_learnt_document(learnt.get(), answer.get()), VANOKA_OK);
    const std::string_view document = test::textOf(vanoka_answer_items(answer.get())[0]);
    constexpr std::ptrdiff_t comments = 3;
    EXPECT_EQ(std::count(document.begin(), document.end(), '\n'),
              comments + static_cast<std::ptrdiff_t>(most));
}

class SuggestingNumbers : public Numbers {
protected:
    std::int32_t press(const char* characters) {
        std::int32_t consumed = 7;
        EXPECT_EQ(vanoka_suggesting_press(suggesting.get(), VANOKA_OTHER_KEY, 0, characters, 1, &consumed,
                                          answer.get()),
                  VANOKA_OK);
        return consumed;
    }
    vanoka_status take(const vanoka_item* rows, std::size_t count) {
        EXPECT_EQ(vanoka_suggesting_request(suggesting.get(), answer.get()), VANOKA_OK);
        return vanoka_suggesting_take(suggesting.get(), numberOf(answer.get(), VANOKA_KEYS), rows, count,
                                      &taken);
    }

    test::SuggestingHandle suggesting =
        test::created<test::SuggestingHandle>(vanoka_suggesting_create, settings.get());
    std::int32_t taken = 7;
};

TEST_F(SuggestingNumbers, AsManyRowsAreTakenAsALineHolds) {
    EXPECT_EQ(vanoka_suggesting_switch(suggesting.get(), 1, 1), VANOKA_OK);
    EXPECT_EQ(press("k"), 1);
    std::array<vanoka_item, 10> rows = {};
    rows.fill({.text = "k", .size = 1, .kind = VANOKA_WORD});
    EXPECT_EQ(take(rows.data(), 10), VANOKA_TOO_LARGE);
    rows[8].size = 0;
    EXPECT_EQ(take(rows.data(), 9), VANOKA_BAD_ARGUMENT) << "the last one is empty";
    EXPECT_EQ(taken, 0);
    rows[8].size = 1;
    EXPECT_EQ(take(rows.data(), 9), VANOKA_OK);
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(vanoka_suggesting_forget_row(suggesting.get(), 9, answer.get()), VANOKA_OK);
    EXPECT_EQ(vanoka_answer_count(answer.get()), 0U) << "there is none";
    EXPECT_EQ(press("a"), 1);
    EXPECT_EQ(take(nullptr, 0), VANOKA_OK) << "there are none";
    EXPECT_EQ(taken, 1);
}

TEST_F(SuggestingNumbers, ACallThatFailsConsumesNothing) {
    std::int32_t consumed = 7;
    EXPECT_EQ(
        vanoka_suggesting_press(suggesting.get(), VANOKA_OTHER_KEY, 0, nullptr, 1, &consumed, answer.get()),
        VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(consumed, 0);
}

TEST_F(SuggestingNumbers, OnlyKeysThatMoveTheHighlightNeedCandidates) {
    EXPECT_EQ(vanoka_suggesting_switch(suggesting.get(), 1, 1), VANOKA_OK);
    EXPECT_EQ(press("k"), 1);
    std::int32_t needs = 7;
    EXPECT_EQ(vanoka_suggesting_needs(suggesting.get(), VANOKA_OTHER_KEY, 0, "a", 1, &needs), VANOKA_OK);
    EXPECT_EQ(needs, 0);
    EXPECT_EQ(vanoka_suggesting_needs(suggesting.get(), VANOKA_OTHER_KEY, 0, "\t", 1, &needs), VANOKA_OK);
    EXPECT_EQ(needs, 1);
}

} // namespace

} // namespace vanoka
