#pragma once

#include "words/EmojiWords.h"
#include "words/WordCount.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The rules of the word lists, written down in the plainest way: sorted arrays of strings, walked from a
/// lower bound, with a top list that is kept by insertion. The judge of the library's own.
namespace vanoka::test::plain {

/// A line of text that was split by character, field by field.
std::vector<std::pair<std::string, std::string>> rowsOf(std::string_view tsv);
std::optional<std::int64_t> integerOf(std::string_view field);

std::string looseKey(std::string_view text);
std::string skeletonOf(std::string_view text);

class SinhalaWords {
public:
    explicit SinhalaWords(const std::vector<WordCount>& words);
    static SinhalaWords read(std::string_view tsv);

    std::vector<WordCount> words() const;
    std::int64_t typicalCount() const { return typicalCount_; }
    std::int64_t countOfSpelling(std::string_view text) const;
    std::vector<std::string> suggestionsFor(std::string_view text, std::int64_t limit,
                                            const SinhalaWords* personal = nullptr) const;

private:
    struct Entry {
        std::string key, skeleton, word;
        std::int64_t count = 0;
    };
    struct Match {
        std::int64_t score = 0;
        std::string word;
    };
    using Matches = std::vector<Match>;

    static void insert(Match match, std::int64_t limit, Matches& matches);
    static Matches combined(const std::vector<Matches>& lists, std::int64_t limit);
    Matches spelledMatches(const std::string& key, const std::string& excluded, std::int64_t limit) const;
    Matches abbreviatedMatches(const std::string& key, const std::string& excluded, std::int64_t limit) const;

    std::vector<Entry> entries_;
    std::vector<std::size_t> bySkeleton_;
    std::int64_t typicalCount_ = 1;
};

struct EnglishWords {
    std::vector<WordCount> counts; ///< each word once, as it was first written
    std::vector<std::string> chat;

    static EnglishWords read(std::string_view tsv);
    std::int64_t countOf(std::string_view word) const;
    bool keepsEnglish(std::string_view word, std::string_view over, const SinhalaWords& sinhala,
                      std::int64_t keptInEnglish, std::int64_t typedInSinhala) const;
};

struct EmojiTable {
    std::vector<std::pair<std::string, EmojiWords::Entry>> sinhala; ///< by loose key
    std::vector<EmojiWords::Entry> english;

    static EmojiTable read(std::string_view tsv);
    std::optional<EmojiWords::Entry> matchForSinhala(std::string_view word) const;
    std::vector<std::string> emojiForEnglish(std::string_view word) const;
};

} // namespace vanoka::test::plain
