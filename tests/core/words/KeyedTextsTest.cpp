#include "words/KeyedTexts.h"

#include "Memory.h"
#include "Randoms.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vanoka {

namespace {

TEST(KeyedTexts, KeepKeysAndTextsOfAnyLength) {
    const std::vector<std::size_t> lengths = {1, 2, 127, 128, 129, 255, 256, 16383, 16384, 16385, 32768};
    KeyedTexts::Builder builder;
    EXPECT_TRUE(builder.add("", ""));
    for (const std::size_t keyLength : lengths) {
        EXPECT_TRUE(builder.add(std::string(keyLength, 'k'), std::string(keyLength, 'k')));
        for (const std::size_t textLength : lengths)
            EXPECT_TRUE(builder.add(std::string(keyLength, 'k'), std::string(textLength, 't')));
    }
    const KeyedTexts texts = builder.finish();
    ASSERT_EQ(texts.size(), 1 + lengths.size() * (lengths.size() + 1));
    EXPECT_EQ(texts.key(0), "");
    EXPECT_EQ(texts.compactText(0), "");
    std::uint32_t number = 1;
    for (const std::size_t keyLength : lengths) {
        EXPECT_EQ(texts.compactText(number), std::string(keyLength, 'k'));
        EXPECT_EQ(texts.key(number++), std::string(keyLength, 'k'));
        for (const std::size_t textLength : lengths) {
            EXPECT_EQ(texts.key(number), std::string(keyLength, 'k'));
            EXPECT_EQ(texts.text(number++), std::string(textLength, 't'));
        }
    }
}

TEST(KeyedTexts, AreFoundByTheirKeys) {
    test::Randoms randoms(23);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> keys;
        KeyedTexts::Builder builder;
        for (std::size_t count = randoms.below(20); count > 0; --count) {
            keys.emplace_back();
            for (std::size_t length = 1 + randoms.below(3); length > 0; --length)
                keys.back() += "ab"[randoms.below(2)];
            builder.add(keys.back(), "text");
        }
        std::ranges::sort(keys);
        const KeyedTexts texts = builder.finish();
        const auto place = [&keys](auto found) { return static_cast<std::uint32_t>(found - keys.begin()); };
        std::vector<std::uint32_t> groups;
        for (std::uint32_t number = 0; number < keys.size(); ++number)
            if (place(std::ranges::find(keys, keys[number])) == number)
                groups.push_back(number);
        EXPECT_EQ(texts.groups(), groups);
        for (const std::string key : {"a", "b", "ab", "bb", "aaa", "bbb", "c"}) {
            const KeyedTexts::Range range = texts.equalTo(key);
            EXPECT_EQ(range.first, place(std::ranges::lower_bound(keys, key)));
            EXPECT_EQ(range.end, place(std::ranges::upper_bound(keys, key)));
            EXPECT_EQ(texts.endOfStartingWith(key, range.first),
                      place(std::ranges::lower_bound(keys, key + "c")));
        }
    }
}

TEST(KeyedTexts, TakeSixBytesBesideTheirOwn) {
    KeyedTexts::Builder builder;
    builder.add("key", "text");
    builder.add("same", "same");
    builder.add(std::string(127, 'k'), "");
    test::expectMemory(builder.finish().memory(), 3 * 6U + 3 + 4 + 4 + 127);
}

} // namespace

} // namespace vanoka
