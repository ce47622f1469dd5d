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

    /// A key that has begun, followed character by character.
    class Beginning {
    public:
        /// True while a longer key may be on its way.
        bool isOpen(const SinglishReader& reader) const {
            return reader.goesOn(typed_) || reader.goesOn(lowercased_);
        }

    private:
        friend class SinglishReader;
        KeyTrie::Node typed_ = KeyTrie::none;
        KeyTrie::Node lowercased_ = KeyTrie::none; // none once a key was found as it was typed
    };

    /// Begins a key with `character`. Returns what the key that this is types, null when it is none.
    const SinglishToken* begin(Beginning& beginning, std::string_view character) const;
    /// The same for `character` after the characters before. A key that is found is the longest so far.
    const SinglishToken* goOn(Beginning& beginning, std::string_view character) const {
        if (beginning.typed_ != KeyTrie::none)
            beginning.typed_ = keys_.step(beginning.typed_, character);
        if (beginning.lowercased_ != KeyTrie::none)
            beginning.lowercased_ = keys_.step(beginning.lowercased_, character);
        return found(beginning);
    }

private:
    /// What stands at the start of a text.
    struct Match {
        const SinglishToken* token = nullptr; // null: no key
        std::size_t length = 0;               // in bytes, of the key, or of the character that is no key
        bool open = false;                    // the text ended where a longer key could go on
    };

    bool goesOn(KeyTrie::Node node) const { return node != KeyTrie::none && keys_.goesOn(node); }

    /// What the key that ends here types. The small form counts only while nothing matches as it was typed.
    const SinglishToken* found(Beginning& beginning) const {
        const SinglishToken* token =
            beginning.typed_ == KeyTrie::none ? nullptr : keys_.token(beginning.typed_);
        if (token)
            beginning.lowercased_ = KeyTrie::none;
        else if (beginning.lowercased_ != KeyTrie::none)
            token = keys_.token(beginning.lowercased_);
        return token;
    }

    Match match(std::string_view text) const;
    Match matchFrom(KeyTrie::Node node, std::string_view text, std::size_t length) const;
    static void write(const Match& match, std::string_view text, Syllables& syllables);

    KeyTrie keys_;
};

} // namespace vanoka
