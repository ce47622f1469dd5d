#include "PlainWords.h"

#include "support/Fatal.h"
#include "text/Characters.h"
#include "text/Equivalence.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace vanoka::test::plain {

namespace {

using text::Characters;
using text::Scalars;

/// Written down a second time, by another hand than the library's table.
const std::map<char32_t, std::u32string> looseLetters = {
    {0x0D9B, U"\u0D9A"},
    {0x0D9D, U"\u0D9C"},
    {0x0DA1, U"\u0DA0"},
    {0x0DA3, U"\u0DA2"},
    {0x0DA8, U"\u0DAD"},
    {0x0DAA, U"\u0DAF"},
    {0x0DAE, U"\u0DAD"},
    {0x0DB0, U"\u0DAF"},
    {0x0DB5, U"\u0DB4"},
    {0x0DB7, U"\u0DB6"},
    {0x0DA7, U"\u0DAD"},
    {0x0DA9, U"\u0DAF"},
    {0x0DAB, U"\u0DB1"},
    {0x0DC5, U"\u0DBD"},
    {0x0DC1, U"\u0DC3"},
    {0x0DC2, U"\u0DC3"},
    {0x0D9E, U"\u0DB1"},
    {0x0D82, U"\u0DB1\u0DCA"},
    {0x0D9F, U"\u0DB1\u0DCA\u0D9C"},
    {0x0DAC, U"\u0DB1\u0DCA\u0DAF"},
    {0x0DB3, U"\u0DB1\u0DCA\u0DAF"},
    {0x0DB9, U"\u0DB8\u0DCA\u0DB6"},
    {0x0D86, U"\u0D85"},
    {0x0D88, U"\u0D87"},
    {0x0D8A, U"\u0D89"},
    {0x0D8C, U"\u0D8B"},
    {0x0D8E, U"\u0D8D"},
    {0x0D92, U"\u0D91"},
    {0x0D95, U"\u0D94"},
    {0x0DCF, U""},
    {0x0DD1, U"\u0DD0"},
    {0x0DD3, U"\u0DD2"},
    {0x0DD6, U"\u0DD4"},
    {0x0DF2, U"\u0DD8"},
    {0x0DDA, U"\u0DD9"},
    {0x0DDD, U"\u0DDC"},
    {0x200D, U""},
    {0x200C, U""},
};

bool isSign(char32_t scalar) {
    return (scalar >= 0x0DCA && scalar <= 0x0DDF) || (scalar >= 0x0D81 && scalar <= 0x0D83) ||
           (scalar >= 0x0DF2 && scalar <= 0x0DF3);
}

/// The pieces between the characters that are `separator`, without empty ones.
std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> pieces(1);
    for (const std::string_view character : Characters(text)) {
        if (character == separator)
            pieces.emplace_back();
        else
            pieces.back() += character;
    }
    std::erase(pieces, "");
    return pieces;
}

struct Syllable {
    char32_t letter = 0;
    std::u32string marks;
};

std::vector<Syllable> syllablesOf(std::string_view text) {
    std::vector<Syllable> syllables;
    for (const auto& scalar : Scalars(text)) {
        if (isSign(scalar.value) && !syllables.empty())
            syllables.back().marks += scalar.value;
        else
            syllables.push_back({scalar.value, {}});
    }
    return syllables;
}

bool startsWith(const std::vector<Syllable>& word, const std::vector<Syllable>& typed) {
    if (word.size() < typed.size())
        return false;
    for (std::size_t i = 0; i < typed.size(); ++i) {
        if (word[i].letter != typed[i].letter)
            return false;
        if (typed[i].marks != U"\u0DCA" && typed[i].marks != word[i].marks)
            return false;
    }
    return true;
}

/// Exactly, in a type that holds every result; stops like the library where 64 bits do not.
__extension__ typedef __int128 Wide;

std::int64_t checked(Wide value) {
    if (value > std::numeric_limits<std::int64_t>::max() || value < std::numeric_limits<std::int64_t>::min())
        fatal("plain: overflow");
    return static_cast<std::int64_t>(value);
}

} // namespace

std::vector<std::pair<std::string, std::string>> rowsOf(std::string_view tsv) {
    std::vector<std::pair<std::string, std::string>> rows;
    for (const std::string& line : split(tsv, "\n")) {
        const auto fields = split(line, "\t");
        if (text::firstCharacter(line) == "#" || !text::isWellFormed(line) || fields.size() != 2)
            continue;
        rows.emplace_back(fields[0], fields[1]);
    }
    return rows;
}

std::optional<std::int64_t> integerOf(std::string_view field) {
    const bool isSigned = !field.empty() && (field[0] == '-' || field[0] == '+');
    const std::string_view digits = field.substr(isSigned ? 1 : 0);
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    const std::string_view counted = digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
    const bool isNegative = field[0] == '-';
    const std::string_view largest = isNegative ? "9223372036854775808" : "9223372036854775807";
    if (counted.size() > largest.size() || (counted.size() == largest.size() && counted > largest))
        return std::nullopt;
    std::uint64_t value = 0;
    for (const char digit : counted)
        value = value * 10 + static_cast<std::uint64_t>(digit - '0');
    return static_cast<std::int64_t>(isNegative ? 0 - value : value);
}

