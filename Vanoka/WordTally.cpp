#include "WordTally.h"

#include <algorithm>

namespace vanoka {

namespace {

using Kind = WordChange::Kind;

std::int64_t& countOf(PersonalWords::EnglishUse& use, LearntWord::Use kind) {
    return kind == LearntWord::Use::kept ? use.kept : use.typedInSinhala;
}

void countUp(std::int64_t& count) {
    count = std::min(count + 1, LearntWords::largestCount);
}

void learn(const LearntWord& word, WordTally& tally) {
    if (!word.sinhala.empty() && !tally.forgotten.contains(word.sinhala))
        countUp(tally.sinhala[word.sinhala]);
    if (!word.english.empty() && !tally.forgotten.contains(word.english))
        countUp(countOf(tally.english[word.english], word.use));
}

void unlearn(const LearntWord& word, WordTally& tally) {
    if (const auto found = tally.sinhala.find(word.sinhala);
        found != tally.sinhala.end() && --found->second <= 0)
        tally.sinhala.erase(found);
    const auto found = tally.english.find(word.english);
    if (found == tally.english.end())
        return;
    std::int64_t& count = countOf(found->second, word.use);
    count = std::max<std::int64_t>(count - 1, 0);
    if (found->second == PersonalWords::EnglishUse())
        tally.english.erase(found);
}

void forget(const std::string& word, WordTally& tally) {
    if (word.empty())
        return;
    tally.sinhala.erase(word);
    tally.english.erase(word);
    tally.forgotten.insert(word);
}

} // namespace

WordTally::WordTally(const PersonalWords& words) : english(words.english), forgotten(words.forgotten) {
    for (WordCount& counted : words.sinhala.words())
        sinhala.emplace(std::move(counted.word), counted.count);
}

PersonalWords WordTally::words() && {
    std::vector<WordCount> counted;
    counted.reserve(sinhala.size());
    for (const auto& [word, count] : sinhala)
        counted.push_back({word, count});
    return withReading(PersonalWords{.sinhala = SinhalaWordList(counted),
                                     .english = std::move(english),
                                     .forgotten = std::move(forgotten)});
}

void apply(const WordChange& change, WordTally& tally) {
    switch (change.kind) {
    case Kind::learn:
        return learn(change.word, tally);
    case Kind::unlearn:
        return unlearn(change.word, tally);
    case Kind::forget:
        forget(change.word.sinhala, tally);
        return forget(change.word.english, tally);
    }
}

} // namespace vanoka
