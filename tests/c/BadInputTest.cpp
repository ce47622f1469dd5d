#include "Handles.h"

#include <array>
#include <cstdint>
#include <functional>
#include <limits>

/// What no caller should pass: every call says so, changes nothing and leaves its answer empty.
namespace vanoka {

namespace {

constexpr std::string_view illFormed = "ab\xC3";
constexpr std::size_t huge = std::numeric_limits<std::size_t>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// One of everything, and an answer that holds something.
class BadInput : public testing::Test {
protected:
    BadInput() {
        EXPECT_EQ(vanoka_settings_letters(settings.get(), answer.get()), VANOKA_OK);
        EXPECT_GT(vanoka_answer_count(answer.get()), 0U);
    }

    /// Fails unless the call, whose last argument would be the answer, does.
    template <class Call, class... Arguments>
    void expect(vanoka_status status, Call call, Arguments... arguments) {
        EXPECT_EQ(vanoka_settings_letters(settings.get(), answer.get()), VANOKA_OK);
        EXPECT_EQ(call(arguments..., answer.get()), status);
        EXPECT_EQ(vanoka_answer_count(answer.get()), 0U);
        EXPECT_EQ(vanoka_answer_items(answer.get()), nullptr);
        EXPECT_EQ(call(arguments..., nullptr), VANOKA_BAD_ARGUMENT) << "nowhere to answer";
    }

    /// Fails unless the creation, whose last argument would be the handle, does and leaves null.
    template <class Handle, class Create, class... Arguments>
    void expectNoHandle(vanoka_status status, Create create, Arguments... arguments) {
        auto* handle = reinterpret_cast<Handle*>(this);
        EXPECT_EQ(create(arguments..., &handle), status);
        EXPECT_EQ(handle, nullptr);
        EXPECT_EQ(create(arguments..., nullptr), VANOKA_BAD_ARGUMENT) << "nowhere to put it";
    }

    template <class Handle, class Create>
    void expectBadListsRefused(Create create) {
        expectNoHandle<Handle>(VANOKA_BAD_ARGUMENT, create, nullptr, std::size_t{1});
        expectNoHandle<Handle>(VANOKA_TOO_LARGE, create, "", std::size_t{VANOKA_LARGEST_LIST} + 1);
        expectNoHandle<Handle>(VANOKA_TOO_LARGE, create, "", huge);
        Handle* handle = nullptr;
        EXPECT_EQ(create(nullptr, 0, &handle), VANOKA_OK) << "null is an empty list";
        EXPECT_NE(handle, nullptr);
        handle_ = handle;
    }
    void* handle_ = nullptr;

    /// Fails unless a text that a call takes first is refused as it must be.
    template <class Call>
    void expectBadTextsRefused(Call call) {
        expect(VANOKA_BAD_ARGUMENT, call, nullptr, std::size_t{1});
        expect(VANOKA_ILL_FORMED, call, illFormed.data(), illFormed.size());
        expect(VANOKA_TOO_LARGE, call, "", std::size_t{VANOKA_LARGEST_TEXT} + 1);
        expect(VANOKA_TOO_LARGE, call, "", huge);
    }

