#include "VanokaInputController.h"

#include "MemoryWordStore.h"

#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <malloc.h>
#include <memory>
#include <string>

namespace vanoka {

namespace {

/// A client that keeps nothing.
class ForgetfulClient final : public TextInputClient {
public:
    std::optional<std::string> bundleIdentifier() const override { return "client"; }
    void insertText(std::string_view, TextRange) override {}
    void setMarkedText(const MarkedText&, TextRange, TextRange) override {}
};

class NoDefaults final : public UserDefaults {
public:
    std::optional<std::string> data(std::string_view) override { return std::nullopt; }
    void setData(std::string_view, const std::optional<std::string>&) override {}
};

void type(std::size_t keys, VanokaInputController& controller, TextInputClient& client) {
    constexpr std::array<std::string_view, 4> words = {"amma ", "gedhara ", "lankaava ", "samaajavaadhii "};
    for (std::size_t typed = 0, word = 0; typed < keys; ++word)
        for (const char key : words.at(word % words.size())) {
            const KeyEvent event = {.characters = std::string(1, key)};
            controller.handle(&event, &client);
            controller.updateCandidates();
            ++typed;
        }
}

/// Large blocks stand in a place of their own, and one that grows leaves the small ones for it.
std::ptrdiff_t memoryInUse() {
    const auto use = ::mallinfo2();
    return static_cast<std::ptrdiff_t>(use.uordblks + use.hblkhd);
}

/// How many bytes more are held after `keys` keys than after the first so many, with which all is made that
/// is made once.
std::ptrdiff_t growth(std::size_t first, std::size_t keys, Suggestions* suggestions) {
    NoDefaults defaults;
    SinglishSettings settings(defaults);
    VanokaInputController controller("own", settings);
    controller.setSuggestions(suggestions);
    ForgetfulClient client;
    type(first, controller, client);
    const std::ptrdiff_t before = memoryInUse();
    type(keys, controller, client);
    EXPECT_GT(before, 0);
    return memoryInUse() - before;
}

/// Who leaves the computer running for months types as on the first day.
class MillionKeys : public testing::Test {
protected:
    void SetUp() override {
#ifdef VANOKA_INSTRUMENTED
        GTEST_SKIP() << "does not apply: a sanitizer counts memory in its own way";
#endif
    }
};

TEST_F(MillionKeys, HoldNoMoreMemoryThanTheFirst) {
    EXPECT_EQ(growth(1000, 1'000'000, nullptr), 0);
}

/// Each word is found in the lists, read and learnt.
TEST_F(MillionKeys, WithSuggestionsHoldNoMoreEither) {
    const std::string amma = "\u0D85\u0DB8\u0DCA\u0DB8", gedara = "\u0D9C\u0DD9\u0DAF\u0DBB";
    test::MemoryWordStore store;
    Suggestions suggestions;
    suggestions.areOn = true;
    suggestions.lists = std::make_shared<const SuggestionLists>(
        readSuggestionLists({amma + "\t9\n" + amma + "\u0DA7\t3\n" + gedara + "\t5\n", "amma\t2\n",
                             amma + "\t\U0001F469\n", ""}));
    suggestions.store = &store;
    EXPECT_NEAR(static_cast<double>(growth(10'000, 1'000'000, &suggestions)), 0, 1000)
        << "what is allocated may lie in pieces some bytes larger than what is asked for";
    EXPECT_GT(store.countOf(amma), 20'000);
}

} // namespace

} // namespace vanoka
