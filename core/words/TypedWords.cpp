#include "words/TypedWords.h"

#include "support/Sort.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"
#include "words/LetterSequences.h"
#include "words/ReadingScore.h"
#include "words/ReadingSearch.h"
#include "words/UnknownWords.h"
#include "words/WordTrie.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace vanoka {

namespace {

constexpr std::size_t mostLetters = 96;

bool canBeRead(std::string_view letters) {
    return !letters.empty() && letters.size() <= mostLetters &&
           std::ranges::all_of(letters, text::isAsciiLetter);
}

std::size_t held(std::int64_t limit) {
    constexpr std::uint64_t most = std::numeric_limits<std::size_t>::max();
    return static_cast<std::size_t>(std::min(static_cast<std::uint64_t>(limit), most));
}

template <class IsListed>
void addGuesses(std::vector<UnknownWords::Guess> guesses, const TypedReadings& typed, IsListed isListed,
                std::vector<ReadWord>& words) {
    for (UnknownWords::Guess& guess : guesses) {
        const double likely = typed.likelihood(guess.letters);
        if (likely >= ReadingScore::leastLikely(typed.length()) && !isListed(guess.letters))
            words.push_back({likely * ReadingScore::unknownPrior(guess.cost), std::move(guess.letters), {}});
    }
}

/// The best words, without the guesses that are far behind.
void keepBest(std::vector<ReadWord>& found, std::size_t limit) {
    sortRange(found, std::less());
    std::erase_if(found, [least = found.empty() ? 0 : found.front().score * ReadingScore::leastGuess](
                             const ReadWord& each) { return each.word.empty() && each.score < least; });
    if (found.size() > limit)
        found.resize(limit);
}

} // namespace

struct TypedWords::Tables {
    Tables(const Shared<SinhalaWordIndex>& index, Unlisted unlisted)
        : words(index), canGuess(unlisted != Unlisted::none) {
        if (canGuess)
            sequences = LetterSequences(words, static_cast<std::size_t>(unlisted));
    }

    WordTrie words;
    bool canGuess;
    LetterSequences sequences;
};

TypedWords::TypedWords(const SinhalaWordList& list, Unlisted unlisted)
    : tables_(std::make_shared<const Tables>(list.index_, unlisted)) {}

std::vector<std::string> TypedWords::wordsTyped(std::string_view letters, std::int64_t limit,
                                                const TypedWords* personal,
                                                const LetterReadings& readings) const {
    if (!canBeRead(letters) || limit < 1)
        return {};
    const std::string lower = text::lowercased(letters);
    const TypedReadings typed(lower, readings);
    const WordTrie* own = personal ? &personal->tables_->words : nullptr;
    std::vector<ReadWord> found = ReadingSearch(typed, tables_->words, own, held(limit)).words();
    if (tables_->canGuess) {
        const auto isListed = [&](const std::string& word) {
            return tables_->words.contains(word) || (own && own->contains(word));
        };
        addGuesses(UnknownWords(lower, readings, tables_->sequences).words(), typed, isListed, found);
        keepBest(found, held(limit));
    }
    std::vector<std::string> words(found.size());
    std::ranges::transform(found, words.begin(), [](ReadWord& each) {
        return each.word.empty() ? WordLetters::text(each.letters) : std::move(each.word);
    });
    return words;
}

std::size_t TypedWords::memory() const noexcept {
    return tables_->words.memory() + tables_->sequences.memory();
}

} // namespace vanoka
