#include "WordTally.h"

#include "MostUsed.h"

#include <algorithm>
#include <vector>

namespace vanoka {

namespace {

using Change = WordChange::Kind;

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

std::int64_t usesOf(std::int64_t count) {
    return count;
}

std::int64_t usesOf(const PersonalWords::EnglishUse& use) {
    return use.kept + use.typedInSinhala;
}

template <class Words>
void keepMostUsed(Words& words) {
    constexpr auto most = static_cast<std::size_t>(LearntWords::most);
    if (words.size() <= most)
        return;
    const auto order = mostUsedFirst(words, [](const auto& use) { return usesOf(use); });
    for (std::size_t at = most; at < order.size(); ++at)
        words.erase(words.find(order[at]->first));
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
    return {.sinhala = SinhalaWordList(counted),
            .english = std::move(english),
            .forgotten = std::move(forgotten)};
}

void merge(const WordTally& other, WordTally& tally) {
    for (const std::string& word : other.forgotten)
        forget(word, tally);
    for (const auto& [word, count] : other.sinhala)
        if (!tally.forgotten.contains(word))
            tally.sinhala[word] = std::max(tally.sinhala[word], count);
    for (const auto& [word, use] : other.english) {
        if (tally.forgotten.contains(word))
            continue;
        PersonalWords::EnglishUse& own = tally.english[word];
        own = {std::max(own.kept, use.kept), std::max(own.typedInSinhala, use.typedInSinhala)};
    }
    makeRoom(tally);
}

void makeRoom(WordTally& tally) {
    keepMostUsed(tally.sinhala);
    keepMostUsed(tally.english);
}

void apply(const WordChange& change, WordTally& tally) {
    switch (change.kind) {
    case Change::learn:
        return learn(change.word, tally);
    case Change::unlearn:
        return unlearn(change.word, tally);
    case Change::forget:
        forget(change.word.sinhala, tally);
        return forget(change.word.english, tally);
    }
}

} // namespace vanoka