    test::AnswerHandle answer = test::created<test::AnswerHandle>(vanoka_answer_create);
    test::SettingsHandle settings = test::created<test::SettingsHandle>(vanoka_settings_create);
    test::TypingHandle typing = test::created<test::TypingHandle>(vanoka_typing_create, settings.get());
    test::WordsHandle words = test::created<test::WordsHandle>(vanoka_words_create, "", std::size_t{0});
    test::EnglishHandle english =
        test::created<test::EnglishHandle>(vanoka_english_create, "", std::size_t{0});
    test::EmojiHandle emoji = test::created<test::EmojiHandle>(vanoka_emoji_create, "", std::size_t{0});
};

TEST_F(BadInput, NullIsReleasedAndAskedForItsSize) {
    vanoka_answer_release(nullptr);
    vanoka_settings_release(nullptr);
    vanoka_typing_release(nullptr);
    vanoka_words_release(nullptr);
    vanoka_english_release(nullptr);
    vanoka_emoji_release(nullptr);
    vanoka_personal_release(nullptr);
    vanoka_candidates_release(nullptr);
    vanoka_layout_release(nullptr);
    vanoka_counts_release(nullptr);
    vanoka_decoder_release(nullptr);
    vanoka_free(nullptr);
    EXPECT_EQ(vanoka_answer_count(nullptr), 0U);
    EXPECT_EQ(vanoka_answer_items(nullptr), nullptr);
    EXPECT_EQ(vanoka_words_size(nullptr), 0);
    EXPECT_EQ(vanoka_words_memory(nullptr), 0U);
    EXPECT_EQ(vanoka_english_size(nullptr), 0);
    EXPECT_EQ(vanoka_emoji_size(nullptr), 0);
    EXPECT_EQ(vanoka_counts_size(nullptr), 0);
    EXPECT_EQ(vanoka_decoder_size(nullptr), 0);
    EXPECT_EQ(vanoka_decoder_memory(nullptr), 0U);
    EXPECT_EQ(vanoka_alloc(huge), nullptr);
    EXPECT_EQ(vanoka_answer_create(nullptr), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_settings_create(nullptr), VANOKA_BAD_ARGUMENT);
}

TEST_F(BadInput, NoSettings) {
    EXPECT_EQ(vanoka_settings_load(nullptr, "", 0), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_settings_remove(nullptr, "k", 1), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_settings_set_built_in(nullptr, "k", 1, 1), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_settings_reset(nullptr), VANOKA_BAD_ARGUMENT);
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_document, nullptr);
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_letters, nullptr);
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_keys, nullptr, "\u0D9A", std::size_t{3});
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_check, nullptr, "k", std::size_t{1}, "\u0D9A",
           std::size_t{3});
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_add, nullptr, "k", std::size_t{1}, "\u0D9A", std::size_t{3});
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_long_press, nullptr, "k", std::size_t{1});
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_transliterate, nullptr, "k", std::size_t{1});
}

TEST_F(BadInput, TextsForSettings) {
    const auto with = [this](auto call) {
        return [this, call](const char* text, std::size_t size, vanoka_answer* reply) {
            return call(settings.get(), text, size, reply);
        };
    };
    expectBadTextsRefused(with(vanoka_settings_keys));
    expectBadTextsRefused(with(vanoka_settings_long_press));
    for (const auto edit :
         {vanoka_settings_check, +[](const vanoka_settings* edited, const char* key, std::size_t keySize,
                                     const char* letter, std::size_t letterSize, vanoka_answer* reply) {
              return vanoka_settings_add(const_cast<vanoka_settings*>(edited), key, keySize, letter,
                                         letterSize, reply);
          }}) {
        expectBadTextsRefused([&](const char* text, std::size_t size, vanoka_answer* reply) {
            return edit(settings.get(), text, size, "\u0D9A", 3, reply);
        });
        expectBadTextsRefused([&](const char* text, std::size_t size, vanoka_answer* reply) {
            return edit(settings.get(), "q", 1, text, size, reply);
        });
        expect(VANOKA_BAD_ARGUMENT, edit, settings.get(), "q", std::size_t{1}, "q", std::size_t{1});
    }
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_keys, settings.get(), "no letter", std::size_t{9});
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_transliterate, settings.get(), nullptr, std::size_t{1});
    expect(VANOKA_TOO_LARGE, vanoka_settings_transliterate, settings.get(), "", huge);

    EXPECT_EQ(vanoka_settings_remove(settings.get(), nullptr, 1), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_settings_remove(settings.get(), illFormed.data(), illFormed.size()), VANOKA_ILL_FORMED);
    EXPECT_EQ(vanoka_settings_remove(settings.get(), "", huge), VANOKA_TOO_LARGE);
    EXPECT_EQ(vanoka_settings_set_built_in(settings.get(), nullptr, 1, 0), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_settings_set_built_in(settings.get(), "no key", 6, 0), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_settings_set_built_in(settings.get(), illFormed.data(), illFormed.size(), 0),
              VANOKA_ILL_FORMED);
    EXPECT_EQ(vanoka_settings_load(settings.get(), nullptr, 1), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_settings_load(settings.get(), "", huge), VANOKA_TOO_LARGE);

    EXPECT_EQ(vanoka_settings_document(settings.get(), answer.get()), VANOKA_OK);
    EXPECT_EQ(test::textsOf(answer.get()), std::vector<std::string>{""}) << "nothing has changed";
}

