#include "words/ReadingTree.h"

#include "words/ReadingScore.h"

#include <algorithm>
#include <bit>

namespace vanoka {

namespace {

/// How many numbers a row has room for at least; a word that outgrows its rows is read anew.
constexpr std::size_t leastWidth = 16;

/// How many numbers are kept for the next letter: a megabyte, which the searches of hardly any word come past
/// in a hundred thousand others.
constexpr std::size_t mostKept = 1 << 17;

} // namespace

ReadingTree::ReadingTree(const WordTrie& list, const WordTrie* personal)
    : tries_{&list, personal}, total_(std::max(1.0, list.total() + (personal ? personal->total() : 0))) {
    for (std::size_t level = 0; level < WordTrie::levels; ++level)
        priors_[level] = prior(WordTrie::countAt(level));
}

double ReadingTree::prior(double count) const {
    return ReadingScore::prior(count, total_);
}

void ReadingTree::read(const TypedReadings& typed, std::size_t same) {
    typed_ = &typed;
    const std::size_t numbers = typed.length() + 1;
    if (numbers > width_ || rows_.size() > mostKept)
        forgetAll(numbers);
    for (Opened& each : opened_)
        each.known = std::min(each.known, static_cast<std::uint32_t>(same + 1));
    typed.begin(rowToWrite(nothing));
}

void ReadingTree::forgetAll(std::size_t numbers) {
    width_ = std::bit_ceil(std::max(numbers, leastWidth));
    beginnings_.assign(1, {{tries_[0]->all(), tries_[1] ? tries_[1]->all() : WordTrie::Range()}});
    opened_.clear();
    add(nothing);
}

std::uint32_t ReadingTree::open(std::uint32_t beginning) {
    if (beginning == nothing)
        return nothing;
    if (beginnings_[beginning].opened == 0)
        beginnings_[beginning].opened = add(beginning);
    const Beginning& from = beginnings_[beginning];
    std::uint32_t& known = opened_[from.opened].known;
    if (known == 0)
        typed_->advance(row(from.before), from.last, rowToWrite(from.opened));
    else
        for (std::size_t end = known; end <= typed_->length(); ++end)
            rowToWrite(from.opened)[end] = typed_->advanced(row(from.before), from.last, end);
    known = static_cast<std::uint32_t>(typed_->length() + 1);
    return from.opened;
}

std::uint32_t ReadingTree::add(std::uint32_t beginning) {
    const auto number = static_cast<std::uint32_t>(opened_.size());
    Opened opened;
    opened.firstLonger = static_cast<std::uint32_t>(beginnings_.size());
    const Beginning from = beginnings_[beginning]; // they move
    findLonger(from.words, from.length, opened);
    for (std::uint32_t each = opened.firstLonger; each < beginnings_.size(); ++each) {
        beginnings_[each].before = number;
        beginnings_[each].length = static_cast<std::uint8_t>(from.length + 1);
    }
    opened.longer = static_cast<std::uint32_t>(beginnings_.size()) - opened.firstLonger;
    opened_.push_back(opened);
    rows_.resize(opened_.size() * width_);
    return number;
}

/// Each list gives its letters in order; those with one letter are one.
void ReadingTree::findLonger(const Ranges& words, std::size_t length, Opened& opened) {
    for (std::size_t list = 0; list < lists; ++list) {
        if (words[list].isEmpty())
            continue;
        std::size_t place = opened.firstLonger;
        tries_[list]->visit(
            words[list], length,
            [&](WordTrie::Position position) { opened.ends[list] = {position, position + 1}; },
            [&](WordLetter letter, WordTrie::Range range) {
                while (place < beginnings_.size() && beginnings_[place].last < letter)
                    ++place;
                if (place == beginnings_.size())
                    beginnings_.emplace_back().last = letter;
                else if (beginnings_[place].last != letter)
                    beginnings_.emplace(beginnings_.begin() + static_cast<std::ptrdiff_t>(place))->last =
                        letter;
                beginnings_[place].words[list] = range;
            });
    }
}

double ReadingTree::mostPrior(std::uint32_t beginning) {
    double& most = beginnings_[beginning].mostPrior;
    if (most == 0)
        most = mostPriorOf(beginnings_[beginning].words);
    return most;
}

double ReadingTree::mostPriorOf(const Ranges& words) const {
    if (words[1].isEmpty())
        return priors_[tries_[0]->mostLevel(words[0])];
    return prior(tries_[0]->mostCount(words[0]) + tries_[1]->mostCount(words[1]));
}

} // namespace vanoka
