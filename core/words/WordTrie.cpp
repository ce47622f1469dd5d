#include "words/WordTrie.h"

#include "words/SortedOrder.h"

#include <utility>

namespace vanoka {

void WordTrie::assignLettersOf(std::uint32_t number, std::string& letters) const {
    // Only words that can be read are kept.
    static_cast<void>(WordLetters::assign(index_->words().compactText(number), letters));
}

namespace {

/// The letters of all words of an index that can be read, while they are sorted.
class ReadableWords {
public:
    ReadableWords(const KeyedTexts& words, std::size_t longestWord) {
        std::string letters;
        for (std::uint32_t number = 0; number < words.size(); ++number) {
            const bool isReadable = WordLetters::assign(words.compactText(number), letters);
            if (!isReadable || letters.empty() || letters.size() > longestWord)
                continue;
            numbers_.push_back(number);
            starts_.push_back(static_cast<std::uint32_t>(letters_.size()));
            letters_ += letters;
        }
        starts_.push_back(static_cast<std::uint32_t>(letters_.size()));
    }

    std::size_t size() const noexcept { return numbers_.size(); }
    std::uint32_t number(std::uint32_t place) const noexcept { return numbers_[place]; }
    std::string_view letters(std::uint32_t place) const noexcept {
        return std::string_view(letters_).substr(starts_[place], starts_[place + 1] - starts_[place]);
    }

private:
    std::vector<std::uint32_t> numbers_, starts_;
    std::string letters_;
};

} // namespace

WordTrie::WordTrie(const Shared<SinhalaWordIndex>& index) : index_(index) {
    const ReadableWords words(index_->words(), longest);
    std::string_view before;
    for (const std::uint32_t place :
         sortedOrder(words.size(), [&](std::uint32_t each, std::string&) { return words.letters(each); })) {
        const std::uint32_t number = words.number(place);
        if (words.letters(place) != before) {
            append(words.letters(place), before);
            numbers_.push_back(number);
            before = words.letters(place);
        } else if (index_->count(number) > index_->count(numbers_.back())) {
            numbers_.back() = number;
        }
    }
    for (auto* each : {&numbers_, &tailStarts_})
        each->shrink_to_fit();
    for (auto* each : {&common_, &tailLengths_})
        each->shrink_to_fit();
    parting_.shrink_to_fit();
    tails_.shrink_to_fit();
    measure();
}

/// `letters`, which are not empty, come after `before`.
void WordTrie::append(std::string_view letters, std::string_view before) {
    const auto parting =
        static_cast<std::size_t>(std::ranges::mismatch(letters, before).in1 - letters.begin());
    if (common_.size() % tailsApart == 0)
        tailStarts_.push_back(static_cast<std::uint32_t>(tails_.size()));
    common_.push_back(static_cast<std::uint8_t>(parting));
    parting_.push_back(WordLetters::fromByte(letters[parting]));
    tailLengths_.push_back(static_cast<std::uint8_t>(letters.size() - parting - 1));
    tails_ += letters.substr(parting + 1);
}

void WordTrie::measure() {
    levels_.resize(numbers_.size());
    for (Position position = 0; position < levels_.size(); ++position) {
        total_ += count(position);
        levels_[position] = static_cast<std::uint8_t>(std::ranges::lower_bound(levelCounts, count(position)) -
                                                      levelCounts.begin());
    }
    mostLevels_ =
        SummaryTree<Level>(levels_.size(), [this](std::size_t place) { return Level{levels_[place]}; });
}

bool WordTrie::contains(std::string_view letters) const {
    std::string other;
    const auto lettersOf = [&](std::uint32_t number) -> std::string_view {
        assignLettersOf(number, other);
        return other;
    };
    return std::ranges::binary_search(numbers_, letters, {}, lettersOf);
}

/// Whole summaries as soon as the range's ends stand between two.
std::size_t WordTrie::mostLevel(Range range) const noexcept {
    constexpr std::size_t fanOut = std::size_t{1} << SummaryTree<Level>::fanOutBits;
    std::size_t first = range.first, end = range.end;
    Level most;
    for (unsigned height = 0; first < end; ++height) {
        const auto at = [&](std::size_t place) {
            return height == 0 ? Level{levels_[place]} : mostLevels_.summary(height, place);
        };
        const bool isTop = height == mostLevels_.height();
        for (; first < end && (isTop || first % fanOut != 0); ++first)
            most.include(at(first));
        for (; first < end && end % fanOut != 0; --end)
            most.include(at(end - 1));
        first /= fanOut;
        end /= fanOut;
    }
    return most.most;
}

std::size_t WordTrie::memory() const noexcept {
    return (numbers_.capacity() + tailStarts_.capacity()) * sizeof(numbers_[0]) + common_.capacity() +
           parting_.capacity() + tails_.capacity() + tailLengths_.capacity() + levels_.capacity() +
           mostLevels_.memory();
}

} // namespace vanoka
