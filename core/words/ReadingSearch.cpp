#include "words/ReadingSearch.h"

#include "words/ReadingScore.h"

#include <algorithm>

namespace vanoka {

namespace {

/// What a promise is raised by, so that no rounding takes it below what it promises.
constexpr double roundings = 1 + 1e-9;

} // namespace

ReadingSearch::ReadingSearch(const TypedReadings& typed, const WordTrie& list, const WordTrie* personal,
                             std::size_t limit)
    : typed_(typed),
      tries_{&list, personal},
      limit_(limit),
      width_(typed.length() + 1),
      total_(std::max(1.0, list.total() + (personal ? personal->total() : 0))),
      leastLikely_(ReadingScore::leastLikely(typed.length())) {
    for (std::size_t level = 0; level < WordTrie::levels; ++level)
        priors_[level] = ReadingScore::prior(WordTrie::countAt(level), total_);
    typed_.begin(row(addRow()));
    findChildren({list.all(), personal ? personal->all() : WordTrie::Range()}, 0);
    openAll(0, 0, 0);
}

void ReadingSearch::keep(ReadWord word) {
    best_.insert(std::ranges::upper_bound(best_, word, std::less()), std::move(word));
    if (best_.size() > limit_)
        best_.pop_back();
}

std::vector<ReadWord> ReadingSearch::words() {
    while (!promises_.empty()) {
        std::ranges::pop_heap(promises_, {}, &Promise::most);
        const Promise best = promises_.back();
        promises_.pop_back();
        if (!isGoodEnough(best.most))
            break;
        open(nodes_[best.node]);
    }
    return std::move(best_);
}

std::uint32_t ReadingSearch::addRow() {
    rows_.resize(rows_.size() + width_);
    return static_cast<std::uint32_t>(rows_.size() / width_ - 1);
}

/// What a word of one letter more is worth for the sake of its beginning.
double ReadingSearch::goingOn(double completion, const double* from) const {
    return std::max(completion, from[typed_.length()] * ReadingScore::goesOn) * ReadingScore::letterToCome;
}

void ReadingSearch::open(const Node& opened) {
    const Node node = opened; // the nodes move
    const std::uint32_t own = addRow();
    typed_.advance(row(node.before), node.last, row(own));
    findChildren(node.ranges, node.depth);
    if (!ends_[0].isEmpty() || !ends_[1].isEmpty())
        addWord(std::max(row(own)[typed_.length()], node.completion));
    openAll(own, node.depth, goingOn(node.completion, row(own)));
}

/// False for more than one word. Hardly any word alone that may be among the best is spared by waiting for
/// its turn, and waiting costs more than reading it.
bool ReadingSearch::readAlone(const Node& node) {
    for (std::size_t list = 0; list < lists; ++list)
        if (node.ranges[list].isSingle() && node.ranges[1 - list].isEmpty()) {
            readOn(*tries_[list], node.ranges[list].first, node);
            return true;
        }
    return false;
}

/// One word alone is read to its end at once, or to where it is known not to be among the best.
void ReadingSearch::readOn(const WordTrie& trie, WordTrie::Position position, const Node& node) {
    const double prior = mostPrior(node.ranges) * roundings * roundings;
    scratch_.resize(2 * width_);
    double *now = scratch_.data(), *next = now + width_;
    typed_.advance(row(node.before), node.last, now);
    double completion = node.completion;
    for (const char each : trie.rest(position, node.depth, letters_)) {
        const WordLetter letter = WordLetters::fromByte(each);
        completion = goingOn(completion, now);
        if (!isGoodEnough(std::max(typed_.mostLikely(now, letter), completion) * prior))
            return;
        typed_.advance(now, letter, next);
        std::swap(now, next);
    }
    ends_ = {};
    ends_[&trie == tries_[0] ? 0 : 1] = {position, position + 1};
    addWord(std::max(now[typed_.length()], completion));
}

/// Each list gives its children in order; those with one letter are one.
void ReadingSearch::findChildren(const Ranges& ranges, std::size_t depth) {
    children_.clear();
    ends_ = {};
    for (std::size_t list = 0; list < lists; ++list) {
        if (ranges[list].isEmpty())
            continue;
        auto place = children_.begin();
        tries_[list]->visit(
            ranges[list], depth, [&](WordTrie::Position position) { ends_[list] = {position, position + 1}; },
            [&](WordLetter letter, WordTrie::Range range) {
                place = std::ranges::lower_bound(place, children_.end(), letter, {}, &Child::letter);
                if (place == children_.end() || place->letter != letter)
                    place = children_.insert(place, {letter, {}});
                place->ranges[list] = range;
            });
    }
}

/// Keeps those of the children that may hold one of the best words.
void ReadingSearch::openAll(std::uint32_t from, std::size_t depth, double completion) {
    for (const Child& child : children_) {
        const double likely = std::max(typed_.mostLikely(row(from), child.letter), completion) * roundings;
        if (likely < leastLikely_)
            continue;
        const double most = likely * mostPrior(child.ranges) * roundings;
        if (!isGoodEnough(most))
            continue;
        const Node node = {child.ranges, from, static_cast<std::uint32_t>(depth + 1), child.letter,
                           completion};
        if (readAlone(node))
            continue;
        promises_.push_back({most, static_cast<std::uint32_t>(nodes_.size())});
        std::ranges::push_heap(promises_, {}, &Promise::most);
        nodes_.push_back(node);
    }
}

double ReadingSearch::mostPrior(const Ranges& ranges) const {
    if (ranges[1].isEmpty())
        return priors_[tries_[0]->mostLevel(ranges[0])];
    if (ranges[0].isEmpty())
        return priors_[tries_[1]->mostLevel(ranges[1])];
    return ReadingScore::prior(tries_[0]->mostCount(ranges[0]) + tries_[1]->mostCount(ranges[1]), total_);
}

void ReadingSearch::addWord(double likely) {
    if (likely < leastLikely_)
        return;
    double count = 0, mostCount = -1;
    const WordTrie* speller = nullptr;
    WordTrie::Position position = 0;
    for (std::size_t list = 0; list < lists; ++list) {
        if (ends_[list].isEmpty())
            continue;
        const double own = tries_[list]->count(ends_[list].first);
        count += own;
        if (own > mostCount) {
            mostCount = own;
            speller = tries_[list];
            position = ends_[list].first;
        }
    }
    ReadWord word = {likely * ReadingScore::prior(count, total_), {}, {}};
    if (!isGoodEnough(word.score))
        return;
    speller->assignLetters(position, word.letters);
    word.word = speller->word(position);
    keep(std::move(word));
}

} // namespace vanoka