std::string looseKey(std::string_view text) {
    std::string key;
    for (const std::string nfc = text::nfc(text); const auto& scalar : Scalars(nfc)) {
        if (const auto row = looseLetters.find(scalar.value); row != looseLetters.end())
            for (const char32_t each : row->second)
                key += text::utf8(each);
        else
            key += text::utf8(scalar.value);
    }
    return key;
}

std::string skeletonOf(std::string_view text) {
    std::string skeleton;
    for (const auto& scalar : Scalars(text))
        if (!isSign(scalar.value))
            skeleton += text::utf8(scalar.value);
    return skeleton;
}

SinhalaWords::SinhalaWords(const std::vector<WordCount>& words) {
    std::vector<std::int64_t> counts;
    for (const auto& [word, count] : words) {
        const std::string key = looseKey(word);
        entries_.push_back({key, skeletonOf(key), word, count});
        counts.push_back(count);
    }
    std::ranges::stable_sort(entries_, {}, &Entry::key);
    bySkeleton_.resize(entries_.size());
    std::iota(bySkeleton_.begin(), bySkeleton_.end(), std::size_t{0});
    std::ranges::stable_sort(bySkeleton_, {}, [this](std::size_t i) { return entries_[i].skeleton; });
    std::ranges::sort(counts, std::ranges::greater());
    if (!counts.empty())
        typicalCount_ = counts[std::min<std::size_t>(counts.size(), 1001) - 1];
}

SinhalaWords SinhalaWords::read(std::string_view tsv) {
    std::vector<WordCount> words;
    for (const auto& [word, field] : rowsOf(tsv))
        if (const auto count = integerOf(field))
            words.push_back({word, *count});
    return SinhalaWords(words);
}

std::vector<WordCount> SinhalaWords::words() const {
    std::vector<WordCount> words;
    for (const Entry& entry : entries_)
        words.push_back({entry.word, entry.count});
    return words;
}

std::int64_t SinhalaWords::countOfSpelling(std::string_view text) const {
    const std::string key = looseKey(text);
    std::int64_t largest = 0;
    for (const Entry& entry : entries_)
        if (entry.key == key)
            largest = std::max(largest, entry.count);
    return largest;
}

void SinhalaWords::insert(Match match, std::int64_t limit, Matches& matches) {
    const auto size = static_cast<std::int64_t>(matches.size());
    if (size >= limit && matches.back().score >= match.score)
        return;
    const auto place =
        std::ranges::find_if(matches, [&](const Match& each) { return each.score < match.score; });
    matches.insert(place, std::move(match));
    if (size + 1 > limit)
        matches.pop_back();
}

SinhalaWords::Matches SinhalaWords::spelledMatches(const std::string& key, const std::string& excluded,
                                                   std::int64_t limit) const {
    Matches matches;
    auto entry = std::ranges::lower_bound(entries_, key, {}, &Entry::key);
    for (; entry != entries_.end() && entry->key.starts_with(key); ++entry) {
        if (text::equal(entry->word, excluded))
            continue;
        const std::int64_t score = entry->key == key ? checked(Wide{3} * entry->count) : entry->count;
        insert({score, entry->word}, limit, matches);
    }
    return matches;
}

SinhalaWords::Matches SinhalaWords::abbreviatedMatches(const std::string& key, const std::string& excluded,
                                                       std::int64_t limit) const {
    Matches matches;
    const auto typed = syllablesOf(key);
    const std::string skeleton = skeletonOf(key);
    auto at = std::ranges::lower_bound(bySkeleton_, skeleton, {},
                                       [this](std::size_t i) { return entries_[i].skeleton; });
    for (; at != bySkeleton_.end() && entries_[*at].skeleton.starts_with(skeleton); ++at) {
        const Entry& entry = entries_[*at];
        if (text::equal(entry.word, excluded))
            continue;
        const auto syllables = syllablesOf(entry.key);
        if (!startsWith(syllables, typed))
            continue;
        const bool isWhole = syllables.size() == typed.size();
        insert({isWhole ? checked(Wide{3} * entry.count) : entry.count, entry.word}, limit, matches);
    }
    return matches;
}

SinhalaWords::Matches SinhalaWords::combined(const std::vector<Matches>& lists, std::int64_t limit) {
    if (lists.size() == 1)
        return lists[0];
    Matches totals;
    for (const Matches& list : lists) {
        for (const Match& match : list) {
            const auto known = std::ranges::find_if(
                totals, [&](const Match& each) { return text::equal(each.word, match.word); });
            if (known == totals.end())
                totals.push_back(match);
            else
                known->score = checked(Wide{known->score} + match.score);
        }
    }
    std::ranges::sort(totals, [](const Match& left, const Match& right) {
        if (left.score != right.score)
            return left.score > right.score;
        return text::nfc(left.word) < text::nfc(right.word);
    });
    if (static_cast<std::int64_t>(totals.size()) > limit)
        totals.resize(static_cast<std::size_t>(limit));
    return totals;
}

