#include "SwipeRandoms.h"
#include "WordLists.h"
#include "singlish/SinglishTransliterator.h"
#include "swipe/SwipeDecoder.h"
#include "words/SinhalaWordList.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <thread>

/// One value, asked by several threads at once. Whether they disturb one another, the thread sanitizer sees.
namespace vanoka {

namespace {

/// What every thread got; the first is alone with the value once more, after all others.
template <typename Ask>
auto askedAtOnce(const Ask& ask) {
    std::vector<decltype(ask())> answers(4);
    std::vector<std::thread> threads;
    for (std::size_t i = 1; i < answers.size(); ++i)
        threads.emplace_back([&ask, &answer = answers[i]] { answer = ask(); });
    for (std::thread& thread : threads)
        thread.join();
    answers.front() = ask();
    return answers;
}

template <typename Answers>
bool allAreEqual(const Answers& answers) {
    return std::ranges::all_of(answers, [&](const auto& answer) { return answer == answers.front(); });
}

TEST(Threads, ShareATransliterator) {
    const SinglishTransliterator keys{SinglishCustomization{{{"kk", "\u0D9C"}}, {}}};
    std::string text;
    for (int i = 0; i < 20'000; ++i)
        text += "kkaa amma ";
    const auto answers = askedAtOnce([&] { return keys.transliterate(text); });
    EXPECT_TRUE(allAreEqual(answers));
    EXPECT_TRUE(answers.front().starts_with("\u0D9C\u0DCF \u0D85\u0DB8\u0DCA\u0DB8 "));
}

TEST(Threads, ShareAWordList) {
    const auto entries = test::sinhalaLikeWords(2000);
    const SinhalaWordList words(entries);
    const auto answers = askedAtOnce([&] {
        std::vector<std::vector<std::string>> suggestions;
        for (std::size_t i = 0; i < 200; ++i)
            suggestions.push_back(words.suggestionsFor(entries[i].word.substr(0, 3), 5, &words));
        return suggestions;
    });
    EXPECT_TRUE(allAreEqual(answers));
    EXPECT_EQ(answers.front().front().size(), 5U);
}

TEST(Threads, ShareASwipeDecoder) {
    const std::vector<SwipeDecoder::Word> entries = {
        {"\u0D85\u0DB8\u0DCA\u0DB8", 9}, {"see", 4}, {"said", 2}};
    const SwipeDecoder decoder(entries);
    const SwipeLayout layout(test::qwerty());
    const auto answers = askedAtOnce([&] {
        std::vector<std::string> words;
        for (const std::string spelling : {"amma", "se", "said"})
            for (int i = 0; i < 50; ++i)
                words.push_back(
                    decoder.wordsFor(test::strokeOver(test::qwerty(), spelling), layout, 10, 1, {}).at(0));
        return words;
    });
    EXPECT_TRUE(allAreEqual(answers));
    EXPECT_EQ(answers.front().front(), "\u0D85\u0DB8\u0DCA\u0DB8");
    EXPECT_EQ(answers.front().back(), "said");
}

} // namespace

} // namespace vanoka
