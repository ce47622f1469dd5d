#include "singlish/WrittenLetters.h"

#include "script/SinhalaBlock.h"
#include "singlish/SchemeTables.h"

#include <algorithm>
#include <array>

namespace vanoka {

namespace {

using Kind = WrittenLetter::Kind;

constexpr auto withoutSign = std::ranges::count(SinglishScheme::vowelTable, "", &SinglishScheme::Vowel::sign);

constexpr std::array writtenTable = [] {
    constexpr std::size_t signs = SinglishScheme::vowelTable.size() - static_cast<std::size_t>(withoutSign);
    std::array<WrittenLetter, SinglishScheme::letterTable.size() + signs + 2> all{};
    WrittenLetter* next = all.data();
    for (const SinglishScheme::Letter& letter : SinglishScheme::letterTable) {
        const bool isConsonant = letter.group == SinglishScheme::Group::consonant;
        *next++ = {text::threeByteScalar(letter.id), isConsonant ? Kind::consonant : Kind::standalone,
                   letter.keys.front()};
        if (letter.sign && !letter.sign->empty())
            *next++ = {text::threeByteScalar(*letter.sign), Kind::sign, letter.keys.front()};
    }
    *next++ = {script::virama, Kind::virama, {}};
    *next = {script::zeroWidthJoiner, Kind::joiner, {}};
    return all;
}();

constexpr const WrittenLetter& joiner = writtenTable.back();

/// Null where no letter is written.
constexpr auto byScalar = [] {
    script::ByScalar<const WrittenLetter*> all{};
    for (const WrittenLetter& letter : writtenTable)
        if (script::isSinhala(letter.scalar))
            all[letter.scalar - script::blockFirst] = &letter;
    return all;
}();

constexpr bool noScalarTwice(std::span<const WrittenLetter> letters) {
    return std::ranges::all_of(letters, [letters](const WrittenLetter& letter) {
        return std::ranges::count(letters, letter.scalar, &WrittenLetter::scalar) == 1;
    });
}

static_assert(withoutSign == 1 && noScalarTwice(writtenTable));
static_assert(!noScalarTwice(std::array{writtenTable.front(), joiner, joiner}));
static_assert(joiner.kind == Kind::joiner);

constexpr const WrittenLetter& inherent =
    *std::ranges::find(writtenTable, SinglishScheme::inherentVowelKey, &WrittenLetter::key);
static_assert(inherent.kind == Kind::standalone);

} // namespace

std::span<const WrittenLetter> writtenLetters() noexcept {
    return writtenTable;
}

const WrittenLetter* writtenLetter(char32_t scalar) noexcept {
    return scalar == joiner.scalar ? &joiner : script::valueOf(byScalar, scalar);
}

const WrittenLetter& inherentVowel() noexcept {
    return inherent;
}

} // namespace vanoka