TEST_F(BadInput, IllFormedTextIsReadAsItIs) {
    EXPECT_EQ(vanoka_settings_transliterate(settings.get(), "ka\xC3", 3, answer.get()), VANOKA_OK);
    EXPECT_EQ(test::textsOf(answer.get()), std::vector<std::string>{"\u0D9A\xC3"});
}

TEST_F(BadInput, ADamagedDocumentStaysUntilAnEdit) {
    EXPECT_EQ(vanoka_settings_load(settings.get(), illFormed.data(), illFormed.size()), VANOKA_ILL_FORMED);
    EXPECT_EQ(vanoka_settings_load(settings.get(), illFormed.data(), illFormed.size()), VANOKA_ILL_FORMED);
    EXPECT_EQ(vanoka_settings_remove(settings.get(), "q", 1), VANOKA_OK) << "which edits nothing";
    EXPECT_EQ(vanoka_settings_document(settings.get(), answer.get()), VANOKA_OK);
    EXPECT_EQ(test::textsOf(answer.get()), std::vector{std::string(illFormed)});
    EXPECT_EQ(vanoka_settings_reset(settings.get()), VANOKA_OK);
    EXPECT_EQ(vanoka_settings_document(settings.get(), answer.get()), VANOKA_OK);
    EXPECT_EQ(test::textsOf(answer.get()), std::vector<std::string>{""});
}

TEST_F(BadInput, Typing) {
    expectNoHandle<vanoka_typing>(VANOKA_BAD_ARGUMENT, vanoka_typing_create, nullptr);
    std::int32_t consumed = 7;
    EXPECT_EQ(vanoka_typing_press(typing.get(), VANOKA_OTHER_KEY, 0, "k", 1, &consumed, answer.get()),
              VANOKA_OK);

    expect(VANOKA_BAD_ARGUMENT, vanoka_typing_press, nullptr, 0U, 0U, "k", std::size_t{1}, &consumed);
    EXPECT_EQ(consumed, 0);
    expect(VANOKA_BAD_ARGUMENT, vanoka_typing_press, typing.get(), 0U, 0U, nullptr, std::size_t{1},
           &consumed);
    expect(VANOKA_BAD_ARGUMENT, vanoka_typing_press, typing.get(), 0U, 0U, "k", std::size_t{1}, nullptr);
    expect(VANOKA_TOO_LARGE, vanoka_typing_press, typing.get(), 0U, 0U, "k", huge, &consumed);
    expect(VANOKA_BAD_ARGUMENT, vanoka_typing_end, nullptr);
    expect(VANOKA_BAD_ARGUMENT, vanoka_typing_forget, nullptr);
    expect(VANOKA_BAD_ARGUMENT, vanoka_typing_composition, nullptr);
    expect(VANOKA_BAD_ARGUMENT, vanoka_typing_choose, nullptr, "k", std::size_t{1});
    expectBadTextsRefused([this](const char* text, std::size_t size, vanoka_answer* reply) {
        return vanoka_typing_choose(typing.get(), text, size, reply);
    });

    EXPECT_EQ(vanoka_typing_composition(typing.get(), answer.get()), VANOKA_OK);
    EXPECT_EQ(test::textsOf(answer.get()), (std::vector<std::string>{"k", "\u0D9A\u0DCA"}))
        << "nothing is lost";
}

TEST_F(BadInput, OfTwoProblemsTheFirstArgumentsIsTold) {
    expect(VANOKA_BAD_ARGUMENT, vanoka_typing_choose, nullptr, "", huge);
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_transliterate, nullptr, "", huge);
    expect(VANOKA_BAD_ARGUMENT, vanoka_learnt_import, nullptr, "", huge);
    EXPECT_EQ(vanoka_settings_load(nullptr, "", huge), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_settings_remove(nullptr, "", huge), VANOKA_BAD_ARGUMENT);
}

