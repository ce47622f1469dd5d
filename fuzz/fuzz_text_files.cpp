#include "CountScale.h"
#include "EmojiAnnotations.h"
#include "Fuzz.h"
#include "ImportedKeys.h"
#include "KeyboardFile.h"
#include "ListCheck.h"
#include "NeverOffered.h"
#include "ReadingAccuracy.h"
#include "StrokeFile.h"
#include "SuggestionChoices.h"
#include "settings/SinglishSettings.h"
#include "swipe/SwipeLayout.h"
#include "text/Utf8.h"
#include "words/ListReading.h"

#include <cmath>
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
    guessListKind(text);
    CountScale::scaled(text, CountScale::usualTotal);
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
    importedKeys(input.customization());
    return 0;
}
