#include "Fuzz.h"
#include "PlainReading.h"
#include "SinhalaPieces.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"
#include "words/TypedReadings.h"
#include "words/TypedWords.h"

#include <algorithm>
#include <cmath>
#include <set>

using namespace vanoka;
namespace plain = vanoka::test::plain;

namespace {

constexpr std::size_t longestTyped = 12; // the plain sum takes time with the power of it

/// What somebody may have typed: letters, and rarely something else.
std::string typed(fuzz::Input& input) {
    static constexpr std::string_view letters = "aeioukgnthdmyrlwshbpfcjvzqxAKTDN7";
    std::string text;
    for (int length = input.byte() % (longestTyped + 1); length > 0; --length) {
        const std::uint8_t piece = input.byte();
        text += piece == 255 ? '\x80' : letters[piece % letters.size()];
    }
    return text;
}

bool isRead(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, text::isAsciiLetter);
}

TypedWords::Spelling spellingOf(fuzz::Input& input) {
    return input.byte() % 2 == 0 ? TypedWords::Spelling::sinhala : TypedWords::Spelling::sinhalaOrEnglish;
}

void expectSameWords(const SinhalaWordList& list, const SinhalaWordList& own, const TypedWords& words,
                     const TypedWords& personal, const LetterReadings& readings, fuzz::Input& input) {
    const std::string text = typed(input);
    const std::int64_t limit = static_cast<std::int8_t>(input.byte()) % 12;
    const auto spelling = spellingOf(input);
    const auto plainly = [&](const std::vector<WordCount>& owned) {
        return isRead(text) && limit > 0
                   ? plain::wordsTyped(list.words(), owned, text::lowercased(text),
                                       static_cast<std::size_t>(limit), readings,
                                       spelling == TypedWords::Spelling::sinhalaOrEnglish)
                   : std::vector<std::string>();
    };
    fuzz::expect(words.wordsTyped(text, limit, nullptr, readings, nullptr, spelling) == plainly({}),
                 "the plain reading ranks the same");
    fuzz::expect(words.wordsTyped(text, limit, &personal, readings, nullptr, spelling) ==
                     plainly(own.words()),
                 "and with a personal list");
}

/// What is known of a word changes nothing while letters are typed and taken back.
void expectSameWithMemory(const TypedWords& words, const TypedWords& personal, const LetterReadings& readings,
                          fuzz::Input& input) {
    ReadingMemory memory;
    std::string text = typed(input);
    for (int step = input.byte() % 4; step >= 0; --step) {
        const std::int64_t limit = 1 + input.byte() % 12;
        const auto spelling = spellingOf(input);
        fuzz::expect(words.wordsTyped(text, limit, &personal, readings, &memory, spelling) ==
                         words.wordsTyped(text, limit, &personal, readings, nullptr, spelling),
                     "a letter more or fewer is read as the whole word");
        text = text.substr(0, input.byte()) + typed(input);
    }
}

void expectSameSum(const LetterReadings& readings, fuzz::Input& input) {
    const auto letters = plain::lettersOf(fuzz::sinhalaWord(input));
    const std::string text = text::lowercased(typed(input));
    if (!isRead(text) || letters.size() > 8)
        return;
    std::string bytes;
    for (const WordLetter letter : letters)
        bytes += WordLetters::byte(letter);
    const double expected = plain::sumOverAllCuts(letters, text, readings);
    const double sum = TypedReadings(text, readings).likelihood(bytes);
    fuzz::expect(std::abs(sum - expected) <= expected * 1e-12, "rows are the sum over all cuts");
}

/// What is made up of letters alone is a word that keys can type, with or without a list.
void expectWellFormedGuesses(const TypedWords& unlisted, const LetterReadings& readings, fuzz::Input& input) {
    const std::string text = typed(input);
    const auto guesses = unlisted.wordsTyped(text, 8, nullptr, readings);
    fuzz::expect(isRead(text) || guesses.empty(), "only letters are read");
    fuzz::expect(guesses.size() <= 8, "there are no more than were asked for");
    fuzz::expect(std::set(guesses.begin(), guesses.end()).size() == guesses.size(), "each word stands once");
    for (const std::string& guess : guesses)
        fuzz::expect(!guess.empty() && text::isWellFormed(guess), "a guess is well-formed");
}

} // namespace

/// What is typed in Latin letters without a scheme, read as the plain reading does, and guessed where no list
/// holds it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, std::min<std::size_t>(size, 400));
    const LetterReadings readings(input.customization());
    const SinhalaWordList list(fuzz::sinhalaWords(input)), own(fuzz::sinhalaWords(input));
    const TypedWords words(list), personal(own), unlisted(list, TypedWords::Unlisted::fourLetters);
    while (!input.isEmpty()) {
        expectSameWords(list, own, words, personal, readings, input);
        expectSameWithMemory(unlisted, personal, readings, input);
        expectSameSum(readings, input);
        expectWellFormedGuesses(unlisted, readings, input);
    }
    return 0;
}
