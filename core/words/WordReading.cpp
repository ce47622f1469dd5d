#include "words/WordReading.h"

#include "support/Sort.h"
#include "words/ReadingScore.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vanoka {

namespace {

/// The best words, without those that are far behind.
void keepBest(std::vector<ReadWord>& found, std::size_t limit) {
    sortRange(found, std::less());
    std::erase_if(found, [best = found.empty() ? 0 : found.front().score](const ReadWord& each) {
        return each.score < best * (each.word.empty() ? ReadingScore::leastGuess : ReadingScore::leastListed);
    });
    found.resize(std::min(found.size(), limit));
}

/// Not as any Sinhala word that people would write so.
bool readsBadly(const std::vector<ReadWord>& best, std::size_t typed) {
    return best.empty() || best.front().score < best.front().prior * ReadingScore::leastSinhala(typed);
}

std::size_t lengthOfSame(std::string_view left, std::string_view right) {
    return static_cast<std::size_t>(std::ranges::mismatch(left, right).in1 - left.begin());
}

} // namespace

WordReading::WordReading(const Tables& list, const std::optional<Tables>& personal,
                         const LetterReadings& readings)
    : list_(list),
      personal_(personal),
      readings_(readings),
      tree_(list_->words, personal_ ? &(*personal_)->words : nullptr) {
    if (list_->sequences)
        unknown_.emplace(readings_, *list_->sequences);
}

bool WordReading::isOf(const Tables& list, const std::optional<Tables>& personal,
                       const LetterReadings& readings) const noexcept {
    return list_ == list && personal_ == personal && readings_.isSame(readings);
}

std::vector<std::string> WordReading::words(const std::string& letters, std::size_t limit,
                                            bool mayBeEnglish) {
    const std::size_t same = lengthOfSame(letters_, letters);
    letters_ = letters;
    found_.resize(same + 1);
    if (same < letters.size() || found_.back().limit < limit || found_.back().mayBeEnglish != mayBeEnglish)
        find(same, limit, mayBeEnglish);
    const std::vector<ReadWord>& found = found_.back().words;
    std::vector<std::string> words(std::min(limit, found.size()));
    std::transform(found.begin(), found.begin() + std::ssize(words), words.begin(), [](const ReadWord& each) {
        return each.word.empty() ? WordLetters::text(each.letters) : each.word;
    });
    return words;
}

/// Finds the best words for the letters, of which so many were the same before.
void WordReading::find(std::size_t same, std::size_t limit, bool mayBeEnglish) {
    typed_.emplace(letters_, readings_);
    tree_.read(*typed_, same);
    std::vector<ReadWord> words = listed(limit);
    if (mayBeEnglish || readsBadly(words, letters_.size())) {
        addEnglish(words, limit);
        keepBest(words, limit);
    }
    if (unknown_) {
        unknown_->read(letters_, same);
        addGuesses(words);
        keepBest(words, limit);
    }
    found_.resize(letters_.size() + 1);
    found_.back() = {limit, mayBeEnglish, std::move(words)};
}

/// Most of the best words were among the best a letter ago.
std::vector<ReadWord> WordReading::listed(std::size_t limit) {
    ReadingSearch search(tree_, *typed_, limit, ReadingScore::leastLikely(typed_->length()));
    std::vector<ReadWord> likely = found_.back().words;
    std::erase_if(likely, [](const ReadWord& each) { return each.word.empty(); });
    search.expect(likely);
    return search.words();
}

/// A word that can be read both ways is worth the better one. The rows of this reading are not kept: few of
/// the words that are typed are English at every letter.
void WordReading::addEnglish(std::vector<ReadWord>& words, std::size_t limit) const {
    const TypedReadings typed(letters_, LetterReadings::ofEnglish());
    ReadingTree tree(list_->words, personal_ ? &(*personal_)->words : nullptr);
    tree.read(typed, 0);
    ReadingSearch search(tree, typed, limit, ReadingScore::leastLikelyEnglish);
    if (!words.empty())
        search.expectAbove(words.front().score * ReadingScore::leastListed / ReadingScore::englishShare);
    if (words.size() == limit)
        search.expectAbove(words.back().score / ReadingScore::englishShare);
    for (ReadWord& read : search.words()) {
        read.score *= ReadingScore::englishShare;
        const auto same = std::ranges::find(words, read.letters, &ReadWord::letters);
        if (same == words.end())
            words.push_back(std::move(read));
        else
            same->score = std::max(same->score, read.score);
    }
}

void WordReading::addGuesses(std::vector<ReadWord>& words) const {
    for (UnknownWords::Guess& guess : unknown_->words()) {
        const double likely = typed_->likelihood(guess.letters);
        const double prior = ReadingScore::unknownPrior(guess.cost);
        if (likely >= ReadingScore::leastLikely(typed_->length()) && !isListed(guess.letters))
            words.push_back({likely * prior, prior, std::move(guess.letters), {}});
    }
}

bool WordReading::isListed(const std::string& letters) const {
    return list_->words.contains(letters) || (personal_ && (*personal_)->words.contains(letters));
}

} // namespace vanoka