std::vector<std::string> SinhalaWords::suggestionsFor(std::string_view text, std::int64_t limit,
                                                      const SinhalaWords* personal) const {
    const std::string virama = "\u0DCA";
    const std::string typed = looseKey(text);
    const std::string key = typed.ends_with(virama) ? typed.substr(0, typed.size() - virama.size()) : typed;
    if (key.empty() || limit < 1)
        return {};
    const std::string excluded = text::nfc(text);
    std::vector<const SinhalaWords*> lists = {this};
    if (personal)
        lists.push_back(personal);
    std::vector<Matches> found;
    for (const SinhalaWords* list : lists)
        found.push_back(list->spelledMatches(key, excluded, limit));
    const Matches spelled = combined(found, limit);
    std::vector<std::string> result;
    if (key.find(virama) == std::string::npos) {
        for (const Match& match : spelled)
            result.push_back(match.word);
        return result;
    }
    found.clear();
    for (const SinhalaWords* list : lists)
        found.push_back(list->abbreviatedMatches(typed, excluded, limit));
    const Matches abbreviated = combined(found, limit);
    Matches pool;
    if (!spelled.empty()) {
        result.push_back(spelled[0].word);
        pool.assign(spelled.begin() + 1, spelled.end());
    } else if (!abbreviated.empty()) {
        result.push_back(abbreviated[0].word);
    }
    pool.insert(pool.end(), abbreviated.begin(), abbreviated.end());
    std::ranges::stable_sort(pool, std::ranges::greater(), &Match::score);
    for (const Match& match : pool) {
        if (static_cast<std::int64_t>(result.size()) >= limit)
            break;
        const auto isSame = [&](const std::string& each) { return text::equal(each, match.word); };
        if (std::ranges::none_of(result, isSame))
            result.push_back(match.word);
    }
    return result;
}

EnglishWords EnglishWords::read(std::string_view tsv) {
    EnglishWords list;
    for (const auto& [word, field] : rowsOf(tsv)) {
        const auto isSame = [&listed = word](const auto& other) { return text::equal(other, listed); };
        if (field == "chat") {
            if (std::ranges::none_of(list.chat, isSame))
                list.chat.push_back(word);
        } else if (const auto count = integerOf(field)) {
            const auto known = std::ranges::find_if(list.counts, isSame, &WordCount::word);
            if (known == list.counts.end())
                list.counts.push_back({word, *count});
            else
                known->count = *count;
        }
    }
    return list;
}

std::int64_t EnglishWords::countOf(std::string_view word) const {
    for (const auto& [each, count] : counts)
        if (text::equal(each, text::lowercased(word)))
            return count;
    return 0;
}

bool EnglishWords::keepsEnglish(std::string_view word, std::string_view over, const SinhalaWords& sinhala,
                                std::int64_t keptInEnglish, std::int64_t typedInSinhala) const {
    if (text::characterCount(word) < 2)
        return false;
    if (keptInEnglish != typedInSinhala)
        return typedInSinhala < keptInEnglish;
    for (const std::string& each : chat)
        if (text::equal(each, text::lowercased(word)))
            return true;
    if (countOf(word) < 500)
        return false;
    return countOf(word) > checked(Wide{2} * sinhala.countOfSpelling(over));
}

EmojiTable EmojiTable::read(std::string_view tsv) {
    EmojiTable table;
    for (const auto& [word, field] : rowsOf(tsv)) {
        const auto emoji = split(field, " ");
        bool isSinhala = false;
        for (const auto& scalar : Scalars(word))
            isSinhala = isSinhala || (scalar.value >= 0x0D80 && scalar.value <= 0x0DFF);
        if (isSinhala) {
            if (!table.matchForSinhala(word))
                table.sinhala.push_back({looseKey(word), {word, emoji}});
            continue;
        }
        const std::string key = text::lowercased(word);
        auto known = std::ranges::find_if(table.english,
                                          [&](const auto& each) { return text::equal(each.word, key); });
        if (known == table.english.end())
            known = table.english.insert(known, {key, {}});
        known->emoji.insert(known->emoji.end(), emoji.begin(), emoji.end());
    }
    return table;
}

std::optional<EmojiWords::Entry> EmojiTable::matchForSinhala(std::string_view word) const {
    for (const auto& [key, entry] : sinhala)
        if (key == looseKey(word))
            return entry;
    return std::nullopt;
}

std::vector<std::string> EmojiTable::emojiForEnglish(std::string_view word) const {
    for (const auto& [each, emoji] : english)
        if (text::equal(each, text::lowercased(word)))
            return emoji;
    return {};
}

} // namespace vanoka::test::plain
