#include "ImportedKeys.h"

#include "Randoms.h"
#include "settings/CustomizationJson.h"
#include "settings/SinglishSettings.h"
#include "text/Visible.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

/// The plain twin: a person who makes empty settings what is wanted, key by key.
ImportedKeys addedOneByOne(const SinglishCustomization& wanted) {
    MemoryUserDefaults defaults;
    SinglishSettings settings(defaults);
    std::string problems;
    for (const std::string& key : wanted.disabledKeys)
        settings.setBuiltIn(key, false);
    for (const auto& added : wanted.addedKeys) {
        const auto problem = settings.add(added.key, added.letter);
        if (problem && problem != SinglishSettings::KeyProblem::alreadyThisLetter)
            problems += text::visible(added.key) + ": " + message(*problem) + "\n";
    }
    return {settings.customization(), problems};
}

void expectAsOneByOne(const SinglishCustomization& wanted) {
    const ImportedKeys fast = imported(wanted), plain = addedOneByOne(wanted);
    EXPECT_EQ(fast.keys, plain.keys) << CustomizationJson::encode(wanted).value_or("no document");
    EXPECT_EQ(fast.problems, plain.problems);
}

TEST(ImportedKeys, AreWhatAddingThemOneByOneGives) {
    test::Randoms randoms(71);
    for (int round = 0; round < 30; ++round) {
        expectAsOneByOne(randoms.customization());
        expectAsOneByOne(randoms.strangeCustomization());
    }
}

/// Few keys and letters, so that they meet: built-in keys among them, of their own letter and of others, and
/// letters that the scheme does not have or that are spelled in two ways.
TEST(ImportedKeys, MeetEachOtherAsWhenAddedOneByOne) {
    test::Randoms randoms(72);
    const std::vector<std::string> keys = {"k", "kh", "q", "aa", "k1"};
    const std::vector<std::string> letters = {"\u0D9A", "\u0D9B", "\u0D86", "none", "\u0DD9\u0DCF"};
    for (int round = 0; round < 40; ++round) {
        SinglishCustomization wanted;
        for (std::size_t i = randoms.below(8); i > 0; --i)
            wanted.addedKeys.push_back({randoms.of(keys), randoms.of(letters)});
        for (std::size_t i = randoms.below(3); i > 0; --i)
            wanted.disabledKeys.insert(randoms.of(keys));
        expectAsOneByOne(wanted);
    }
}

} // namespace

} // namespace vanoka
