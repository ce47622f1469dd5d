#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// Texts, each under a key, sorted by their keys' bytes; texts under equal keys keep the order in which they
/// were added. Everything stands in one pool: the cost of a text beyond its own compact bytes and its key's
/// is six bytes.
///
/// Keys are given and returned in their compact form ("words/CompactText.h"). Numbers of texts count in the
/// order of the keys. Views are valid as long as this object.
class KeyedTexts {
public:
    /// Texts from number `first` up to and not including number `end`.
    struct Range {
        std::uint32_t first = 0;
        std::uint32_t end = 0;
        bool isEmpty() const noexcept { return first == end; }
    };

    class Builder;

    std::uint32_t size() const noexcept { return static_cast<std::uint32_t>(starts_.size()); }
    std::string_view key(std::uint32_t number) const noexcept;
    /// The text as it was added, in UTF-8.
    std::string text(std::uint32_t number) const;
    /// The same in compact form.
    std::string_view compactText(std::uint32_t number) const noexcept { return entry(number).text; }

    /// The texts under `key`: two binary searches.
    Range equalTo(std::string_view key) const noexcept;
    /// The number after the last text whose key begins with `prefix`, where `from` is the first such one or
    /// stands among them.
    std::uint32_t endOfStartingWith(std::string_view prefix, std::uint32_t from) const noexcept;

    /// The first number of every group of texts with equal keys, in order.
    std::vector<std::uint32_t> groups() const;

    /// Bytes on the heap.
    std::size_t memory() const noexcept;

private:
    struct Entry {
        std::string_view key, text;
    };

    Entry entryAt(std::uint32_t start) const noexcept;
    Entry entry(std::uint32_t number) const noexcept { return entryAt(starts_[number]); }
    template <class IsBefore>
    std::uint32_t firstNot(std::uint32_t from, IsBefore isBefore) const noexcept;

    std::vector<char> pool_;            ///< per text: the key's length, the text's, the key, the text
    std::vector<std::uint32_t> starts_; ///< where they stand in the pool
};

/// Collects texts in any order.
class KeyedTexts::Builder {
public:
    /// Adds `text`, well-formed UTF-8 and empty only under an empty key, under `key`, a compact one. False,
    /// and nothing added, when the pool would grow beyond four gigabytes.
    bool add(std::string_view key, std::string_view text);

    /// Sorts. `order[number]` becomes the place, from 0, at which the text was added.
    KeyedTexts finish(std::vector<std::uint32_t>& order);
    KeyedTexts finish();

private:
    KeyedTexts texts_;
};

} // namespace vanoka