TEST_F(BadInput, IllFormedCharactersEndTheCompositionAndAreTheFields) {
    std::int32_t consumed = 7;
    EXPECT_EQ(vanoka_typing_press(typing.get(), VANOKA_OTHER_KEY, 0, "k", 1, &consumed, answer.get()),
              VANOKA_OK);
    EXPECT_EQ(vanoka_typing_press(typing.get(), ~0U, 0, illFormed.data(), illFormed.size(), &consumed,
                                  answer.get()),
              VANOKA_OK);
    EXPECT_EQ(consumed, 0);
    EXPECT_EQ(test::textsOf(answer.get()), std::vector<std::string>{"\u0D9A\u0DCA"});
}

TEST_F(BadInput, Lists) {
    expectBadListsRefused<vanoka_words>(vanoka_words_create);
    vanoka_words_release(static_cast<vanoka_words*>(handle_));
    expectBadListsRefused<vanoka_english>(vanoka_english_create);
    vanoka_english_release(static_cast<vanoka_english*>(handle_));
    expectBadListsRefused<vanoka_emoji>(vanoka_emoji_create);
    vanoka_emoji_release(static_cast<vanoka_emoji*>(handle_));
    expectBadListsRefused<vanoka_counts>(vanoka_counts_create);
    vanoka_counts_release(static_cast<vanoka_counts*>(handle_));

    expect(VANOKA_BAD_ARGUMENT, vanoka_words_suggest, nullptr, words.get(), "", std::size_t{0}, 5);
    expect(VANOKA_BAD_ARGUMENT, vanoka_emoji_match, nullptr, "", std::size_t{0});
    expectBadTextsRefused([this](const char* text, std::size_t size, vanoka_answer* reply) {
        return vanoka_words_suggest(words.get(), nullptr, text, size, 5, reply);
    });
    expectBadTextsRefused([this](const char* text, std::size_t size, vanoka_answer* reply) {
        return vanoka_emoji_match(emoji.get(), text, size, reply);
    });
}

