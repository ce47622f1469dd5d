#pragma once

#include "singlish/KeyTrie.h"
#include "singlish/Syllables.h"

#include <cstddef>
#include <string_view>
#include <utility>

namespace vanoka {

/// Reads Latin keys greedily, the longest key first, and writes the syllables they spell.
///
/// Where nothing at all matches, an upper-case character is looked up once more as its lower-case form; a
/// character that still matches nothing passes as it was typed.
class SinglishReader {
public:
    explicit SinglishReader(KeyTrie keys) noexcept : keys_(std::move(keys)) {}

    /// Reads all of `text`. The last consonant is left open.
    void read(std::string_view text, Syllables& syllables) const;

    /// Reads as much of `text` as no characters after it can change, and returns how many bytes that was: up
    /// to the first place where a longer key may still be on its way. `text` is whole characters.
    std::size_t readDecided(std::string_view text, Syllables& syllables) const;

    /// Reads what stands at the start of `text`, which is not empty: a key, or a character that is none.
    /// Returns how many bytes that was.
    std::size_t readFirst(std::string_view text, Syllables& syllables) const;

    /// True when `keys`, whole characters, are the beginning of a key, or of one when the first of them is
    /// lower-cased.
    bool areBeginning(std::string_view keys) const;

private:
    /// What stands at the start of a text.
    struct Match {
        const SinglishToken* token = nullptr; // null: no key
        std::size_t length = 0;               // in bytes, of the key, or of the character that is no key
        bool open = false;                    // the text ended where a longer key could go on
    };

    Match match(std::string_view text) const;
    KeyTrie::Node nodeOf(KeyTrie::Node node, std::string_view keys) const;
    Match matchFrom(KeyTrie::Node node, std::string_view text, std::size_t length) const;
    static void write(const Match& match, std::string_view text, Syllables& syllables);

    KeyTrie keys_;
};

} // namespace vanoka
