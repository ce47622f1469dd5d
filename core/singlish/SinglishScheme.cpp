#include "singlish/SinglishScheme.h"

#include "script/SinhalaBlock.h"
#include "singlish/SchemeTables.h"
#include "text/Equivalence.h"
#include "text/Hasher.h"

#include <algorithm>

namespace vanoka::SinglishScheme {

namespace {

// clang-format off

constexpr SoundsLike soundsLikeTable[] = {
    {'a', {"අ", "ආ", "ඇ", "ඈ", "ඓ", "ඖ"}},
    {'b', {"බ", "භ", "ඹ"}},
    {'c', {"ච", "ඡ"}},
    {'d', {"ඩ", "ඪ", "ද", "ධ", "ඬ", "ඳ"}},
    {'e', {"එ", "ඒ"}},
    {'f', {"ෆ"}},
    {'g', {"ග", "ඝ", "ඟ", "ඥ"}},
    {'h', {"හ", "ඃ"}},
    {'i', {"ඉ", "ඊ"}},
    {'j', {"ජ", "ඣ", "ඦ"}},
    {'k', {"ක", "ඛ"}},
    {'l', {"ල", "ළ"}},
    {'m', {"ම", "ඹ", "ං"}},
    {'n', {"න", "ණ", "ඤ", "ඥ", "ඞ", "ඟ", "ඬ", "ඳ", "ං"}},
    {'o', {"ඔ", "ඕ"}},
    {'p', {"ප", "ඵ"}},
    {'r', {"ර", "ඍ", "ඎ"}},
    {'s', {"ස", "ශ", "ෂ"}},
    {'t', {"ට", "ඨ", "ත", "ථ"}},
    {'u', {"උ", "ඌ"}},
    {'v', {"ව"}},
    {'w', {"ව"}},
    {'x', {"ං", "ඞ"}},
    {'y', {"ය"}},
    {'z', {"ඟ", "ඦ", "ඬ", "ඳ", "ඹ"}},
};

struct GroupNames {
    Group group;
    std::string_view rawValue, title;
};

constexpr std::array groupTable = std::to_array<GroupNames>({
    {Group::vowel,     "vowel",     "Vowels"},
    {Group::consonant, "consonant", "Consonants"},
    {Group::sign,      "sign",      "Signs"},
});

// clang-format on

// The consonant that examples put a vowel or a mark on, and its key.
constexpr std::string_view carrier = "ක", carrierKey = "k";
constexpr std::string_view dottedCircle = "\u25CC";
constexpr std::string_view arrow = " \u2192 ";

// What must hold for the tables, as rules over any letters, so that each rule is seen to refuse a bad table.

constexpr bool isOneSinhalaScalar(std::string_view text) {
    return text.size() == 3 && text[0] == '\xE0' && script::isSinhala(text::threeByteScalar(text));
}

constexpr bool isKey(std::string_view key) {
    return !key.empty() && key.size() <= 4 && std::ranges::all_of(key, text::isAsciiLetter);
}

constexpr bool everyIdIsOneScalar(std::span<const Letter> letters) {
    return std::ranges::all_of(letters, [](const Letter& letter) { return isOneSinhalaScalar(letter.id); });
}

constexpr bool everySignIsOneScalarOrNone(std::span<const Letter> letters) {
    return std::ranges::all_of(letters, [](const Letter& letter) {
        return !letter.sign || letter.sign->empty() || isOneSinhalaScalar(*letter.sign);
    });
}

constexpr bool noIdTwice(std::span<const Letter> letters) {
    for (auto letter = letters.begin(); letter != letters.end(); ++letter)
        if (std::ranges::find(letters.begin(), letter, letter->id, &Letter::id) != letter)
            return false;
    return true;
}

constexpr bool everyLetterHasKeys(std::span<const Letter> letters) {
    return std::ranges::all_of(letters, [](const Letter& letter) {
        return !letter.keys.empty() && std::ranges::all_of(letter.keys, isKey);
    });
}

constexpr std::size_t timesUsed(std::string_view key, std::span<const Letter> letters) {
    std::size_t times = 0;
    for (const Letter& letter : letters)
        times += static_cast<std::size_t>(std::ranges::count(letter.keys, key));
    return times;
}

constexpr bool noKeyTwice(std::span<const Letter> letters) {
    return std::ranges::all_of(letters, [letters](const Letter& letter) {
        return std::ranges::all_of(letter.keys,
                                   [letters](std::string_view key) { return timesUsed(key, letters) == 1; });
    });
}

constexpr script::Kind kindOf(std::string_view oneScalar) {
    return std::ranges::find(script::rows, text::threeByteScalar(oneScalar), &script::Row::scalar)->kind;
}

constexpr bool isOfItsGroup(const Letter& letter) {
    const script::Kind kind = kindOf(letter.id);
    switch (letter.group) {
    case Group::vowel:
        return kind == script::Kind::vowel &&
               (letter.sign->empty() || kindOf(*letter.sign) == script::Kind::vowelSign);
    case Group::consonant:
        return kind == script::Kind::consonant;
    case Group::sign:
        break;
    }
    return kind == script::Kind::bindu || kind == script::Kind::visarga;
}

constexpr bool soundsAreLetters(std::span<const SoundsLike> rows, std::span<const Letter> letters) {
    return std::ranges::all_of(rows, [letters](const SoundsLike& row) {
        return std::ranges::all_of(row.letters, [letters](std::string_view id) {
            return std::ranges::find(letters, id, &Letter::id) != letters.end();
        });
    });
}

constexpr bool latinAscends(std::span<const SoundsLike> rows) {
    return std::ranges::adjacent_find(rows, std::ranges::greater_equal{}, &SoundsLike::latin) == rows.end();
}

static_assert(std::size(vowelTable) == 16 && std::size(consonantTable) == 41 && std::size(markTable) == 2);
static_assert(std::size(letterTable) == 59 && std::size(soundsLikeTable) == 25);
static_assert(everyIdIsOneScalar(letterTable) && everySignIsOneScalarOrNone(letterTable));
static_assert(noIdTwice(letterTable) && everyLetterHasKeys(letterTable) && noKeyTwice(letterTable));
static_assert(std::ranges::all_of(letterTable, isOfItsGroup));
static_assert(std::ranges::count(script::rows, script::Kind::consonant, &script::Row::kind) ==
              std::size(consonantTable)); // every consonant of the block can be typed
static_assert(text::threeByteScalar(virama) == script::virama);
static_assert(text::threeByteScalar(zeroWidthJoiner) == script::zeroWidthJoiner);
static_assert(std::ranges::find(vowelTable, "", &Vowel::sign)->keys.front() == inherentVowelKey);
static_assert(soundsAreLetters(soundsLikeTable, letterTable) && latinAscends(soundsLikeTable));

constexpr Letter badLetters[] = {
    {"කක", Group::vowel, {"a", "A1"}, "කක"},
    {"ක", Group::consonant, {"k", "kh"}, std::nullopt},
    {"ක", Group::consonant, {"kh", "K"}, std::nullopt},
};
static_assert(!isOfItsGroup({"ක", Group::vowel, {"k"}, ""}) &&
              !isOfItsGroup({"අ", Group::vowel, {"a"}, "අ"}));
static_assert(!isOfItsGroup({"අ", Group::consonant, {"a"}, ""}) &&
              !isOfItsGroup({"අ", Group::sign, {"a"}, ""}));
constexpr auto crowded = [] {
    const Consonant rows[] = {{{"k"}, "ක"}, {{"kh", "K", "q", "Q"}, "ඛ"}};
    return detail::tableOf(rows).crowded;
}();
static_assert(crowded == U'ඛ');
constexpr SoundsLike badSounds[] = {{'b', {"ක", "ග"}}, {'b', {"ක"}}};
static_assert(!everyIdIsOneScalar(badLetters) && !everySignIsOneScalarOrNone(badLetters));
static_assert(!noIdTwice(badLetters) && !everyLetterHasKeys(badLetters) && !noKeyTwice(badLetters));
static_assert(isKey("nndh") && !isKey("nndha") && !isKey("k1") && !isKey(""));
static_assert(!soundsAreLetters(badSounds, badLetters) && !latinAscends(badSounds));

const GroupNames& names(Group group) noexcept {
    return groupTable[static_cast<std::size_t>(group)];
}

std::string joined(std::initializer_list<std::string_view> pieces) {
    std::string result;
    for (const std::string_view piece : pieces)
        result += piece;
    return result;
}

bool equalKeys(const Keys& left, const Keys& right) {
    return std::ranges::equal(left, right, text::equal);
}

} // namespace

std::span<const Vowel> vowels() noexcept {
    return vowelTable;
}
std::span<const Consonant> consonants() noexcept {
    return consonantTable;
}
std::span<const Mark> marks() noexcept {
    return markTable;
}
std::span<const Letter> letters() noexcept {
    return letterTable;
}
std::span<const SoundsLike> soundsLike() noexcept {
    return soundsLikeTable;
}

std::string_view rawValue(Group group) noexcept {
    return names(group).rawValue;
}
std::string_view title(Group group) noexcept {
    return names(group).title;
}

std::optional<Group> group(std::string_view rawValue) noexcept {
    const auto row = std::ranges::find(groupTable, rawValue, &GroupNames::rawValue);
    return row == groupTable.end() ? std::nullopt : std::optional(row->group);
}

std::string Letter::display() const {
    return group == Group::sign ? joined({dottedCircle, id}) : std::string(id);
}

std::string Letter::example(std::string_view key) const {
    switch (group) {
    case Group::vowel:
        return joined({carrierKey, key, arrow, carrier, sign.value_or("")});
    case Group::consonant:
        return joined({key, inherentVowelKey, arrow, id});
    case Group::sign:
        break;
    }
    return joined({carrierKey, inherentVowelKey, key, arrow, carrier, id});
}

const Letter* letter(std::string_view id) {
    const auto found = std::ranges::find(letterTable, text::nfc(id), &Letter::id); // the ids are composed
    return found == letterTable.end() ? nullptr : &*found;
}

std::string display(std::string_view id) {
    const Letter* found = letter(id);
    return found ? found->display() : std::string(id);
}

std::span<const std::string_view> soundsLike(std::string_view character) {
    const std::string composed = text::nfc(character);
    const char latin = composed.size() == 1 ? composed.front() : '\0';
    const auto row = std::ranges::find(soundsLikeTable, latin, &SoundsLike::latin);
    return row == std::end(soundsLikeTable) ? std::span<const std::string_view>()
                                            : std::span(row->letters.begin(), row->letters.end());
}

bool operator==(const Vowel& left, const Vowel& right) {
    return equalKeys(left.keys, right.keys) && text::equal(left.letter, right.letter) &&
           text::equal(left.sign, right.sign);
}

bool operator==(const Consonant& left, const Consonant& right) {
    return equalKeys(left.keys, right.keys) && text::equal(left.letter, right.letter);
}

bool operator==(const Mark& left, const Mark& right) {
    return equalKeys(left.keys, right.keys) && text::equal(left.sign, right.sign) &&
           text::equal(left.name, right.name);
}

bool operator==(const Letter& left, const Letter& right) {
    return text::equal(left.id, right.id) && left.group == right.group && equalKeys(left.keys, right.keys) &&
           left.sign.has_value() == right.sign.has_value() &&
           text::equal(left.sign.value_or(""), right.sign.value_or(""));
}

} // namespace vanoka::SinglishScheme

using namespace vanoka::SinglishScheme;

std::size_t std::hash<Vowel>::operator()(const Vowel& vowel) const {
    vanoka::Hasher hasher;
    hasher.feedEach(vowel.keys);
    hasher.feed(vowel.letter);
    hasher.feed(vowel.sign);
    return hasher.value();
}

std::size_t std::hash<Consonant>::operator()(const Consonant& consonant) const {
    vanoka::Hasher hasher;
    hasher.feedEach(consonant.keys);
    hasher.feed(consonant.letter);
    return hasher.value();
}

std::size_t std::hash<Mark>::operator()(const Mark& mark) const {
    vanoka::Hasher hasher;
    hasher.feedEach(mark.keys);
    hasher.feed(mark.sign);
    hasher.feed(mark.name);
    return hasher.value();
}

std::size_t std::hash<Letter>::operator()(const Letter& letter) const {
    vanoka::Hasher hasher;
    hasher.feed(letter.id);
    hasher.feed(rawValue(letter.group));
    hasher.feedEach(letter.keys);
    if (letter.sign)
        hasher.feed(*letter.sign);
    return hasher.value();
}
