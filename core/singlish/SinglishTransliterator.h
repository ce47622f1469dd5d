#pragma once

#include "singlish/SinglishCustomization.h"
#include "singlish/SinglishToken.h"
#include "support/Shared.h"
#include "text/Equivalence.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace vanoka {

class SinglishReader;
class SinglishTransducer;

/// Turns Latin keys into Sinhala text: reads greedily, the longest key first, and writes syllables. A
/// consonant takes the sign of the vowel after it and is killed before another consonant or the end; ය and ර
/// are joined to a killed consonant. What is no key passes as it was typed, ill-formed bytes among it.
///
///     kaa → කා      amma → අම්ම      k1 → ක්1      Ee → ඒ (no key E: read as ee)
///
/// An immutable value, cheap to copy, safe to share between threads. One that was moved from keeps its keys.
class SinglishTransliterator {
public:
    using Token = SinglishToken;
    using Tokens = std::map<std::string, Token, text::CanonicalLess>;
    using TokensByLetter = std::map<std::string, Token, text::CanonicalLess>;

    /// What every built-in key types.
    static const Tokens& builtInTokens();
    /// What every letter of the scheme is typed as, by letter id.
    static const TokensByLetter& tokensByLetter();
    /// The built-in keys alone.
    static const SinglishTransliterator& standard();

    /// The built-in keys without the disabled ones, and then the added keys, a later one over an earlier one.
    /// Added keys for letters outside the scheme are left out. Takes some tens of microseconds; nothing at
    /// all when the customization is empty.
    explicit SinglishTransliterator(const SinglishCustomization& customization);

    /// What every key types.
    const Tokens& tokens() const noexcept;
    /// The length of the longest key in characters; 1 when there are no keys.
    std::int64_t longestKey() const noexcept;
    /// The id of the letter that `key`, as a whole and in its own case, types. A view into the scheme's
    /// tables.
    std::optional<std::string_view> letterTypedBy(std::string_view key) const;

    /// Takes time in proportion to the text's length, times the longest key's in the worst case.
    std::string transliterate(std::string_view text) const;

private:
    friend class PrefixReadings;
    friend class SinglishStream;

    struct Keys;

    explicit SinglishTransliterator(const Shared<Keys>& keys) noexcept : keys_(keys) {}

    const SinglishReader& reader() const noexcept;
    const SinglishTransducer& transducer() const noexcept;

    Shared<Keys> keys_;
};

/// `text` with the built-in keys.
std::string transliterate(std::string_view text);

} // namespace vanoka
