#include "words/SinhalaWordList.h"

#include "support/Checked.h"
#include "support/Sort.h"
#include "text/Equivalence.h"
#include "text/Rows.h"
#include "words/CompactText.h"
#include "words/ListReading.h"
#include "words/SinhalaSpelling.h"
#include "words/SinhalaWordIndex.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>

namespace vanoka {

namespace {

using Match = SinhalaWordIndex::Match;
using Matches = std::vector<Match>;

using Index = std::shared_ptr<const SinhalaWordIndex>;

std::int64_t asWritten(std::int64_t count) noexcept {
    return count;
}

/// `countOf` says what a count in the text becomes.
Index indexOf(std::string_view tsv, std::int64_t (*countOf)(std::int64_t)) {
    SinhalaWordIndex::Builder builder;
    text::forEachRow(tsv, [&](std::string_view word, std::string_view field) {
        if (const auto count = text::integer(field))
            builder.add(word, countOf(*count));
    });
    return std::make_shared<SinhalaWordIndex>(builder.finish());
}

Index indexOf(const std::vector<WordCount>& words) {
    SinhalaWordIndex::Builder builder;
    for (const auto& [word, count] : words)
        builder.add(word, count);
    return std::make_shared<SinhalaWordIndex>(builder.finish());
}

/// One list stays as it is. Of several, the scores of equal words are added up; best first, in the order of
/// the words among equals.
Matches combined(std::vector<Matches> lists, std::int64_t limit) {
    if (lists.size() == 1)
        return std::move(lists.front());
    std::map<std::string, std::int64_t, text::CanonicalLess> totals;
    for (const Matches& list : lists)
        for (const Match& match : list) {
            std::int64_t& total = totals[match.word];
            total = checked::sum(total, match.score);
        }
    Matches result;
    for (const auto& [word, total] : totals)
        result.push_back({total, word});
    sortRange(result, [](const Match& left, const Match& right) {
        return left.score != right.score ? left.score > right.score
                                         : text::CanonicalLess()(left.word, right.word);
    });
    if (static_cast<std::int64_t>(result.size()) > limit)
        result.resize(static_cast<std::size_t>(limit));
    return result;
}

std::vector<std::string> wordsOf(Matches matches) {
    std::vector<std::string> words;
    words.reserve(matches.size());
    for (Match& match : matches)
        words.push_back(std::move(match.word));
    return words;
}

/// The best whole word stays first, or else the best abbreviated one; the rest of both, which come best
/// first, go by score, each word once.
std::vector<std::string> ranked(Matches spelled, Matches abbreviated, std::int64_t limit) {
    const auto goFrom = [](auto place) { return std::make_move_iterator(place); };
    const auto first = spelled.empty() ? spelled.begin() : spelled.begin() + 1;
    Matches all(goFrom(spelled.begin()), goFrom(first));
    all.reserve(spelled.size() + abbreviated.size());
    std::merge(goFrom(first), goFrom(spelled.end()), goFrom(abbreviated.begin()), goFrom(abbreviated.end()),
               std::back_inserter(all),
               [](const Match& left, const Match& right) { return left.score > right.score; });
    std::vector<std::string> words;
    std::set<std::string> known; // composed once, instead of at every comparison
    for (Match& match : all)
        if (static_cast<std::int64_t>(words.size()) < limit && known.insert(text::nfc(match.word)).second)
            words.push_back(std::move(match.word));
    return words;
}

} // namespace

SinhalaWordList::SinhalaWordList() : SinhalaWordList(std::string_view()) {}

SinhalaWordList::SinhalaWordList(std::string_view tsv) : index_(indexOf(tsv, asWritten)) {}

SinhalaWordList SinhalaWordList::ofFile(std::string_view contents) {
    return SinhalaWordList(Shared(indexOf(ListReading::withoutByteOrderMark(contents), ListReading::held)));
}

SinhalaWordList::SinhalaWordList(const std::vector<WordCount>& words) : index_(indexOf(words)) {}

std::vector<WordCount> SinhalaWordList::words() const {
    std::vector<WordCount> words;
    words.reserve(index_->words().size());
    for (std::uint32_t number = 0; number < index_->words().size(); ++number)
        words.push_back({index_->words().text(number), index_->count(number)});
    return words;
}

std::int64_t SinhalaWordList::size() const noexcept {
    return index_->words().size();
}

std::int64_t SinhalaWordList::typicalCount() const noexcept {
    return index_->typicalCount();
}

bool SinhalaWordList::contains(std::string_view word) const {
    std::string compact, key;
    if (!CompactText::assign(word, compact))
        return false;
    SinhalaSpelling::assignLooseKey(compact, key);
    const KeyedTexts& words = index_->words();
    const KeyedTexts::Range range = words.equalTo(key);
    for (std::uint32_t number = range.first; number < range.end; ++number)
        if (text::equal(words.text(number), word))
            return true;
    return false;
}

std::int64_t SinhalaWordList::countOfSpelling(std::string_view text) const {
    std::string compact, key;
    if (!CompactText::assign(text, compact))
        return 0;
    SinhalaSpelling::assignLooseKey(compact, key);
    return index_->countUnder(key);
}

std::vector<std::string> SinhalaWordList::suggestionsFor(std::string_view text, std::int64_t limit,
                                                         const SinhalaWordList* personal) const {
    std::string compact, typed;
    if (!CompactText::assign(text, compact))
        return {};
    SinhalaSpelling::assignLooseKey(compact, typed);
    std::string_view key = typed;
    if (key.ends_with(CompactText::virama))
        key.remove_suffix(CompactText::virama.size());
    if (key.empty() || limit < 1)
        return {};

    std::vector<const SinhalaWordIndex*> lists = {&*index_};
    if (personal)
        lists.push_back(&*personal->index_);
    const auto combinedOf = [&](auto matchesOf) {
        std::vector<Matches> found;
        found.reserve(lists.size());
        for (const SinhalaWordIndex* list : lists)
            found.push_back(matchesOf(*list));
        return combined(std::move(found), limit);
    };
    const SinhalaWordIndex::Excluded excluded = {typed, text};
    Matches spelled = combinedOf([&](const auto& list) { return list.spelledMatches(key, excluded, limit); });
    if (!CompactText::hasVirama(key))
        return wordsOf(std::move(spelled));
    Matches abbreviated =
        combinedOf([&](const auto& list) { return list.abbreviatedMatches(typed, excluded, limit); });
    return ranked(std::move(spelled), std::move(abbreviated), limit);
}

std::size_t SinhalaWordList::memory() const noexcept {
    return index_->memory();
}

} // namespace vanoka