TEST_F(BadInput, TheEnglishRule) {
    std::int32_t keeps = 7;
    const auto ask = [&](const vanoka_english* list, std::string_view word, std::string_view over,
                         const vanoka_words* sinhala, std::int32_t* result) {
        return vanoka_english_keeps(list, word.data(), word.size(), over.data(), over.size(), sinhala, 1, 0,
                                    result);
    };
    EXPECT_EQ(ask(nullptr, "word", "", words.get(), &keeps), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(keeps, 0);
    EXPECT_EQ(ask(english.get(), "word", "", nullptr, &keeps), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(ask(english.get(), "word", "", words.get(), nullptr), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(ask(english.get(), illFormed, "", words.get(), &keeps), VANOKA_ILL_FORMED);
    EXPECT_EQ(ask(english.get(), "word", illFormed, words.get(), &keeps), VANOKA_ILL_FORMED);
    EXPECT_EQ(keeps, 0);
    EXPECT_EQ(ask(english.get(), "word", "", words.get(), &keeps), VANOKA_OK);
    EXPECT_EQ(keeps, 1);
}

/// Counts that would overflow in every sum and multiple.
TEST_F(BadInput, CountsAreHeldToARange) {
    const std::string largest = "\t9223372036854775807\n", least = "\t-9223372036854775808\n";
    const std::string list =
        "\u0DB8\u0DB8" + largest + "\u0DB8\u0DB8" + largest + "\u0DB8" + least + "mama" + largest;
    const auto sinhala = test::created<test::WordsHandle>(vanoka_words_create, list.data(), list.size());
    EXPECT_EQ(vanoka_words_suggest(sinhala.get(), sinhala.get(), "\u0DB8\u0DCA", 6,
                                   std::numeric_limits<std::int32_t>::max(), answer.get()),
              VANOKA_OK);
    EXPECT_EQ(test::textsOf(answer.get()), (std::vector<std::string>{"\u0DB8\u0DB8", "\u0DB8"}));
    EXPECT_EQ(vanoka_words_suggest(sinhala.get(), nullptr, "\u0DB8", 3,
                                   std::numeric_limits<std::int32_t>::min(), answer.get()),
              VANOKA_OK);
    EXPECT_EQ(vanoka_answer_count(answer.get()), 0U);

    const auto latin = test::created<test::EnglishHandle>(vanoka_english_create, list.data(), list.size());
    std::int32_t keeps = 7;
    EXPECT_EQ(vanoka_english_keeps(latin.get(), "mama", 4, "\u0DB8\u0DB8", 6, sinhala.get(), INT64_MAX,
                                   INT64_MAX, &keeps),
              VANOKA_OK);
    EXPECT_EQ(keeps, 0);
}

TEST_F(BadInput, Candidates) {
    const std::string list = "mama\t9223372036854775807\n";
    const auto sinhala = test::created<test::WordsHandle>(vanoka_words_create, list.data(), list.size());
    const auto own = test::created<test::PersonalHandle>(vanoka_personal_create, sinhala.get(), list.data(),
                                                         list.size(), list.data(), list.size());
    const auto candidates = test::created<test::CandidatesHandle>(
        vanoka_candidates_create, sinhala.get(), nullptr, nullptr, illFormed.data(), illFormed.size());
    expectNoHandle<vanoka_personal>(VANOKA_BAD_ARGUMENT, vanoka_personal_create, nullptr, nullptr,
                                    std::size_t{1}, "", std::size_t{0});
    expectNoHandle<vanoka_personal>(VANOKA_TOO_LARGE, vanoka_personal_create, nullptr, "", std::size_t{0}, "",
                                    huge);
    expectNoHandle<vanoka_candidates>(VANOKA_BAD_ARGUMENT, vanoka_candidates_create, nullptr, nullptr,
                                      nullptr, nullptr, std::size_t{1});
    expectNoHandle<vanoka_candidates>(VANOKA_TOO_LARGE, vanoka_candidates_create, nullptr, nullptr, nullptr,
                                      "", huge);
    expect(VANOKA_BAD_ARGUMENT, vanoka_candidates_find, nullptr, nullptr, "k", std::size_t{1}, "k",
           std::size_t{1}, 6);
    for (const bool isKeys : {true, false})
        expectBadTextsRefused([&](const char* text, std::size_t size, vanoka_answer* reply) {
            return isKeys ? vanoka_candidates_find(candidates.get(), own.get(), text, size, "k", 1, 6, reply)
                          : vanoka_candidates_find(candidates.get(), own.get(), "k", 1, text, size, 6, reply);
        });
    for (const std::int32_t limit :
         {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(vanoka_candidates_find(candidates.get(), own.get(), "ma", 2, "ma", 2, limit, answer.get()),
                  VANOKA_OK);
        EXPECT_EQ(test::textsOf(answer.get()), (std::vector<std::string>{"ma", "mama"}));
    }
}

TEST_F(BadInput, Editor) {
    const std::string_view ka = "\u0D9A";
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_editor, nullptr, ka.data(), ka.size(), "", std::size_t{0});
    expect(VANOKA_BAD_ARGUMENT, vanoka_settings_editor, settings.get(), "k", std::size_t{1}, "",
           std::size_t{0});
    expectBadTextsRefused([&](const char* draft, std::size_t size, vanoka_answer* reply) {
        return vanoka_settings_editor(settings.get(), ka.data(), ka.size(), draft, size, reply);
    });
}

TEST_F(BadInput, Suggesting) {
    expectNoHandle<vanoka_suggesting>(VANOKA_BAD_ARGUMENT, vanoka_suggesting_create, nullptr);
    const auto suggesting = test::created<test::SuggestingHandle>(vanoka_suggesting_create, settings.get());
    EXPECT_EQ(vanoka_suggesting_switch(nullptr, 1, 1), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_suggesting_switch(suggesting.get(), -1, 7), VANOKA_OK);
    std::int32_t number = 7;
    EXPECT_EQ(vanoka_suggesting_needs(suggesting.get(), VANOKA_OTHER_KEY, 0, nullptr, 1, &number),
              VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(vanoka_suggesting_needs(suggesting.get(), VANOKA_OTHER_KEY, 0, "k", 1, nullptr),
              VANOKA_BAD_ARGUMENT);
    expect(VANOKA_BAD_ARGUMENT, vanoka_suggesting_press, suggesting.get(), VANOKA_OTHER_KEY, 0U, "k",
           std::size_t{1}, nullptr);
    expect(VANOKA_BAD_ARGUMENT, vanoka_suggesting_press, nullptr, VANOKA_OTHER_KEY, 0U, "k", std::size_t{1},
           &number);
    for (const auto call : {vanoka_suggesting_choose, vanoka_suggesting_forget_row}) {
        expect(VANOKA_BAD_ARGUMENT, call, nullptr, std::size_t{0});
        EXPECT_EQ(call(suggesting.get(), huge, answer.get()), VANOKA_OK) << "a row that there is not";
        EXPECT_EQ(vanoka_answer_count(answer.get()), 0U);
    }
    for (const auto call : {vanoka_suggesting_composition, vanoka_suggesting_request, vanoka_suggesting_line})
        expect(VANOKA_BAD_ARGUMENT, call, nullptr);
    for (const auto call : {vanoka_suggesting_end, vanoka_suggesting_forget})
        expect(VANOKA_BAD_ARGUMENT, call, nullptr);
}

TEST_F(BadInput, CandidatesThatAreTaken) {
    const auto suggesting = test::created<test::SuggestingHandle>(vanoka_suggesting_create, settings.get());
    std::int32_t taken = 7;
    const auto take = [&](const vanoka_item& row) {
        return vanoka_suggesting_take(suggesting.get(), 0, &row, 1, &taken);
    };
    EXPECT_EQ(take({.text = "k", .size = 1, .kind = VANOKA_TEXT}), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(taken, 0);
    EXPECT_EQ(take({.text = nullptr, .size = 1, .kind = VANOKA_WORD}), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(take({.text = illFormed.data(), .size = 3, .kind = VANOKA_WORD}), VANOKA_ILL_FORMED);
    EXPECT_EQ(take({.text = "", .size = 0, .kind = VANOKA_WORD}), VANOKA_BAD_ARGUMENT)
        << "in its place nothing would be left of what was typed";
    EXPECT_EQ(vanoka_suggesting_take(suggesting.get(), 0, nullptr, 1, &taken), VANOKA_BAD_ARGUMENT);
    const std::array<vanoka_item, 1> one = {{{.text = "k", .size = 1, .kind = VANOKA_WORD}}};
    EXPECT_EQ(vanoka_suggesting_take(suggesting.get(), 0, one.data(), huge, &taken), VANOKA_TOO_LARGE);
    EXPECT_EQ(vanoka_suggesting_take(suggesting.get(), 0, one.data(), 1, nullptr), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_suggesting_take(nullptr, 0, one.data(), 1, &taken), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_suggesting_take(suggesting.get(), -1, one.data(), 1, &taken), VANOKA_OK);
    EXPECT_EQ(taken, 0) << "nothing was asked for";
}

TEST_F(BadInput, WhatIsLearnt) {
    const auto learnt = test::created<test::LearntHandle>(vanoka_learnt_create);
    for (const auto call : {vanoka_learnt_learn, vanoka_learnt_unlearn}) {
        EXPECT_EQ(call(nullptr, "k", 1, "k", 1), VANOKA_BAD_ARGUMENT);
        EXPECT_EQ(call(learnt.get(), nullptr, 1, "k", 1), VANOKA_BAD_ARGUMENT);
        EXPECT_EQ(call(learnt.get(), "k", 1, illFormed.data(), illFormed.size()), VANOKA_ILL_FORMED);
        EXPECT_EQ(call(learnt.get(), "k", huge, "k", 1), VANOKA_TOO_LARGE);
        EXPECT_EQ(call(learnt.get(), "never seen", 10, "!", 1), VANOKA_OK) << "no word";
    }
    EXPECT_EQ(vanoka_learnt_forget(learnt.get(), illFormed.data(), illFormed.size()), VANOKA_ILL_FORMED);
    EXPECT_EQ(vanoka_learnt_forget(learnt.get(), "!", 1), VANOKA_OK);
    expect(VANOKA_BAD_ARGUMENT, vanoka_learnt_document, nullptr);
    expect(VANOKA_BAD_ARGUMENT, vanoka_learnt_import, nullptr, "", std::size_t{0});
    expect(VANOKA_TOO_LARGE, vanoka_learnt_import, learnt.get(), "", huge);
    EXPECT_EQ(vanoka_learnt_import(learnt.get(), illFormed.data(), illFormed.size(), answer.get()),
              VANOKA_OK);
    ASSERT_EQ(vanoka_answer_count(answer.get()), 1U);
    EXPECT_EQ(vanoka_answer_items(answer.get())->kind, VANOKA_REFUSED);
    expectNoHandle<vanoka_personal>(VANOKA_BAD_ARGUMENT, vanoka_learnt_personal, nullptr);
}

class BadStrokes : public BadInput {
protected:
    static constexpr std::string_view list = "ma\t9223372036854775807\nam\t-5\nat\tchat\n";

    static test::DecoderHandle decoderOf(std::string_view words) {
        const std::array lists = {words.data(), words.data()};
        const std::array sizes = {words.size(), words.size()};
        return test::created<test::DecoderHandle>(vanoka_decoder_create, lists.data(), sizes.data(),
                                                  lists.size());
    }

    vanoka_status decode(const double* points, std::size_t count, double keyWidth = 10,
                         std::int32_t limit = 5) {
        return vanoka_decoder_decode(decoder.get(), layout.get(), points, count, keyWidth, limit,
                                     counts.get(), answer.get());
    }

    static constexpr std::array<double, 6> centers = {0, 0, 10, 0, 20, 0};
    static constexpr std::array<double, 4> stroke = {10, 0, 0, 0};
    test::LayoutHandle layout = test::created<test::LayoutHandle>(vanoka_layout_create, "amt", std::size_t{3},
                                                                  centers.data(), std::size_t{3});
    test::CountsHandle counts =
        test::created<test::CountsHandle>(vanoka_counts_create, list.data(), list.size());
    test::DecoderHandle decoder = decoderOf(list);
};

TEST_F(BadStrokes, Layouts) {
    using Layout = vanoka_layout;
    const auto create = vanoka_layout_create;
    expectNoHandle<Layout>(VANOKA_BAD_ARGUMENT, create, nullptr, std::size_t{3}, centers.data(),
                           std::size_t{3});
    expectNoHandle<Layout>(VANOKA_BAD_ARGUMENT, create, "amt", std::size_t{3}, nullptr, std::size_t{3});
    expectNoHandle<Layout>(VANOKA_BAD_ARGUMENT, create, "amt", std::size_t{3}, centers.data(),
                           std::size_t{2});
    expectNoHandle<Layout>(VANOKA_BAD_ARGUMENT, create, "am", std::size_t{2}, centers.data(), std::size_t{3});
    expectNoHandle<Layout>(VANOKA_ILL_FORMED, create, illFormed.data(), illFormed.size(), centers.data(),
                           std::size_t{3});
    expectNoHandle<Layout>(VANOKA_TOO_LARGE, create, "amt", std::size_t{3}, centers.data(), huge);
    for (const double bad : {infinity, -infinity, notANumber}) {
        const std::array<double, 2> center = {0, bad};
        expectNoHandle<Layout>(VANOKA_BAD_ARGUMENT, create, "a", std::size_t{1}, center.data(),
                               std::size_t{1});
    }
}

TEST_F(BadStrokes, Decoders) {
    using Decoder = vanoka_decoder;
    const auto create = vanoka_decoder_create;
    const std::array lists = {list.data(), list.data()};
    const std::array sizes = {list.size(), list.size()};
    const std::array<const char*, 1> nothing = {nullptr};
    const std::array<std::size_t, 2> halves = {VANOKA_LARGEST_LIST / 2 + 1, VANOKA_LARGEST_LIST / 2};
    expectNoHandle<Decoder>(VANOKA_BAD_ARGUMENT, create, nullptr, sizes.data(), std::size_t{2});
    expectNoHandle<Decoder>(VANOKA_BAD_ARGUMENT, create, lists.data(), nullptr, std::size_t{2});
    expectNoHandle<Decoder>(VANOKA_BAD_ARGUMENT, create, nothing.data(), sizes.data(), std::size_t{1});
    expectNoHandle<Decoder>(VANOKA_TOO_LARGE, create, lists.data(), sizes.data(), huge);
    expectNoHandle<Decoder>(VANOKA_TOO_LARGE, create, lists.data(), halves.data(), std::size_t{2});
    for (const vanoka_weights bad : {-1, 2})
        expectNoHandle<Decoder>(VANOKA_BAD_ARGUMENT, vanoka_decoder_create_weighing, lists.data(),
                                sizes.data(), std::size_t{2}, bad);
    expectNoHandle<Decoder>(VANOKA_BAD_ARGUMENT, vanoka_decoder_create_weighing, nullptr, sizes.data(),
                            std::size_t{2}, vanoka_weights{2});
    Decoder* none = nullptr;
    EXPECT_EQ(create(nullptr, nullptr, 0, &none), VANOKA_OK);
    EXPECT_EQ(vanoka_decoder_size(none), 0);
    vanoka_decoder_release(none);
}

TEST_F(BadStrokes, Strokes) {
    expect(VANOKA_BAD_ARGUMENT, vanoka_decoder_decode, nullptr, layout.get(), stroke.data(), std::size_t{2},
           10.0, 5, counts.get());
    expect(VANOKA_BAD_ARGUMENT, vanoka_decoder_decode, decoder.get(), nullptr, stroke.data(), std::size_t{2},
           10.0, 5, counts.get());
    EXPECT_EQ(decode(nullptr, 1), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(decode(nullptr, 2), VANOKA_BAD_ARGUMENT);
    const std::vector<double> many(2 * std::size_t{VANOKA_MOST_POINTS});
    EXPECT_EQ(decode(many.data(), VANOKA_MOST_POINTS), VANOKA_OK);
    EXPECT_EQ(decode(many.data(), VANOKA_MOST_POINTS + 1), VANOKA_TOO_LARGE);
    EXPECT_EQ(decode(stroke.data(), huge), VANOKA_TOO_LARGE);
    for (const double bad : {infinity, -infinity, notANumber}) {
        const std::array<double, 6> points = {10, 0, bad, 0, 0, 0};
        EXPECT_EQ(decode(points.data(), 3), VANOKA_BAD_ARGUMENT);
        EXPECT_EQ(decode(stroke.data(), 2, bad), VANOKA_BAD_ARGUMENT);
    }
    EXPECT_EQ(decode(stroke.data(), 2, 0), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(decode(stroke.data(), 2, -1), VANOKA_BAD_ARGUMENT);
    EXPECT_EQ(vanoka_answer_count(answer.get()), 0U);
    for (const std::int32_t limit : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_EQ(decode(stroke.data(), 2, 10, limit), VANOKA_OK);
        EXPECT_EQ(vanoka_answer_count(answer.get()), 0U);
    }
    EXPECT_EQ(decode(nullptr, 0), VANOKA_OK);
}

/// The farthest that is still a number: squares and sums of these are infinite.
TEST_F(BadStrokes, FarAway) {
    const double far = std::numeric_limits<double>::max();
    const std::array<double, 6> points = {far, -far, -far, far, 0, 0};
    EXPECT_EQ(decode(points.data(), 3), VANOKA_OK);
    EXPECT_EQ(decode(points.data(), 3, far), VANOKA_OK);
    EXPECT_EQ(decode(stroke.data(), 2, std::numeric_limits<double>::denorm_min()), VANOKA_OK);
    layout = test::created<test::LayoutHandle>(vanoka_layout_create, "amt", std::size_t{3}, points.data(),
                                               std::size_t{3});
    EXPECT_EQ(decode(points.data(), 3), VANOKA_OK);
    EXPECT_EQ(decode(points.data(), 3, far), VANOKA_OK);
}

TEST_F(BadStrokes, PersonalCountsAreHeldToARange) {
    EXPECT_EQ(decode(stroke.data(), 2, 10, std::numeric_limits<std::int32_t>::max()), VANOKA_OK);
    EXPECT_EQ(test::textsOf(answer.get())[0], "ma");
}

} // namespace

} // namespace vanoka
