#include "RankedWords.h"

#include "text/Equivalence.h"
#include "words/CompactText.h"
#include "words/WordLetters.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace vanoka {

namespace {

using Words = std::vector<std::string>;

/// Words, each once, none of which is never offered.
class Offer {
public:
    explicit Offer(const TypedWord& word, const NeverOffered& never)
        : never_(never), known_{text::nfc(word.preview)} {}

    /// The first of `words` that are not there yet, until there are `most` in all.
    void add(const Words& words, std::size_t most) {
        for (const std::string& word : words)
            if (words_.size() < most && !never_.holds(word) && known_.insert(text::nfc(word)).second)
                words_.push_back(word);
    }
    const Words& words() const { return words_; }

private:
    const NeverOffered& never_;
    std::set<std::string> known_; // composed
    Words words_;
};

/// Asks `find` for more and more words until `limit` of them may be offered, or there are no more.
template <class Find>
Words offered(const TypedWord& word, const NeverOffered& never, std::size_t limit, Find find) {
    for (std::size_t asked = limit + 1;; asked *= 2) { // one of them may be the preview
        const Words words = find(static_cast<std::int64_t>(asked));
        Offer offer(word, never);
        offer.add(words, limit);
        if (offer.words().size() == limit || words.size() < asked)
            return offer.words();
    }
}

Words spelledSo(const SinhalaWordList& source, const SinhalaWordList* added, const TypedWord& word,
                const NeverOffered& never, std::size_t limit) {
    return offered(word, never, limit,
                   [&](std::int64_t asked) { return source.suggestionsFor(word.preview, asked, added); });
}

Words readSo(const SuggestionLists& lists, const PersonalWords* personal, const TypedWord& word,
             std::size_t limit, const LetterReadings& readings, ReadingMemory* memory) {
    if (!lists.reading)
        return {};
    const TypedWords* own = personal && personal->reading ? &*personal->reading : nullptr;
    const auto spelling = lists.english.contains(word.keys) ? TypedWords::Spelling::sinhalaOrEnglish
                                                            : TypedWords::Spelling::sinhala;
    return offered(word, lists.neverOffered, limit, [&](std::int64_t asked) {
        return lists.reading->wordsTyped(word.keys, asked, own, readings, memory, spelling);
    });
}

/// True for consonants alone, all of them killed: nobody writes a word so, many abbreviate one.
bool isAbbreviation(std::string_view preview) {
    std::string compact, letters;
    return CompactText::assign(preview, compact) && WordLetters::assign(compact, letters) &&
           std::ranges::all_of(letters, [](char letter) {
               const auto kind = WordLetters::kind(WordLetters::fromByte(letter));
               return kind == script::Kind::consonant || kind == script::Kind::virama;
           });
}

/// What was found in both ways, the better one first.
struct Found {
    Words first, second;
};

Found inOrder(const TypedWord& word, Words read, Words spelled) {
    if (isAbbreviation(word.preview))
        return {std::move(spelled), std::move(read)};
    return {std::move(read), std::move(spelled)};
}

/// This person's own words, some of them twice: those that may be slips go last.
Words ownWords(const TypedWord& word, const SuggestionLists& lists, const PersonalWords& personal, Words read,
               std::size_t limit) {
    std::erase_if(read, [&](const std::string& each) { return !personal.sinhala.contains(each); });
    Found found = inOrder(word, std::move(read),
                          spelledSo(personal.sinhala, nullptr, word, lists.neverOffered, 2 * limit));
    Words words = std::move(found.first);
    std::ranges::move(found.second, std::back_inserter(words));
    std::stable_partition(words.begin(), words.end(), [&](const std::string& each) {
        return personal.sinhala.countOfSpelling(each) > 1 || lists.sinhala.countOfSpelling(each) > 0;
    });
    return words;
}

} // namespace

std::vector<std::string> rankedWords(const TypedWord& word, const SuggestionLists& lists,
                                     const PersonalWords* personal, std::size_t limit,
                                     const LetterReadings& readings, ReadingMemory* memory) {
    if (limit == 0)
        return {};
    Words read = readSo(lists, personal, word, limit, readings, memory);
    Offer offer(word, lists.neverOffered);
    if (personal) {
        const std::size_t most = (limit + 1) / 2;
        offer.add(ownWords(word, lists, *personal, read, most), most);
    }
    const Found found = inOrder(
        word, std::move(read),
        spelledSo(lists.sinhala, personal ? &personal->sinhala : nullptr, word, lists.neverOffered, limit));
    offer.add(found.first, limit > 2 ? limit - 1 : limit);
    offer.add(found.second, limit);
    offer.add(found.first, limit);
    return offer.words();
}

} // namespace vanoka
