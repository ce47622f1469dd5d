#include "CountScale.h"
#include "EmojiAnnotations.h"
#include "Fuzz.h"
#include "ImportedKeys.h"
#include "KeyboardFile.h"
#include "ListCheck.h"
#include "NeverOffered.h"
#include "PlainWords.h"
#include "ReadingAccuracy.h"
#include "StrokeFile.h"
#include "SuggestionChoices.h"
#include "settings/SinglishSettings.h"
#include "swipe/SwipeLayout.h"
#include "text/Rows.h"
#include "text/Sinhala.h"
#include "text/Utf8.h"
#include "words/ListReading.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <sstream>

using namespace vanoka;

/// The small files that people and programs write by hand, each reader given the same bytes.
namespace {

void keyboard(const std::string& text) {
    std::istringstream file(text);
    const auto read = readKeyboard(file);
    const auto* keyboard = std::get_if<Keyboard>(&read);
    if (!keyboard)
        return fuzz::expect(!std::get<BadLine>(read).problem.empty(), "a bad line has a reason");
    fuzz::expect(keyboard->keyWidth > 0 && keyboard->keyHeight > 0 && !keyboard->keys.empty(),
                 "a keyboard has keys of some size");
    const SwipeLayout layout(keyboard->layout());
    for (char letter = 'a'; letter <= 'z'; ++letter)
        fuzz::expect(layout.hasAll(std::string(1, letter)) == !std::isnan(layout.center(letter).x),
                     "a letter has a place when it has a key");
}

void strokes(const std::string& text) {
    std::istringstream file(text);
    const auto read = readStrokes(file);
    const auto* strokes = std::get_if<std::vector<MeantStroke>>(&read);
    if (!strokes)
        return fuzz::expect(!std::get<BadLine>(read).problem.empty(), "a bad line has a reason");
    std::stringstream written;
    for (const MeantStroke& stroke : *strokes)
        writeStroke(written, stroke);
    const std::string once = written.str();
    const auto again = readStrokes(written);
    const auto* same = std::get_if<std::vector<MeantStroke>>(&again);
    fuzz::expect(same && same->size() == strokes->size(), "strokes that were written are read");
    std::stringstream rewritten;
    for (const MeantStroke& stroke : *same)
        writeStroke(rewritten, stroke);
    fuzz::expect(rewritten.str() == once, "and are the same"); // as texts, for no number is equal to itself
}

void choices(const std::string& text) {
    const SuggestionChoices chosen = suggestionChoicesIn(text);
    fuzz::expect(chosen.rows >= CandidateLimit::least && chosen.rows <= CandidateLimit::most,
                 "a line of candidates has some rows");
    fuzz::expect(suggestionChoicesIn(textOf(chosen)) == chosen, "choices are read back equal");
}

void neverOffered(const std::string& text) {
    const NeverOffered words(text);
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    fuzz::expect(words.size() <= lines, "a line holds one word");
    std::istringstream file(text);
    for (std::string line; std::getline(file, line);) {
        const std::string word = line.substr(0, line.find_last_not_of(" \t\r") + 1);
        if (!word.empty() && !word.starts_with('#') && text::isWellFormed(word))
            fuzz::expect(words.holds(word), "a word of the file is never offered");
    }
    NeverOffered moved(words);
    fuzz::expect(moved.size() == words.size(), "a copy holds as much");
}

void romanized(const std::string& text) {
    for (const Romanization& each : readRomanizations(text).romanizations)
        fuzz::expect(each.count >= 1 && text::isWellFormed(each.typed) && text::isWellFormed(each.word),
                     "a romanization is well-formed and counts");
}

void emojiFiles(const std::string& text) {
    const auto annotations = readEmojiAnnotations(text);
    const auto emoji = readEmoji(text);
    if (!annotations)
        return;
    std::vector<std::string> all = emoji;
    for (const auto& [each, words] : *annotations)
        all.push_back(each);
    std::ranges::sort(all); // a map has no order
    fuzz::expect(problemsOf(emojiList(all, {*annotations}), ListKind::emoji).empty(),
                 "a list that is made loads as it is written");
}

void wordList(const std::string& text) {
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    for (const ListKind kind : {ListKind::sinhala, ListKind::english, ListKind::emoji})
        for (const LineProblem& problem : problemsOf(text, kind))
            fuzz::expect(problem.number >= 1 && problem.number <= lines && !problem.reason.empty(),
                         "a problem has a line and a reason");
}

bool isRead(std::string_view list, ListKind kind) {
    return countOf(LineProblem::Kind::skipped, problemsOf(list, kind)) == 0;
}

/// What a row can be read as: what has no count is no word of a list, and one of Sinhala is no English word.
ListKind kindOfRow(const std::string& line) {
    if (!isRead(line, ListKind::english))
        return ListKind::emoji;
    const bool isSinhala = isRead(line, ListKind::sinhala) && text::holdsSinhala(line);
    return isSinhala ? ListKind::sinhala : ListKind::english;
}

void guessedKind(const std::string& text) {
    std::array<std::size_t, 3> rows{};
    for (auto rest = ListReading::withoutByteOrderMark(text); !rest.empty();) {
        const std::string_view line = text::takeLine(rest);
        if (text::rowOf(line).kind != text::Row::Kind::fields)
            continue;
        const std::string alone =
            "\n" + std::string(line); // not a beginning, where a byte order mark is none
        const ListKind kind = guessListKind(alone);
        fuzz::expect(line.find('\n') != std::string_view::npos || kind == kindOfRow(alone),
                     "a row is taken for what it can be read as");
        ++rows[static_cast<std::size_t>(kind)];
    }
    const auto most = static_cast<ListKind>(std::ranges::max_element(rows) - rows.begin());
    fuzz::expect(guessListKind(text) == most, "a list is taken for what most of its rows are");
}

/// The row's count above 0; 0 for any other line.
std::int64_t countOf(std::string_view line) {
    const text::Row row = text::rowOf(line);
    const auto count = row.kind == text::Row::Kind::fields ? test::plain::integerOf(row.second)
                                                           : std::optional<std::int64_t>();
    return std::clamp<std::int64_t>(count.value_or(0), 0, ListReading::largestCount);
}

std::int64_t sumOf(std::string_view list) {
    std::int64_t sum = 0;
    while (!list.empty())
        sum += countOf(text::takeLine(list));
    return sum;
}

/// A list whose last line ends, too, or what ends it then would make another one of it.
void scaledCounts(const std::string& text, std::int64_t total) {
    const auto scaled = CountScale::scaled(text, total);
    std::string_view list = ListReading::withoutByteOrderMark(text);
    const std::int64_t sum = sumOf(list);
    fuzz::expect(scaled.has_value() == (sum > 0), "counts above 0 can be scaled");
    if (!scaled)
        return;
    std::int64_t rows = 0;
    std::string_view made = *scaled;
    while (!list.empty()) {
        const std::string_view line = text::takeLine(list), madeLine = text::takeLine(made);
        const std::int64_t count = countOf(line), madeCount = countOf(madeLine);
        rows += count > 0 ? 1 : 0;
        fuzz::expect(count > 0 ? text::rowOf(line).first == text::rowOf(madeLine).first : line == madeLine,
                     "all but the counts stays as it is");
        const bool isRounded = madeCount > 1 ? 2 * std::abs(madeCount * sum - count * total) <= sum
                                             : madeCount == 1 && 2 * count * total <= 3 * sum;
        fuzz::expect(count == 0 || isRounded, "a count keeps its part of the sum, but for rounding");
    }
    fuzz::expect(made.empty() && std::abs(sumOf(*scaled) - total) <= rows,
                 "the counts add up to the total, but for rounding");
}

/// The same as the settings do, key by key.
void importedKeys(const SinglishCustomization& wanted) {
    MemoryUserDefaults defaults;
    SinglishSettings settings(defaults);
    for (const std::string& key : wanted.disabledKeys)
        settings.setBuiltIn(key, false);
    for (const auto& [key, letter] : wanted.addedKeys)
        if (SinglishScheme::letter(letter))
            settings.add(key, letter);
    fuzz::expect(imported(wanted).keys == settings.customization(), "keys are imported as they are edited");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, std::min<std::size_t>(size, 4096));
    const std::string text = fuzz::Input(input).rest();
    keyboard(text);
    strokes(text);
    choices(text);
    neverOffered(text);
    romanized(text);
    emojiFiles(text);
    wordList(text);
    guessedKind(text);
    for (const std::int64_t total : {std::int64_t{1}, CountScale::usualTotal, ListReading::largestCount})
        scaledCounts(text + '\n', total);
    importedKeys(input.customization());
    return 0;
}
