#include "singlish/SinglishScheme.h"
#include "singlish/SinglishTransliterator.h"
#include "text/Utf8.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

/// Everything that two keys can spell, as text under review, each alone and all in one text. After a change
/// that is meant, the files are written anew by running this test with VANOKA_UPDATE_GOLDEN set, and the
/// difference is read.
namespace vanoka {

namespace {

/// The text with its joiners spelled out, so that a reader sees them and no editor loses them.
std::string visible(std::string_view text) {
    std::string result;
    for (const text::Scalar& scalar : text::Scalars(text))
        result += scalar.value == 0x200D ? "\\u200D" : text::utf8(scalar.value);
    return result;
}

class Golden {
public:
    void spell(const std::string& keys) {
        const std::string_view separator = isRowBegun_ ? " " : "";
        const std::string read = transliterate(keys);
        text_ << separator << keys << '=' << visible(read);
        allKeys_.append(separator) += keys;
        allRead_.append(separator) += read;
        isRowBegun_ = true;
    }
    void endRow() {
        text_ << '\n';
        allKeys_ += '\n';
        allRead_ += '\n';
        isRowBegun_ = false;
    }

    void expectEqual(const std::string& name) const {
        const std::string path = VANOKA_TESTS_FOLDER "/golden/" + name;
        if (std::getenv("VANOKA_UPDATE_GOLDEN"))
            std::ofstream(path) << text_.str();
        std::ifstream file(path);
        std::istringstream actual(text_.str());
        std::string expectedRow, actualRow;
        while (std::getline(actual, actualRow)) {
            ASSERT_TRUE(std::getline(file, expectedRow)) << name << " ends early";
            EXPECT_EQ(actualRow, expectedRow) << name;
        }
        EXPECT_FALSE(std::getline(file, expectedRow)) << name << " has more rows";
        EXPECT_EQ(transliterate(allKeys_), allRead_) << "all in one text";
    }

private:
    std::ostringstream text_;
    std::string allKeys_, allRead_;
    bool isRowBegun_ = false;
};

TEST(Golden, EveryConsonantWithEveryVowelAndMark) {
    Golden golden;
    for (const auto& consonant : SinglishScheme::consonants()) {
        for (const std::string_view key : consonant.keys) {
            golden.spell(std::string(key));
            for (const auto& vowel : SinglishScheme::vowels())
                golden.spell(std::string(key).append(vowel.keys.front()));
            for (const auto& mark : SinglishScheme::marks())
                golden.spell(std::string(key).append(mark.keys.front()));
            golden.endRow();
        }
    }
    golden.expectEqual("consonants-with-vowels.txt");
}

TEST(Golden, EveryKey) {
    Golden golden;
    for (const auto& vowel : SinglishScheme::vowels()) {
        for (const std::string_view key : vowel.keys) {
            golden.spell(std::string(key));
            golden.spell("k" + std::string(key));
        }
        golden.endRow();
    }
    for (const auto& consonant : SinglishScheme::consonants()) {
        for (const std::string_view key : consonant.keys)
            golden.spell(std::string(key) + "a");
        golden.endRow();
    }
    for (const auto& mark : SinglishScheme::marks()) {
        for (const std::string_view key : mark.keys)
            golden.spell("ka" + std::string(key));
        golden.endRow();
    }
    golden.expectEqual("every-key.txt");
}

TEST(Golden, EveryPairOfConsonants) {
    Golden golden;
    for (const auto& first : SinglishScheme::consonants()) {
        for (const auto& second : SinglishScheme::consonants())
            golden.spell(std::string(first.keys.front()).append(second.keys.front()) + "a");
        golden.endRow();
    }
    golden.expectEqual("consonant-pairs.txt");
}

TEST(Golden, EveryVowelAfterEveryVowel) {
    Golden golden;
    for (const auto& first : SinglishScheme::vowels()) {
        for (const auto& second : SinglishScheme::vowels())
            golden.spell(std::string(first.keys.front()).append(second.keys.front()));
        golden.endRow();
    }
    golden.expectEqual("vowel-pairs.txt");
}

} // namespace

} // namespace vanoka
