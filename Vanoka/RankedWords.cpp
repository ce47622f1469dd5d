#include "RankedWords.h"

#include "text/Equivalence.h"

#include <algorithm>
#include <set>

namespace vanoka {

namespace {

using Words = std::vector<std::string>;
using KnownWords = std::set<std::string, text::CanonicalLess>;

/// The suggestions of `source` for the preview that may be offered, at most `limit`, each once.
Words offered(const SinhalaWordList& source, const SinhalaWordList* added, const TypedWord& word,
              const NeverOffered& never, std::size_t limit) {
    for (std::size_t asked = limit;; asked *= 2) {
        Words words = source.suggestionsFor(word.preview, static_cast<std::int64_t>(asked), added);
        const bool isAll = words.size() < asked;
        KnownWords known;
        std::erase_if(
            words, [&](const std::string& each) { return never.holds(each) || !known.insert(each).second; });
        if (words.size() < limit && !isAll)
            continue;
        words.resize(std::min(words.size(), limit));
        return words;
    }
}

/// This person's own words: those that may be slips go last.
Words ownWords(const TypedWord& word, const SuggestionLists& lists, const PersonalWords& personal,
               std::size_t limit) {
    Words words = offered(personal.sinhala, nullptr, word, lists.neverOffered, 2 * limit);
    std::stable_partition(words.begin(), words.end(), [&](const std::string& each) {
        return personal.sinhala.countOfSpelling(each) > 1 || lists.sinhala.countOfSpelling(each) > 0;
    });
    words.resize(std::min(words.size(), limit));
    return words;
}

} // namespace

std::vector<std::string> rankedWords(const TypedWord& word, const SuggestionLists& lists,
                                     const PersonalWords* personal, std::size_t limit) {
    Words words;
    if (limit > 0 && personal)
        words = ownWords(word, lists, *personal, (limit + 1) / 2);
    const KnownWords own(words.begin(), words.end());
    // All of them may be among this person's own.
    for (std::string& each : offered(lists.sinhala, personal ? &personal->sinhala : nullptr, word,
                                     lists.neverOffered, limit + words.size()))
        if (words.size() < limit && !own.contains(each))
            words.push_back(std::move(each));
    return words;
}

} // namespace vanoka
