#include "VanokaInputController.h"

#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <malloc.h>

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
            ++typed;
        }
}

/// Who leaves the computer running for months types as on the first day.
TEST(MillionKeys, HoldNoMoreMemoryThanTheFirst) {
#ifdef VANOKA_INSTRUMENTED
    GTEST_SKIP() << "does not apply: a sanitizer counts memory in its own way";
#endif
    NoDefaults defaults;
    SinglishSettings settings(defaults);
    VanokaInputController controller("own", settings);
    ForgetfulClient client;
    type(1000, controller, client);
    const std::size_t before = ::mallinfo2().uordblks;
    type(1'000'000, controller, client);
    EXPECT_GT(before, 0U);
    EXPECT_EQ(::mallinfo2().uordblks, before);
}

} // namespace

} // namespace vanoka
