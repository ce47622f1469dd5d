#include "Handles.h"

#include <array>
#include <cstdlib>
#include <limits>
#include <malloc.h>
#include <new>

/// Memory that runs out at any allocation of any call: the call says so and has changed nothing.
namespace vanoka {

namespace {

constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
std::size_t allocationsLeft = unlimited;

void* allocated(std::size_t size) {
    if (allocationsLeft != unlimited && allocationsLeft-- == 0) {
        allocationsLeft = 0;
        throw std::bad_alloc();
    }
    if (void* memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

} // namespace

} // namespace vanoka

void* operator new(std::size_t size) {
    return vanoka::allocated(size);
}
/// Sorting asks so. What a sanitizer has in its place does not go through the other one.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return vanoka::allocated(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace vanoka {

namespace {

/// Performs a call with room for no allocation, for one, and so on until it succeeds. `expectUnchanged` looks
/// after each failure.
template <class Call, class Look>
void expectToSurvive(Call call, Look expectUnchanged) {
    for (std::size_t allocations = 0;; ++allocations) {
        allocationsLeft = allocations;
        const vanoka_status status = call();
        allocationsLeft = unlimited;
        if (status == VANOKA_OK)
            return;
        ASSERT_EQ(status, VANOKA_NO_MEMORY) << allocations;
        ASSERT_NO_FATAL_FAILURE(expectUnchanged());
        ASSERT_LT(allocations, 100'000U);
    }
}

class ShortMemory : public testing::Test {
protected:
    test::AnswerHandle answer = test::created<test::AnswerHandle>(vanoka_answer_create);
    test::SettingsHandle settings = test::created<test::SettingsHandle>(vanoka_settings_create);
    test::TypingHandle typing = test::created<test::TypingHandle>(vanoka_typing_create, settings.get());

    void expectNoAnswer() const { ASSERT_EQ(vanoka_answer_count(answer.get()), 0U); }

    /// Fails unless the keys are these.
    void expectComposing(std::string_view keys) {
        const auto own = test::created<test::AnswerHandle>(vanoka_answer_create);
        ASSERT_EQ(vanoka_typing_composition(typing.get(), own.get()), VANOKA_OK);
        const std::vector<std::string> texts = test::textsOf(own.get());
        ASSERT_EQ(texts.empty() ? "" : texts[0], keys);
    }

    template <class Call>
    void expectAnsweringToSurvive(Call call) {
        answer = test::created<test::AnswerHandle>(vanoka_answer_create); // which has no room yet
        expectToSurvive([&] { return call(answer.get()); }, [this] { expectNoAnswer(); });
    }

    template <class Owner, class Create>
    static void expectCreationToSurvive(Create create) {
        typename Owner::pointer handle = nullptr;
        std::size_t failures = 0;
        expectToSurvive([&] { return create(&handle); },
                        [&] {
                            ++failures;
                            ASSERT_EQ(handle, nullptr);
                        });
        ASSERT_GT(failures, 0U) << "the library takes its memory from elsewhere";
        const Owner owner(handle);
        ASSERT_NE(handle, nullptr);
    }
};

TEST_F(ShortMemory, TypingLosesAndDoublesNothing) {
    const std::string keys = "shreemathiyanee"; // more than a string holds without the heap
    for (std::size_t typed = 0; typed < keys.size(); ++typed) {
        std::int32_t consumed = 7;
        expectToSurvive(
            [&] {
                return vanoka_typing_press(typing.get(), VANOKA_OTHER_KEY, 0, &keys[typed], 1, &consumed,
                                           answer.get());
            },
            [&] {
                ASSERT_EQ(consumed, 0);
                ASSERT_NO_FATAL_FAILURE(expectNoAnswer());
                expectComposing(keys.substr(0, typed));
            });
        ASSERT_NO_FATAL_FAILURE(expectComposing(keys.substr(0, typed + 1)));
    }
    const auto expectAll = [&] { expectComposing(keys); };
    answer = test::created<test::AnswerHandle>(vanoka_answer_create);
    expectToSurvive([&] { return vanoka_typing_end(typing.get(), answer.get()); }, expectAll);
    ASSERT_EQ(vanoka_answer_count(answer.get()), 1U);
    EXPECT_EQ(vanoka_answer_items(answer.get())->kind, VANOKA_INSERT);
}

TEST_F(ShortMemory, Answers) {
    expectAnsweringToSurvive(
        [&](vanoka_answer* own) { return vanoka_settings_document(settings.get(), own); });
    expectAnsweringToSurvive(
        [&](vanoka_answer* own) { return vanoka_settings_letters(settings.get(), own); });
    expectAnsweringToSurvive(
        [&](vanoka_answer* own) { return vanoka_settings_keys(settings.get(), "\u0D9A", 3, own); });
    expectAnsweringToSurvive(
        [&](vanoka_answer* own) { return vanoka_settings_check(settings.get(), "q", 1, "\u0D9A", 3, own); });
    expectAnsweringToSurvive(
        [&](vanoka_answer* own) { return vanoka_settings_long_press(settings.get(), "k", 1, own); });
    expectAnsweringToSurvive(
        [&](vanoka_answer* own) { return vanoka_settings_transliterate(settings.get(), "amma", 4, own); });
}

TEST_F(ShortMemory, Creations) {
    const std::string list = "\u0DB8\u0DB8\t10\nmama\t5\nok\tchat\n";
    const auto from = [&](auto create) {
        return [create, &list](auto** handle) { return create(list.data(), list.size(), handle); };
    };
    expectCreationToSurvive<test::AnswerHandle>(vanoka_answer_create);
    expectCreationToSurvive<test::SettingsHandle>(vanoka_settings_create);
    expectCreationToSurvive<test::TypingHandle>(
        [this](auto** handle) { return vanoka_typing_create(settings.get(), handle); });
    expectCreationToSurvive<test::WordsHandle>(from(vanoka_words_create));
    expectCreationToSurvive<test::EnglishHandle>(from(vanoka_english_create));
    expectCreationToSurvive<test::EmojiHandle>(from(vanoka_emoji_create));
    expectCreationToSurvive<test::CountsHandle>(from(vanoka_counts_create));
    expectCreationToSurvive<test::DecoderHandle>([&](auto** handle) {
        const char* const lists[] = {list.data()};
        const std::size_t sizes[] = {list.size()};
        return vanoka_decoder_create(lists, sizes, 1, handle);
    });
    expectCreationToSurvive<test::SuggestingHandle>(
        [&](auto** handle) { return vanoka_suggesting_create(settings.get(), handle); });
    expectCreationToSurvive<test::LearntHandle>([](auto** handle) { return vanoka_learnt_create(handle); });
    const auto learnt = test::created<test::LearntHandle>(vanoka_learnt_create);
    ASSERT_EQ(vanoka_learnt_learn(learnt.get(), "mama", 4, "\u0DB8\u0DB8", 6), VANOKA_OK);
    expectCreationToSurvive<test::PersonalHandle>(
        [&](auto** handle) { return vanoka_learnt_personal(learnt.get(), handle); });
    expectCreationToSurvive<test::LayoutHandle>([](auto** handle) {
        const double centers[] = {0, 0, 1, 0};
        return vanoka_layout_create("am", 2, centers, 2, handle);
    });
}

TEST_F(ShortMemory, Lists) {
    const std::string list = "\u0DB8\u0DB8\t10\nmama\t5\nok\tchat\n";
    const auto words = test::created<test::WordsHandle>(vanoka_words_create, list.data(), list.size());
    const auto english = test::created<test::EnglishHandle>(vanoka_english_create, list.data(), list.size());
    const auto emoji = test::created<test::EmojiHandle>(vanoka_emoji_create, list.data(), list.size());
    const auto candidates = test::created<test::CandidatesHandle>(
        vanoka_candidates_create, words.get(), english.get(), emoji.get(), "", std::size_t{0});
    expectAnsweringToSurvive([&](vanoka_answer* own) {
        return vanoka_words_suggest(words.get(), nullptr, "\u0DB8\u0DCA", 6, 5, own);
    });
    expectAnsweringToSurvive(
        [&](vanoka_answer* own) { return vanoka_emoji_match(emoji.get(), "\u0DB8\u0DB8", 6, own); });
    expectAnsweringToSurvive([&](vanoka_answer* own) {
        return vanoka_candidates_find(candidates.get(), nullptr, "mama", 4, "\u0DB8\u0DB8", 6, 6, own);
    });
    expectAnsweringToSurvive([&](vanoka_answer* own) {
        return vanoka_settings_editor(settings.get(), "\u0D9A", 3, "zq", 2, own);
    });
    std::int32_t keeps = 7;
    expectToSurvive(
        [&] {
            return vanoka_english_keeps(english.get(), "mama", 4, "\u0DB8\u0DB8", 6, words.get(), 0, 0,
                                        &keeps);
        },
        [&] { ASSERT_EQ(keeps, 0); });
}

/// What is kept at hand for the next time is there after the first.
TEST(GivenMemory, IsTakenBack) {
    const auto inUse = [] { return ::mallinfo2().uordblks; };
    const std::size_t none = inUse();
    std::array<void*, 10> blocks{};
    const auto give = [&blocks] {
        for (void*& block : blocks)
            block = vanoka_alloc(1000);
    };
    const auto take = [&blocks] {
        for (void* block : blocks)
            vanoka_free(block);
    };
    give();
    const bool isCounted = inUse() > none;
    take();
    if (!isCounted)
        GTEST_SKIP() << "does not apply: a sanitizer counts memory in its own way";
    const std::size_t before = inUse();
    give();
    take();
    EXPECT_LT(inUse(), before + 1000) << "a block of ten";
}

} // namespace

} // namespace vanoka
