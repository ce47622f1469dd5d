#include "words/LetterReadings.h"

#include "singlish/SchemeTables.h"
#include "support/Sort.h"
#include "text/LetterCase.h"
#include "words/ReadingRows.h"

#include <algorithm>
#include <memory>
#include <tuple>

namespace vanoka {

namespace {

using namespace ReadingRows;

// The figures were learnt from what people without a scheme typed for Sinhala words: the romanizations of the
// data set "Dakshina" (Google, CC BY-SA 4.0), aligned with the words letter by letter. They are facts learnt
// from those data, rounded; the data themselves are no part of this program. Ways that came in fewer than one
// of a hundred are left out, and so are those that a few odd alignments made, such as gkha for kh. A row "by
// hand" is a letter too rare to learn from; it is written like its neighbours. Keys of the scheme that nobody
// there used have 50 thousandths, at the others' expense, so that people who know the keys are read as well.

// clang-format off

constexpr auto table = std::to_array<Row>({
    // Vowels, short and long. Length is rarely written: aa in one of twenty, ee for ī in one of six.
    {ofInherentVowel, {{"a", 1000}}},
    {U'අ', {{"a", 1000}}},
    {U'ආ', {{"a", 868}, {"aa", 132}}},
    {0x0DCF, {{"a", 950}, {"aa", 50}}},
    {U'ඇ', {{"a", 691}, {"ae", 259}, {"e", 50}}},
    {0x0DD0, {{"a", 525}, {"ae", 362}, {"e", 113}}},
    {U'ඈ', {{"a", 495}, {"ae", 316}, {"e", 89}, {"aa", 50}, {"aee", 50}}}, // by hand
    {0x0DD1, {{"a", 495}, {"ae", 316}, {"e", 89}, {"aa", 50}, {"aee", 50}}},
    {U'ඉ', {{"i", 974}, {"e", 26}}},
    {0x0DD2, {{"i", 1000}}},
    {U'ඊ', {{"i", 715}, {"e", 235}, {"ii", 50}}},
    {0x0DD3, {{"i", 800}, {"ee", 150}, {"ii", 50}}},
    {U'උ', {{"u", 1000}}},
    {0x0DD4, {{"u", 1000}}},
    {U'ඌ', {{"u", 950}, {"uu", 50}}},
    {0x0DD6, {{"u", 887}, {"oo", 63}, {"uu", 50}}},
    {U'එ', {{"e", 961}, {"", 39}}},
    {0x0DD9, {{"e", 1000}}},
    {U'ඒ', {{"e", 848}, {"a", 84}, {"ai", 18}, {"ee", 50}}},
    {0x0DDA, {{"e", 934}, {"a", 16}, {"ee", 50}}},
    {U'ඔ', {{"o", 1000}}},
    {0x0DDC, {{"o", 1000}}},
    {U'ඕ', {{"o", 878}, {"or", 47}, {"oa", 25}, {"oo", 50}}},
    {0x0DDD, {{"o", 950}, {"oo", 50}}},

    // Diphthongs.
    {U'ඓ', {{"ai", 786}, {"i", 214}}},
    {0x0DDB, {{"ai", 941}, {"i", 36}, {"ayi", 23}}},
    {U'ඖ', {{"au", 900}, {"ou", 50}, {"ow", 50}}}, // by hand
    {0x0DDE, {{"au", 925}, {"av", 41}, {"ou", 23}, {"ow", 11}}},

    // Vocalic r and l: r, and the vowel that a speaker hears beside it.
    {U'ඍ', {{"ir", 409}, {"r", 364}, {"ri", 136}, {"ru", 91}}},
    {0x0DD8, {{"r", 516}, {"ru", 463}, {"ur", 21}}},
    {U'ඎ', {{"ru", 397}, {"r", 237}, {"roo", 316}, {"rr", 50}}}, // by hand
    {0x0DF2, {{"ar", 316}, {"ru", 265}, {"roo", 211}, {"r", 158}, {"rr", 50}}},
    {U'ඏ', {{"li", 500}, {"lu", 300}, {"l", 200}}}, // by hand
    {0x0DDF, {{"au", 667}, {"lu", 200}, {"l", 133}}}, // by hand
    {U'ඐ', {{"li", 500}, {"lu", 300}, {"l", 200}}}, // by hand
    {0x0DF3, {{"li", 500}, {"lu", 300}, {"l", 200}}}, // by hand

    // Velars. Aspiration is mostly kept, k for kh in one of fourteen.
    {U'ක', {{"k", 982}, {"c", 18}}},
    {U'ඛ', {{"kh", 929}, {"k", 71}}},
    {U'ග', {{"g", 1000}}},
    {U'ඝ', {{"gh", 926}, {"g", 74}}},

    // Palatals.
    {U'ච', {{"ch", 612}, {"c", 388}}},
    {U'ඡ', {{"ch", 776}, {"j", 124}, {"chh", 50}, {"c", 50}}},
    {U'ජ', {{"j", 971}, {"g", 29}}},
    {U'ඣ', {{"jh", 950}, {"j", 50}}},

    // Retroflexes and dentals: t is either, th mostly the dental, and d both.
    {U'ට', {{"t", 1000}}},
    {U'ඨ', {{"th", 775}, {"t", 225}}},
    {U'ඩ', {{"d", 1000}}},
    {U'ඪ', {{"dh", 728}, {"d", 272}}},
    {U'ත', {{"th", 516}, {"t", 484}}},
    {U'ථ', {{"th", 966}, {"t", 34}}},
    {U'ද', {{"d", 950}, {"dh", 50}}},
    {U'ධ', {{"dh", 940}, {"d", 60}}},

    // Labials.
    {U'ප', {{"p", 1000}}},
    {U'ඵ', {{"ph", 784}, {"p", 216}}},
    {U'බ', {{"b", 1000}}},
    {U'භ', {{"bh", 877}, {"b", 123}}},
    {U'ෆ', {{"f", 876}, {"ph", 80}, {"ff", 44}}},

    // Nasals, and the anusvara, which sounds like the nasal of what follows.
    {U'ඞ', {{"ng", 500}, {"n", 450}, {"x", 50}}}, // by hand
    {U'ඤ', {{"n", 736}, {"gn", 88}, {"gy", 71}, {"y", 55}, {"kn", 50}}},
    {U'ඥ', {{"gn", 886}, {"jn", 48}, {"ny", 42}, {"gy", 12}, {"g", 12}}},
    {U'ණ', {{"n", 1000}}},
    {U'න', {{"n", 1000}}},
    {U'ම', {{"m", 1000}}},
    {0x0D82, {{"n", 569}, {"m", 317}, {"ng", 64}, {"x", 50}}},
    {0x0D81, {{"n", 600}, {"m", 400}}}, // by hand

    // Half-nasals: as the two letters that they sound like, or the second one alone.
    {U'ඟ', {{"ng", 758}, {"g", 142}, {"zg", 50}, {"nng", 50}}},
    {U'ඦ', {{"nj", 800}, {"j", 150}, {"zj", 50}}}, // by hand
    {U'ඬ', {{"nd", 808}, {"d", 92}, {"zd", 50}, {"nnd", 50}}},
    {U'ඳ', {{"nd", 687}, {"d", 103}, {"dh", 37}, {"ndh", 23}, {"zq", 50}, {"zdh", 50}, {"nndh", 50}}},
    {U'ඹ', {{"mb", 830}, {"b", 70}, {"zb", 50}, {"mmb", 50}}},

    // Semivowels and liquids. A glide between two vowels may be left out: kriawa.
    {U'ය', {{"y", 974}, {"", 26}}},
    {U'ර', {{"r", 1000}}},
    {U'ල', {{"l", 1000}}},
    {U'ළ', {{"l", 1000}}},
    {U'ව', {{"v", 821}, {"w", 179}}},

    // Sibilants, the breath and the visarga.
    {U'ශ', {{"s", 518}, {"sh", 482}}},
    {U'ෂ', {{"sh", 528}, {"s", 472}}},
    {U'ස', {{"s", 1000}}},
    {U'හ', {{"h", 1000}}},
    {0x0D83, {{"h", 1000}}},

    // The virama is silence.
    {0x0DCA, {{"", 999}}},
});

// clang-format on

constexpr char small(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

constexpr bool isSameInAnyCase(std::string_view typed, std::string_view key) {
    return std::ranges::equal(typed, key, {}, {}, small);
}

constexpr int leastForKeys = 50; // thousandths

constexpr bool hasKeys(const Row& row, const SinglishScheme::Keys& keys) {
    return std::ranges::all_of(keys, [&row](std::string_view key) {
        return std::ranges::any_of(row.ways, [key](const Way& way) {
            return isSameInAnyCase(way.typed, key) && way.thousandths >= leastForKeys;
        });
    });
}

/// A vowel is two letters of words: the vowel and its sign.
constexpr bool everyKeyIsThere(std::span<const Row> rows) {
    const auto has = [rows](char32_t letter, const SinglishScheme::Keys& keys) {
        return hasKeys(*std::ranges::find(rows, letter, &Row::letter), keys);
    };
    return std::ranges::all_of(SinglishScheme::letterTable, [&has](const SinglishScheme::Letter& letter) {
        const bool isSignThere =
            !letter.sign ||
            has(letter.sign->empty() ? ofInherentVowel : text::threeByteScalar(*letter.sign), letter.keys);
        return isSignThere && has(text::threeByteScalar(letter.id), letter.keys);
    });
}

static_assert(everyLetterHasARow(table) && noWayTwice(table) && rowsSumToOne(table));
static_assert(allAreShortAndSmall(table) && everyKeyIsThere(table));

// Each is noticed beside what is as it should be.
constexpr const Row& goodRow = *std::ranges::find(table, U'ආ', &Row::letter);
static_assert(!everyLetterHasARow(std::array<Row, WordLetters::count>{}) && !everyLetterHasARow({}));
static_assert(!noLetterTwice(std::array{goodRow, Row{U'අ', {}}, Row{U'අ', {}}}) &&
              !noLetterTwice(std::array{goodRow, Row{U'a', {}}}));
static_assert(!noWayTwice(std::array{goodRow, Row{U'අ', {{"a", 500}, {"a", 400}, {"b", 100}}}}));
static_assert(!rowsSumToOne(std::array{goodRow, Row{U'අ', {{"a", 999}}}}) &&
              !rowsSumToOne(std::array{goodRow, Row{script::virama, {{"", 1000}}}}));
static_assert(!allAreShortAndSmall(std::array{goodRow, Row{U'අ', {{"aA", 500}, {"a", 500}}}}) &&
              !allAreShortAndSmall(std::array{goodRow, Row{U'අ', {{"aaaaa", 1000}}}}));
static_assert(hasKeys({U'අ', {{"a", 50}}}, {"a"}) && !hasKeys({U'අ', {{"a", 49}}}, {"a"}) &&
              !hasKeys({U'අ', {{"a", 50}}}, {"a", "aa"}) && !hasKeys({U'අ', {{"a", 50}}}, {"aa"}));
static_assert([] {
    auto bad = table;
    std::ranges::find(bad, U'අ', &Row::letter)->ways = {{"e", leastForKeys}};
    return !everyKeyIsThere(bad);
}());
static_assert(isSameInAnyCase("azaz", "azAZ"));

using Reading = LetterReadings::Reading;
using Readings = std::vector<Reading>;

auto placeOf(const Reading& reading) {
    return std::tuple(std::string_view(reading.typed), reading.letter);
}

void add(const Row& row, Readings& readings) {
    for (const Way& way : row.ways)
        readings.push_back(
            {std::string(way.typed), WordLetters::letter(row.letter), way.thousandths / 1000.0});
}

std::shared_ptr<const Readings> inOrder(Readings readings) {
    sortRange(readings, {}, placeOf);
    return std::make_shared<const Readings>(std::move(readings));
}

std::shared_ptr<const Readings> builtIn() {
    static const std::shared_ptr<const Readings> readings = [] {
        Readings all;
        for (const Row& row : table)
            add(row, all);
        return inOrder(std::move(all));
    }();
    return readings;
}

/// The letters that English words never have are written as in all words.
std::shared_ptr<const Readings> ofEnglishWords() {
    static const std::shared_ptr<const Readings> readings = [] {
        Readings all;
        for (const Row& row : table) {
            const auto found = std::ranges::find(ReadingRows::ofEnglish(), row.letter, &Row::letter);
            add(found == ReadingRows::ofEnglish().end() ? row : *found, all);
        }
        return inOrder(std::move(all));
    }();
    return readings;
}

/// The reading becomes a sure one, whether it is known or not.
void makeSure(std::string typed, WordLetter letter, Readings& readings) {
    const Reading sure = {std::move(typed), letter, 1};
    const auto known = std::ranges::lower_bound(readings, placeOf(sure), {}, placeOf);
    const auto end = std::ranges::upper_bound(known, readings.end(), placeOf(sure), {}, placeOf);
    readings.insert(readings.erase(known, end), sure);
}

std::shared_ptr<const Readings> withKeys(const std::vector<SinglishCustomization::AddedKey>& keys) {
    Readings readings = *builtIn();
    for (const auto& [key, id] : keys) {
        const std::string typed = text::lowercased(key);
        const SinglishScheme::Letter* letter = SinglishScheme::letter(id);
        if (!letter || typed.empty() || !isShortAndSmall(typed))
            continue;
        makeSure(typed, WordLetters::letter(text::threeByteScalar(letter->id)), readings);
        if (letter->sign)
            makeSure(typed,
                     letter->sign->empty() ? WordLetters::inherent
                                           : WordLetters::letter(text::threeByteScalar(*letter->sign)),
                     readings);
    }
    return std::make_shared<const Readings>(std::move(readings));
}

} // namespace

LetterReadings::LetterReadings() : readings_(builtIn()) {}

LetterReadings::LetterReadings(const SinglishCustomization& customization)
    : readings_(customization.addedKeys.empty() ? builtIn() : withKeys(customization.addedKeys)) {}

LetterReadings LetterReadings::ofEnglish() {
    return LetterReadings(Shared<Readings>(ofEnglishWords()));
}

std::span<const Reading> LetterReadings::of(std::string_view typed) const noexcept {
    const auto first = std::ranges::lower_bound(*readings_, typed, {}, &Reading::typed);
    return {first, std::ranges::upper_bound(first, readings_->end(), typed, {}, &Reading::typed)};
}

double LetterReadings::probability(WordLetter letter, std::string_view typed) const noexcept {
    for (const Reading& reading : of(typed))
        if (reading.letter == letter)
            return reading.probability;
    return unknown(typed.size());
}

} // namespace vanoka
