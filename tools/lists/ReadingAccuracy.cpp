#include "ReadingAccuracy.h"

#include "text/Equivalence.h"
#include "text/Rows.h"
#include "text/Utf8.h"

#include <algorithm>
#include <cstdio>
#include <unordered_set>

namespace vanoka {

namespace {

constexpr std::size_t shown = PlaceShares::bounds.back();
constexpr std::size_t atAGlance = 3;

std::vector<std::string_view> fieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    while (true) {
        const std::size_t end = std::min(line.find('\t'), line.size());
        fields.push_back(line.substr(0, end));
        if (end == line.size())
            return fields;
        line.remove_prefix(end + 1);
    }
}

/// What two words have in common that differ in joiners alone.
std::string withoutJoiners(std::string_view word) {
    std::string result;
    const std::string composed = text::nfc(word);
    for (const text::Scalar& scalar : text::Scalars(composed))
        if (scalar.wellFormed && !script::isJoiner(scalar.value))
            result += text::utf8(scalar.value);
    return result;
}

using Words = std::vector<std::string>;

/// From 0; beyond all that is shown when it does not stand there.
std::size_t placeOf(const std::string& wanted, const Words& words) {
    const auto found = std::ranges::find(words, wanted, withoutJoiners);
    return found == words.end() ? shown : static_cast<std::size_t>(found - words.begin());
}

/// The words with `first` in front, and not twice.
Words withFirst(const std::string& first, Words words) {
    std::erase_if(words, [key = withoutJoiners(first)](const std::string& word) {
        return withoutJoiners(word) == key;
    });
    words.insert(words.begin(), first);
    return words;
}

/// Reads as the line of candidates does.
class Reader {
public:
    Reader(const TypedWords& words, const EnglishWordList& english) : words_(words), english_(english) {}

    Words read(std::string_view typed, std::size_t limit, ReadingMemory* memory = nullptr) const {
        return words_.wordsTyped(typed, static_cast<std::int64_t>(limit), nullptr, {}, memory,
                                 english_.contains(typed) ? TypedWords::Spelling::sinhalaOrEnglish
                                                          : TypedWords::Spelling::sinhala);
    }
    /// How many letters have to be typed until the word stands among the first few; all, when it never does.
    std::size_t lettersNeeded(std::string_view typed, const std::string& wanted) const {
        ReadingMemory memory;
        for (std::size_t length = 1; length < typed.size(); ++length)
            if (placeOf(wanted, read(typed.substr(0, length), atAGlance, &memory)) < atAGlance)
                return length;
        return typed.size();
    }

private:
    const TypedWords& words_;
    const EnglishWordList& english_;
};

void appendRow(std::string& text, const char* name, const PlaceShares& shares) {
    char row[96];
    std::snprintf(row, sizeof row, "%-44s", name);
    text += row;
    for (std::size_t bound = 0; bound < PlaceShares::bounds.size(); ++bound) {
        std::snprintf(row, sizeof row, "%8.1f", 100 * shares.share(bound));
        text += row;
    }
    text += '\n';
}

} // namespace

RomanizationFile readRomanizations(std::string_view text) {
    RomanizationFile file;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.empty() || line.starts_with('#'))
            continue;
        const auto fields = fieldsOf(line);
        const auto count = fields.size() == 3 ? text::integer(fields[2]) : std::optional<std::int64_t>(1);
        const bool isWhole =
            (fields.size() == 2 || fields.size() == 3) && !fields[0].empty() && !fields[1].empty();
        constexpr std::int64_t mostCount = 1'000'000'000;
        if (isWhole && count && *count >= 1 && text::isWellFormed(line))
            file.romanizations.push_back(
                {std::string(fields[0]), std::string(fields[1]), std::min(*count, mostCount)});
        else
            ++file.skipped;
    }
    return file;
}

void PlaceShares::add(std::size_t place, std::int64_t weight) {
    all_ += static_cast<double>(weight);
    for (std::size_t bound = 0; bound < bounds.size(); ++bound)
        if (place < bounds[bound])
            within_[bound] += static_cast<double>(weight);
}

double PlaceShares::share(std::size_t bound) const {
    return all_ > 0 ? within_[bound] / all_ : 0;
}

void ReadingAccuracy::Shares::add(std::size_t place, bool isListed, std::int64_t weight) {
    all.add(place, weight);
    if (isListed)
        listed.add(place, weight);
}

ReadingAccuracy accuracyOf(const SinhalaWordList& list, const EnglishWordList& english,
                           TypedWords::Unlisted unlisted, const std::vector<Romanization>& romanizations) {
    const TypedWords words(list, unlisted);
    const Reader reader(words, english);
    const SinglishTransliterator& keys = SinglishTransliterator::standard();
    std::unordered_set<std::string> listed;
    for (const WordCount& each : list.words())
        listed.insert(withoutJoiners(each.word));
    ReadingAccuracy accuracy;
    double listedWeight = 0, letters = 0, needed = 0;
    for (const auto& [typed, word, count] : romanizations) {
        const auto weight = static_cast<double>(count);
        const std::string wanted = withoutJoiners(word), written = keys.transliterate(typed);
        const bool isListed = listed.contains(wanted);
        const Words read = reader.read(typed, shown);
        accuracy.romanizations += count;
        listedWeight += isListed ? weight : 0;
        accuracy.suggested.add(placeOf(wanted, withFirst(written, list.suggestionsFor(written, shown))),
                               isListed, count);
        accuracy.ranked.add(placeOf(wanted, read), isListed, count);
        accuracy.typedFirst.add(placeOf(wanted, withFirst(written, read)), isListed, count);
        letters += weight * static_cast<double>(typed.size());
        needed += weight * static_cast<double>(reader.lettersNeeded(typed, wanted));
    }
    accuracy.listedShare =
        accuracy.romanizations > 0 ? listedWeight / static_cast<double>(accuracy.romanizations) : 0;
    accuracy.lettersSaved = letters > 0 ? 1 - needed / letters : 0;
    return accuracy;
}

std::string table(const ReadingAccuracy& accuracy) {
    std::string text = "romanizations " + std::to_string(accuracy.romanizations) + '\n';
    char row[96];
    std::snprintf(row, sizeof row, "of words in the list %.1f %%\n", 100 * accuracy.listedShare);
    text += row;
    std::snprintf(row, sizeof row, "letters saved %.1f %%\n\n", 100 * accuracy.lettersSaved);
    text += row;
    std::snprintf(row, sizeof row, "%-44s%8s%8s%8s\n", "the word in the first, %", "1", "3", "5");
    text += row;
    appendRow(text, "typed form, then suggestions", accuracy.suggested.all);
    appendRow(text, "read and ranked", accuracy.ranked.all);
    appendRow(text, "typed form, then read", accuracy.typedFirst.all);
    appendRow(text, "words in the list: typed, then suggestions", accuracy.suggested.listed);
    appendRow(text, "words in the list: read and ranked", accuracy.ranked.listed);
    appendRow(text, "words in the list: typed, then read", accuracy.typedFirst.listed);
    return text;
}

} // namespace vanoka
