#pragma once

#include "PersonalWords.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vanoka {

/// What one word that was put in is counted as: for itself, for its keys, for both or for nothing.
struct LearntWord {
    enum class Use : std::uint8_t { kept, typedInSinhala };

    std::string sinhala; ///< in canonical composition; empty where the text is no Sinhala word that is learnt
    std::string english; ///< the keys in lower case; empty where they are no English word that is learnt
    Use use = Use::kept; ///< of the English word

    friend bool operator==(const LearntWord&, const LearntWord&) = default;
};

/// The rules by which words are learnt.
///
/// A Sinhala word has two letters or more (vowels and consonants, whatever signs they have), and nothing but
/// letters, signs and joiners. An English word has two letters or more of A to Z, and nothing else. Neither
/// is longer than `longest`.
namespace LearntWords {

inline constexpr std::size_t longest = 256; ///< in bytes: some eighty Sinhala letters and signs

/// Which words are kept of each kind when there are more: the most used ones.
inline constexpr std::int64_t most = 20'000;

/// Counts stop here, so that no sum or multiple of some of them overflows.
inline constexpr std::int64_t largestCount = INT32_MAX;

/// What is counted of a word; its keys are an English word when they are made like one.
LearntWord learntFrom(const CommittedWord& word);

/// The word as it is kept, either `sinhala` or `english` alone. Both empty for what is never learnt.
LearntWord formOf(std::string_view word);

} // namespace LearntWords

} // namespace vanoka
