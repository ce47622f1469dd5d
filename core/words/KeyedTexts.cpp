#include "words/KeyedTexts.h"

#include "support/Growth.h"
#include "words/CompactText.h"
#include "words/SortedOrder.h"

#include <algorithm>
#include <limits>
#include <span>

namespace vanoka {

namespace {

constexpr std::size_t longestLength = 5; // in bytes, of a length up to four gigabytes

/// Lengths take seven bits a byte, the lowest first; the top bit says that more follow.
void appendLength(std::size_t length, std::vector<char>& bytes) {
    for (; length >= 0x80; length >>= 7)
        bytes.push_back(static_cast<char>(length | 0x80U));
    bytes.push_back(static_cast<char>(length));
}

std::size_t takeLength(const char*& at) noexcept {
    std::size_t length = 0;
    for (unsigned shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(*at++);
        length |= std::size_t{byte & 0x7FU} << shift;
        if (byte < 0x80)
            return length;
    }
}

} // namespace

KeyedTexts::Entry KeyedTexts::entryAt(std::uint32_t start) const noexcept {
    const char* at = pool_.data() + start;
    const std::size_t keyLength = takeLength(at);
    const std::size_t textLength = takeLength(at);
    const std::string_view key(at, keyLength);
    // A text is empty only under an empty key, so an empty one may say that the text is its own key.
    return {key, textLength == 0 ? key : std::string_view(at + keyLength, textLength)};
}

std::string_view KeyedTexts::key(std::uint32_t number) const noexcept {
    return entry(number).key;
}

std::string KeyedTexts::text(std::uint32_t number) const {
    return CompactText::expanded(entry(number).text);
}

/// The first text from `from` on whose key is not before; all that are stand before all that are not.
template <class IsBefore>
std::uint32_t KeyedTexts::firstNot(std::uint32_t from, IsBefore isBefore) const noexcept {
    const auto later = std::span(starts_).subspan(from);
    const auto found = std::ranges::partition_point(later, isBefore,
                                                    [&](std::uint32_t start) { return entryAt(start).key; });
    return from + static_cast<std::uint32_t>(found - later.begin());
}

KeyedTexts::Range KeyedTexts::equalTo(std::string_view key) const noexcept {
    const std::uint32_t first = firstNot(0, [&](std::string_view each) { return each < key; });
    return {first, firstNot(first, [&](std::string_view each) { return each == key; })};
}

std::uint32_t KeyedTexts::endOfStartingWith(std::string_view prefix, std::uint32_t from) const noexcept {
    return firstNot(from, [&](std::string_view each) { return each.starts_with(prefix); });
}

std::vector<std::uint32_t> KeyedTexts::groups() const {
    std::vector<std::uint32_t> groups;
    for (std::uint32_t number = 0; number < size(); ++number)
        if (number == 0 || key(number) != key(number - 1))
            groups.push_back(number);
    return groups;
}

std::size_t KeyedTexts::memory() const noexcept {
    return pool_.capacity() + starts_.capacity() * sizeof(starts_[0]);
}

bool KeyedTexts::Builder::add(std::string_view key, std::string_view text) {
    const std::string_view kept = text == key ? std::string_view() : text;
    const std::size_t most = 2 * longestLength + key.size() + kept.size();
    std::vector<char>& pool = texts_.pool_;
    if (most > std::numeric_limits<std::uint32_t>::max() - pool.size()) // out of reach: takes 4 GiB of words
        return false;
    makeRoom(pool, most);
    makeRoom(texts_.starts_, 1);
    texts_.starts_.push_back(static_cast<std::uint32_t>(pool.size()));
    appendLength(key.size(), pool);
    appendLength(kept.size(), pool);
    pool.insert(pool.end(), key.begin(), key.end());
    pool.insert(pool.end(), kept.begin(), kept.end());
    return true;
}

KeyedTexts KeyedTexts::Builder::finish(std::vector<std::uint32_t>& order) {
    texts_.pool_.shrink_to_fit();
    order =
        sortedOrder(texts_.size(), [this](std::uint32_t number, std::string&) { return texts_.key(number); });
    std::vector<std::uint32_t> sorted(order.size());
    std::ranges::transform(order, sorted.begin(),
                           [this](std::uint32_t added) { return texts_.starts_[added]; });
    texts_.starts_ = std::move(sorted);
    return std::move(texts_);
}

KeyedTexts KeyedTexts::Builder::finish() {
    std::vector<std::uint32_t> order;
    return finish(order);
}

} // namespace vanoka
