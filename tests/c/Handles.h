#pragma once

#include "vanoka.h"

#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The handles of the C interface for tests: released by themselves, never null.
namespace vanoka::test {

template <auto release>
struct Releasing {
    template <class Handle>
    void operator()(Handle* handle) const {
        release(handle);
    }
};

template <class Handle, auto release>
using Owned = std::unique_ptr<Handle, Releasing<release>>;

template <class Owner, class Create, class... Arguments>
Owner created(Create create, Arguments... arguments) {
    typename Owner::pointer handle = nullptr;
    EXPECT_EQ(create(arguments..., &handle), VANOKA_OK);
    EXPECT_NE(handle, nullptr);
    return Owner(handle);
}

using AnswerHandle = Owned<vanoka_answer, vanoka_answer_release>;
using SettingsHandle = Owned<vanoka_settings, vanoka_settings_release>;
using TypingHandle = Owned<vanoka_typing, vanoka_typing_release>;
using WordsHandle = Owned<vanoka_words, vanoka_words_release>;
using EnglishHandle = Owned<vanoka_english, vanoka_english_release>;
using EmojiHandle = Owned<vanoka_emoji, vanoka_emoji_release>;
using PersonalHandle = Owned<vanoka_personal, vanoka_personal_release>;
using CandidatesHandle = Owned<vanoka_candidates, vanoka_candidates_release>;
using SuggestingHandle = Owned<vanoka_suggesting, vanoka_suggesting_release>;
using LearntHandle = Owned<vanoka_learnt, vanoka_learnt_release>;
using LayoutHandle = Owned<vanoka_layout, vanoka_layout_release>;
using CountsHandle = Owned<vanoka_counts, vanoka_counts_release>;
using DecoderHandle = Owned<vanoka_decoder, vanoka_decoder_release>;

inline std::string_view textOf(const vanoka_item& item) {
    return {item.text, item.size};
}

inline std::vector<std::string> textsOf(const vanoka_answer* answer) {
    std::vector<std::string> texts;
    for (std::size_t at = 0; at < vanoka_answer_count(answer); ++at)
        texts.emplace_back(textOf(vanoka_answer_items(answer)[at]));
    return texts;
}

} // namespace vanoka::test
