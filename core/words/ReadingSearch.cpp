#include "words/ReadingSearch.h"

#include "support/Sort.h"
#include "words/ReadingScore.h"

#include <algorithm>
#include <functional>
#include <span>

namespace vanoka {

namespace {

/// What a promise is raised by, so that no rounding takes it below what it promises.
constexpr double roundings = 1 + 1e-9;

} // namespace

ReadingSearch::ReadingSearch(ReadingTree& tree, const TypedReadings& typed, std::size_t limit,
                             double leastLikely)
    : tree_(tree),
      typed_(typed),
      limit_(limit),
      leastLikely_(leastLikely),
      scratch_(2 * (typed.length() + 1)) {}

void ReadingSearch::expect(const std::vector<ReadWord>& likely) {
    std::vector<double> scores;
    for (const ReadWord& each : likely) {
        const double read = likelihood(tree_.row(ReadingTree::nothing), 0, each.letters, each.prior);
        if (read >= leastLikely_)
            scores.push_back(read * each.prior);
    }
    if (scores.empty())
        return;
    sortRange(scores, std::greater());
    expectAbove(scores.front() * ReadingScore::leastListed);
    if (scores.size() >= limit_)
        expectAbove(scores[limit_ - 1]);
}

void ReadingSearch::expectAbove(double score) {
    bound_ = std::max(bound_, score / roundings);
}

std::vector<ReadWord> ReadingSearch::words() {
    readFrom(ReadingTree::nothing, 0);
    std::erase_if(best_, [this](const ReadWord& each) { return each.score < bound_; });
    return std::move(best_);
}

/// What a word of one letter more is worth for the sake of its beginning.
double ReadingSearch::goingOn(double completion, const double* from) const {
    return std::max(completion, from[typed_.length()] * ReadingScore::goesOn) * ReadingScore::letterToCome;
}

/// As deep as the longest word.
void ReadingSearch::readFrom(std::uint32_t beginning, double completion) {
    const std::uint32_t opened = tree_.open(beginning);
    addWord(tree_.opened(opened).ends, std::max(tree_.row(opened)[typed_.length()], completion));
    const double longer = goingOn(completion, tree_.row(opened));
    const std::size_t first = promises_.size();
    addPromises(opened, longer);
    const std::size_t end = promises_.size();
    for (std::size_t each = first; each < end && isGoodEnough(promises_[each].most); ++each)
        if (!readAlone(promises_[each].beginning, completion))
            readFrom(promises_[each].beginning, longer);
    promises_.resize(first);
}

/// The best first, so that those after them need not be opened.
void ReadingSearch::addPromises(std::uint32_t opened, double completion) {
    const std::size_t first = promises_.size();
    const ReadingTree::Opened& from = tree_.opened(opened);
    const double* row = tree_.row(opened);
    for (std::uint32_t each = from.firstLonger; each < from.firstLonger + from.longer; ++each) {
        const WordLetter last = tree_.beginning(each).last;
        const double likely = std::max(typed_.mostLikely(row, last), completion) * roundings;
        if (likely < leastLikely_)
            continue;
        const double most = likely * tree_.mostPrior(each) * roundings;
        if (isGoodEnough(most))
            promises_.push_back({most, each});
    }
    auto added = std::span(promises_).subspan(first);
    sortRange(added, std::greater(), &Promise::most);
}

/// False for more than one word. One alone is read to its end at once.
bool ReadingSearch::readAlone(std::uint32_t number, double completion) {
    const ReadingTree::Beginning& beginning = tree_.beginning(number);
    const std::size_t list = beginning.words[0].isEmpty() ? 1 : 0;
    if (!beginning.words[list].isSingle() || (list == 0 && !beginning.words[1].isEmpty()))
        return false;
    const std::string_view rest =
        tree_.trie(list)->rest(beginning.words[list].first, std::size_t{beginning.length} - 1, letters_);
    ReadingTree::Ranges ends;
    ends[list] = beginning.words[list];
    addWord(ends, likelihood(tree_.row(beginning.before), completion, rest, tree_.mostPrior(number)));
    return true;
}

/// How likely a word is to be typed so, or to go on after it, from the row of its first letters and what it
/// is worth for their sake; 0 as soon as it is known not to be among the best. Its prior is no greater.
double ReadingSearch::likelihood(const double* row, double completion, std::string_view letters,
                                 double prior) {
    double *now = scratch_.data(), *next = now + scratch_.size() / 2;
    for (const char each : letters) {
        const WordLetter letter = WordLetters::fromByte(each);
        completion = goingOn(completion, row);
        if (!isGoodEnough(std::max(typed_.mostLikely(row, letter), completion) * prior * roundings *
                          roundings))
            return 0;
        typed_.advance(row, letter, next);
        row = next;
        std::swap(now, next);
    }
    return std::max(row[typed_.length()], completion);
}

void ReadingSearch::addWord(const ReadingTree::Ranges& ends, double likely) {
    if (likely < leastLikely_)
        return;
    double count = 0, mostCount = -1;
    const WordTrie* speller = nullptr;
    WordTrie::Position position = 0;
    for (std::size_t list = 0; list < ReadingTree::lists; ++list) {
        if (ends[list].isEmpty())
            continue;
        const double own = tree_.trie(list)->count(ends[list].first);
        count += own;
        if (own > mostCount) {
            mostCount = own;
            speller = tree_.trie(list);
            position = ends[list].first;
        }
    }
    if (!speller)
        return;
    const double prior = tree_.prior(count);
    if (!isGoodEnough(likely * prior))
        return;
    ReadWord word = {likely * prior, prior, {}, speller->word(position)};
    speller->assignLetters(position, word.letters);
    best_.insert(std::ranges::upper_bound(best_, word, std::less()), std::move(word));
    if (best_.size() > limit_)
        best_.pop_back();
    bound_ = std::max(bound_, best_.front().score * ReadingScore::leastListed);
}

} // namespace vanoka
