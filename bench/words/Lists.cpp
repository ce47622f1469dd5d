#include "Lists.h"

#include "WordLists.h"
#include "script/SinhalaBlock.h"
#include "text/Utf8.h"
#include "words/SinhalaSpelling.h"

#include <algorithm>
#include <map>
#include <set>

namespace vanoka::bench {

namespace {

constexpr std::string_view virama = "\u0DCA";
constexpr std::size_t mostLetters = 4;

/// A joiner is no letter that anybody waits for.
bool endsLetter(std::string_view rest) {
    const char32_t scalar = text::firstScalar(rest).value;
    return rest.empty() || (!script::isSign(scalar) && scalar != script::zeroWidthJoiner);
}

/// What a typist has written after each of the first letters of a word: the letters with their signs, the
/// same without the last one's signs, and what abbreviates them: each with a virama in place of its signs,
/// but the last one perhaps without.
void collectPrefixes(std::string_view word, std::set<std::string>& oneLetter,
                     std::set<std::string>& prefixes) {
    std::string written, abbreviated;
    for (std::size_t letters = 0; letters < mostLetters && !word.empty(); ++letters) {
        if (letters > 0)
            abbreviated += virama;
        abbreviated += word.substr(0, text::firstScalar(word).length);
        const std::string_view letter = word.substr(0, text::firstScalar(word).length);
        prefixes.insert(written + std::string(letter));
        if (letters == 0)
            oneLetter.emplace(letter);
        do {
            const std::size_t length = text::firstScalar(word).length;
            written += word.substr(0, length);
            word.remove_prefix(length);
        } while (!endsLetter(word));
        prefixes.insert(written);
        prefixes.insert(abbreviated);
        prefixes.insert(abbreviated + std::string(virama));
    }
}

} // namespace

const GeneratedList& generatedList(std::size_t size) {
    static std::map<std::size_t, GeneratedList> lists;
    const auto [place, isNew] = lists.try_emplace(size);
    GeneratedList& made = place->second;
    if (!isNew)
        return made;
    const auto words = test::sinhalaLikeWords(size);
    made.tsv = test::tsvOf(words);
    made.list = SinhalaWordList(made.tsv);
    std::set<std::string> oneLetter, prefixes;
    for (const WordCount& word : words) {
        made.ownBytes += word.word.size();
        collectPrefixes(word.word, oneLetter, prefixes);
    }
    made.oneLetter.assign(oneLetter.begin(), oneLetter.end());
    made.prefixes.assign(prefixes.begin(), prefixes.end());
    return made;
}

PlainWalk::PlainWalk(const GeneratedList& list) {
    for (const auto& [word, count] : list.list.words())
        entries_.push_back({SinhalaSpelling::looseKey(word), word, count});
}

std::vector<std::string> PlainWalk::suggestionsFor(const std::string& text, std::size_t limit) const {
    const std::string key = SinhalaSpelling::looseKey(text);
    std::vector<std::pair<std::int64_t, const Entry*>> best;
    auto entry = std::ranges::lower_bound(entries_, key, {}, &Entry::key);
    for (; entry != entries_.end() && entry->key.starts_with(key); ++entry) {
        const std::int64_t score = entry->key.size() == key.size() ? 3 * entry->count : entry->count;
        if (best.size() == limit && best.back().first >= score)
            continue;
        const auto place = std::ranges::find_if(best, [&](const auto& each) { return each.first < score; });
        best.insert(place, {score, &*entry});
        if (best.size() > limit)
            best.pop_back();
    }
    std::vector<std::string> words;
    for (const auto& [score, each] : best)
        words.push_back(each->word);
    return words;
}

} // namespace vanoka::bench
