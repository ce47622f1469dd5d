#include "Handles.h"
#include "Scenario.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

/// The golden files through the C interface.
namespace vanoka {

namespace {

constexpr std::string_view spelledJoiner = "\\u200D";
constexpr std::string_view joiner = "\u200D";

std::string withJoiners(std::string text) {
    for (std::size_t at = text.find(spelledJoiner); at != std::string::npos;
         at = text.find(spelledJoiner, at))
        text.replace(at, spelledJoiner.size(), joiner);
    return text;
}

std::ifstream golden(const std::string& name) {
    return std::ifstream(VANOKA_TESTS_FOLDER "/golden/" + name);
}

class GoldenOverC : public testing::TestWithParam<const char*> {
protected:
    std::string readWhole(std::string_view keys) {
        EXPECT_EQ(vanoka_settings_transliterate(settings_.get(), keys.data(), keys.size(), answer_.get()),
                  VANOKA_OK);
        return onlyText();
    }

    std::string typed(std::string_view keys) {
        for (const char key : keys) {
            std::int32_t consumed = 0;
            EXPECT_EQ(
                vanoka_typing_press(typing_.get(), VANOKA_OTHER_KEY, 0, &key, 1, &consumed, answer_.get()),
                VANOKA_OK);
            EXPECT_EQ(consumed, 1);
        }
        EXPECT_EQ(vanoka_typing_end(typing_.get(), answer_.get()), VANOKA_OK);
        return onlyText();
    }

private:
    std::string onlyText() {
        const std::vector<std::string> texts = test::textsOf(answer_.get());
        EXPECT_EQ(texts.size(), 1U);
        return texts.empty() ? "" : texts[0];
    }

    test::AnswerHandle answer_ = test::created<test::AnswerHandle>(vanoka_answer_create);
    test::SettingsHandle settings_ = test::created<test::SettingsHandle>(vanoka_settings_create);
    test::TypingHandle typing_ = test::created<test::TypingHandle>(vanoka_typing_create, settings_.get());
};

TEST_P(GoldenOverC, ReadsAndTypesEverySpelling) {
    std::ifstream file = golden(GetParam());
    std::size_t spellings = 0;
    for (std::string spelling; file >> spelling; ++spellings) {
        const std::size_t equals = spelling.find('=');
        ASSERT_NE(equals, std::string::npos) << spelling;
        const std::string keys = spelling.substr(0, equals), text = withJoiners(spelling.substr(equals + 1));
        EXPECT_EQ(readWhole(keys), text) << keys;
        EXPECT_EQ(typed(keys), text) << keys;
    }
    EXPECT_GT(spellings, 50U);
}

INSTANTIATE_TEST_SUITE_P(CInterface, GoldenOverC,
                         testing::Values("consonant-pairs.txt", "consonants-with-vowels.txt", "every-key.txt",
                                         "vowel-pairs.txt"));

/// A straight stroke along a word's spelling means that word: every one of the golden file.
TEST(CInterface, FindsEveryGoldenWordByItsSpellings) {
    std::ifstream file = golden("swipe-spellings.txt");
    std::map<std::string, std::vector<std::string>> spellingsOf;
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(withJoiners(line));
        std::string word, separator, spelling;
        words >> word;
        std::vector<std::string>& spellings = spellingsOf[word]; // none of a word that cannot be swiped
        while (words >> separator >> spelling)
            spellings.push_back(spelling);
    }
    ASSERT_GT(spellingsOf.size(), 10U);

    std::string letters;
    std::vector<double> centers;
    constexpr std::string_view rows[] = {"qwertyuiop", "asdfghjkl", "zxcvbnm"};
    for (std::size_t row = 0; row < std::size(rows); ++row)
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            letters += rows[row][column];
            centers.push_back(static_cast<double>(column) + 0.5 * static_cast<double>(row));
            centers.push_back(static_cast<double>(row));
        }
    const auto layout = test::created<test::LayoutHandle>(vanoka_layout_create, letters.data(),
                                                          letters.size(), centers.data(), letters.size());
    const auto answer = test::created<test::AnswerHandle>(vanoka_answer_create);
    for (const auto& [word, spellings] : spellingsOf) {
        const std::string list = word + "\t1\n";
        const char* const lists[] = {list.data()};
        const std::size_t sizes[] = {list.size()};
        const auto decoder =
            test::created<test::DecoderHandle>(vanoka_decoder_create, lists, sizes, std::size_t{1});
        EXPECT_EQ(vanoka_decoder_size(decoder.get()), spellings.empty() ? 0 : 1) << word;
        for (const std::string& spelling : spellings) {
            std::vector<double> stroke;
            for (const char key : spelling) {
                const std::size_t at = 2 * letters.find(key);
                stroke.insert(stroke.end(), {centers[at], centers[at + 1]});
            }
            if (spelling.size() == 1)
                stroke.insert(stroke.end(), stroke.begin(), stroke.begin() + 2);
            EXPECT_EQ(vanoka_decoder_decode(decoder.get(), layout.get(), stroke.data(), stroke.size() / 2, 1,
                                            1, nullptr, answer.get()),
                      VANOKA_OK);
            EXPECT_EQ(test::textsOf(answer.get()), std::vector{word}) << spelling;
        }
    }
}

} // namespace

} // namespace vanoka
