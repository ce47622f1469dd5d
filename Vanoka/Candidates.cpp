#include "Candidates.h"

#include "RankedWords.h"
#include "text/Equivalence.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vanoka {

namespace {

using Kind = Candidate::Kind;

constexpr std::size_t mostEmoji = 2;

/// The keys as an English word that is known, and whether it stays English.
struct LatinWord {
    bool isLearnt;
    bool staysEnglish;
};

/// Collects rows, each text once.
class Rows {
public:
    explicit Rows(const NeverOffered& never) : never_(never) {}

    void start(std::string text) { rows_.push_back({std::move(text), Kind::typed, false}); }
    void add(std::string text, Kind kind, bool isLearnt) {
        const auto isSame = [&](const Candidate& row) { return text::equal(row.text, text); };
        if (!text.empty() && !never_.holds(text) && std::ranges::none_of(rows_, isSame))
            rows_.push_back({std::move(text), kind, isLearnt});
    }
    std::size_t size() const noexcept { return rows_.size(); }
    std::vector<Candidate> take() { return std::move(rows_); }

private:
    const NeverOffered& never_;
    std::vector<Candidate> rows_;
};

PersonalWords::EnglishUse useOf(const std::string& keys, const PersonalWords* personal) {
    if (!personal)
        return {};
    const auto found = personal->english.find(text::lowercased(keys));
    return found == personal->english.end() ? PersonalWords::EnglishUse{} : found->second;
}

std::optional<LatinWord> latinWord(const TypedWord& word, const SuggestionLists& lists,
                                   const PersonalWords* personal) {
    const auto [kept, typedInSinhala] = useOf(word.keys, personal);
    const bool isKnown = kept > 0 || lists.english.contains(word.keys);
    if (!isKnown || lists.neverOffered.holds(word.keys) || text::equal(word.keys, word.preview))
        return std::nullopt;
    return LatinWord{
        kept > 0, lists.english.keepsEnglish(word.keys, word.preview, lists.sinhala, kept, typedInSinhala)};
}

/// Nothing for a word that is never offered, in either script.
std::vector<std::string> emojiOf(const TypedWord& word, const SuggestionLists& lists) {
    if (lists.neverOffered.holds(word.keys) || lists.neverOffered.holds(word.preview))
        return {};
    std::vector<std::string> emoji = lists.emoji.emojiForSinhala(word.preview);
    if (emoji.empty())
        emoji = lists.emoji.emojiForEnglish(word.keys);
    emoji.resize(std::min(emoji.size(), mostEmoji));
    return emoji;
}

/// How many of `places` emoji get.
std::size_t shareOfEmoji(std::size_t emoji, std::size_t words, std::size_t places) {
    const std::size_t left = places - std::min(words, places);
    return std::min(emoji, std::max(places / 2, left));
}

bool isOwnWord(const std::string& text, const PersonalWords* personal) {
    return personal && personal->sinhala.contains(text);
}

} // namespace

std::vector<Candidate> candidatesFor(const TypedWord& word, const SuggestionLists& lists,
                                     const PersonalWords* personal, std::size_t limit,
                                     const LetterReadings& readings, ReadingMemory* memory) {
    if (word.keys.empty() || word.preview.empty())
        return {};
    limit = std::clamp(limit, CandidateLimit::least, CandidateLimit::most);
    const auto latin = latinWord(word, lists, personal);
    const std::size_t places = limit - 1 - (latin ? 1 : 0);
    const auto words = rankedWords(word, lists, personal, places, readings, memory);
    const auto emoji = emojiOf(word, lists);
    const std::size_t emojiCount = shareOfEmoji(emoji.size(), words.size(), places);

    Rows rows(lists.neverOffered);
    rows.start(word.preview);
    if (latin && latin->staysEnglish)
        rows.add(word.keys, Kind::latin, latin->isLearnt);
    for (std::size_t at = 0; at < std::min(words.size(), places - emojiCount); ++at)
        rows.add(words[at], Kind::sinhala, isOwnWord(words[at], personal));
    for (std::size_t at = 0; at < emojiCount; ++at)
        rows.add(emoji[at], Kind::emoji, false);
    if (latin && !latin->staysEnglish)
        rows.add(word.keys, Kind::latin, latin->isLearnt);
    return rows.take();
}

} // namespace vanoka
