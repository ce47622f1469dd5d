#pragma once

#include "support/ShortList.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// The Sinhala letters that can be typed and the Latin keys that type them before anybody has changed
/// anything. This is the only place that knows a key; what a letter is stands in "script/SinhalaBlock.h". All
/// else is derived from these tables.
///
/// Every table is a constant: views of it are valid for the life of the process, and any thread may read it.
namespace vanoka::SinglishScheme {

/// The built-in keys of one letter, in the order in which they are offered.
using Keys = ShortList<std::string_view, 3>;

/// Kills a consonant's inherent vowel: U+0DCA, al-lakuna.
inline constexpr std::string_view virama = "\u0DCA";
/// Joins a killed consonant with the ය or ර after it: U+200D.
inline constexpr std::string_view zeroWidthJoiner = "\u200D";

/// The key of the inherent vowel, which is no part of any sign.
inline constexpr std::string_view inherentVowelKey = "a";

struct Vowel {
    Keys keys;
    std::string_view letter; ///< as it stands at the start of a syllable
    std::string_view sign;   ///< as it stands on a consonant; empty for the inherent vowel
    friend bool operator==(const Vowel&, const Vowel&);
};

struct Consonant {
    Keys keys;
    std::string_view letter; ///< with its inherent vowel
    friend bool operator==(const Consonant&, const Consonant&);
};

struct Mark {
    Keys keys;
    std::string_view sign; ///< written after whatever precedes it
    std::string_view name; ///< its Sinhala name in Latin letters; informational
    friend bool operator==(const Mark&, const Mark&);
};

/// Vowels and consonants in the order of the alphabet; both marks.
std::span<const Vowel> vowels() noexcept;
std::span<const Consonant> consonants() noexcept;
std::span<const Mark> marks() noexcept;

/// How letters are grouped where a person looks through them.
enum class Group : std::uint8_t { vowel, consonant, sign };

inline constexpr std::array allGroups = {Group::vowel, Group::consonant, Group::sign};

/// "vowel", "consonant" or "sign".
std::string_view rawValue(Group group) noexcept;
/// "Vowels", "Consonants" or "Signs".
std::string_view title(Group group) noexcept;
/// The group with this raw value; nothing for any other text.
std::optional<Group> group(std::string_view rawValue) noexcept;

/// One letter as it is shown and edited. Two letters are equal when all four fields are; to find a letter
/// again, use its `id`.
struct Letter {
    std::string_view id; ///< its identity and its text: independent vowel, consonant or mark
    Group group = Group::vowel;
    Keys keys;                            ///< the built-in keys
    std::optional<std::string_view> sign; ///< a vowel's dependent sign, present though empty for අ

    /// The text by which the letter is shown: a mark stands on a dotted circle.
    std::string display() const;
    /// What typing `key` gives, shown on the consonant ක or with the vowel a: "kaa → කා".
    std::string example(std::string_view key) const;

    friend bool operator==(const Letter&, const Letter&);
};

/// Every letter: the vowels, the consonants, the marks.
std::span<const Letter> letters() noexcept;

/// The letter with this id; null when there is none.
const Letter* letter(std::string_view id);

/// How the letter `id` is shown: its `display`, or the id itself when no letter has it.
std::string display(std::string_view id);

/// The letters that a typist may mean by one lower-case Latin letter, likeliest first.
struct SoundsLike {
    char latin = 0;
    ShortList<std::string_view, 9> letters; ///< letter ids
};

/// One row for each of the Latin letters a to z but q.
std::span<const SoundsLike> soundsLike() noexcept;

/// The letter ids that sound like `character`, one character; empty when there are none.
std::span<const std::string_view> soundsLike(std::string_view character);

} // namespace vanoka::SinglishScheme

template <>
struct std::hash<vanoka::SinglishScheme::Vowel> {
    std::size_t operator()(const vanoka::SinglishScheme::Vowel& vowel) const;
};
template <>
struct std::hash<vanoka::SinglishScheme::Consonant> {
    std::size_t operator()(const vanoka::SinglishScheme::Consonant& consonant) const;
};
template <>
struct std::hash<vanoka::SinglishScheme::Mark> {
    std::size_t operator()(const vanoka::SinglishScheme::Mark& mark) const;
};
template <>
struct std::hash<vanoka::SinglishScheme::Letter> {
    std::size_t operator()(const vanoka::SinglishScheme::Letter& letter) const;
};
