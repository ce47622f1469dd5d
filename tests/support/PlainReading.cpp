#include "PlainReading.h"

#include "PlainGuesses.h"
#include "text/Equivalence.h"
#include "text/Utf8.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <set>

namespace vanoka::test::plain {

namespace {

constexpr std::size_t longestPiece = 4, longestWord = 250;

struct Listed {
    double count = 0;
    std::int64_t bestCount = 0;
    std::string word;
};
using Table = std::map<Letters, Listed>;

Table tableOf(const std::vector<WordCount>& words) {
    Table table;
    for (const auto& [word, count] : words) {
        const auto letters = lettersOf(word);
        if (letters.empty() || letters.size() > longestWord)
            continue;
        const auto [place, isNew] = table.try_emplace(letters);
        if (isNew || count > place->second.bestCount)
            place->second = {static_cast<double>(std::max<std::int64_t>(count, 0)), count, word};
    }
    return table;
}

struct Likelihood {
    double asWhole = 0;
    double goingOn = 0; ///< after what was typed
};

Likelihood likelihood(const Letters& letters, std::string_view typed, const LetterReadings& readings) {
    std::vector<double> row(typed.size() + 1);
    row[0] = 1;
    double goingOn = 0;
    for (const WordLetter letter : letters) {
        goingOn = std::max(goingOn, row.back() * std::exp(-2.0)) * std::exp(-1.0);
        std::vector<double> next(row.size());
        for (std::size_t end = 0; end < row.size(); ++end)
            for (std::size_t length = 0; length <= std::min(longestPiece, end); ++length)
                next[end] +=
                    row[end - length] * readings.probability(letter, typed.substr(end - length, length));
        row = next;
    }
    return {row.back(), goingOn};
}

Table bothOf(Table all, const Table& added) {
    for (const auto& [letters, word] : added) {
        const auto [place, isNew] = all.try_emplace(letters, word);
        if (isNew)
            continue;
        if (word.count > place->second.count)
            place->second.word = word.word;
        place->second.count += word.count;
    }
    return all;
}

struct Ranked {
    double score = 0, likely = 0;
    std::string word;
    Letters letters;
};

/// The words that `likelihoodOf` holds possible, best first.
template <class LikelihoodOf>
std::vector<Ranked> rankedBy(const Table& all, LikelihoodOf likelihoodOf) {
    double total = 0;
    for (const auto& [letters, word] : all)
        total += word.count;
    std::vector<Ranked> ranked;
    for (const auto& [letters, word] : all)
        if (const double likely = likelihoodOf(letters); likely > 0)
            ranked.push_back({likely * std::pow((word.count + 0.5) / std::max(total, 1.0), 0.8), likely,
                              word.word, letters});
    std::ranges::stable_sort(ranked, std::ranges::greater(), &Ranked::score);
    return ranked;
}

double leastLikely(std::string_view typed) {
    static const std::map<std::size_t, double> ofShortWords = {
        {1, 1e-5}, {2, 1e-5}, {3, 3e-6}, {4, 1e-6}, {5, 5e-8}};
    const auto found = ofShortWords.find(typed.size());
    if (found != ofShortWords.end())
        return found->second;
    double least = 1e-8;
    for (std::size_t length = 8; length <= std::min<std::size_t>(typed.size(), 15); ++length)
        least /= 10;
    return least;
}

double offered(const Likelihood& likely, double least) {
    const double most = std::max(likely.asWhole, likely.goingOn);
    return most >= least ? most : 0;
}

/// Those that no list holds.
std::vector<Ranked> guessed(const Table& listed, std::string_view typed, const LetterReadings& readings,
                            const LetterSequences& sequences) {
    std::vector<Ranked> ranked;
    for (const auto& [letters, cost] : guessesFor(typed, readings, sequences)) {
        const double likely = likelihood(letters, typed, readings).asWhole;
        if (likely >= leastLikely(typed) && !listed.contains(letters))
            ranked.push_back({likely * guessedPrior(cost), likely, {}, letters});
    }
    return ranked;
}

std::string wordOf(const Ranked& ranked) {
    std::string bytes;
    for (const WordLetter letter : ranked.letters)
        bytes += WordLetters::byte(letter);
    return ranked.word.empty() ? WordLetters::text(bytes) : ranked.word;
}

using WeighedWords = std::vector<std::pair<std::string, double>>;

/// What stands after some letters in the words.
struct Following {
    double seen = 0, seenNext = 0, kinds = 0;
};

Following followingOf(const WeighedWords& words, const std::string& context, char next) {
    Following following;
    std::set<char> kinds;
    for (const auto& [word, weight] : words) {
        const std::string whole = '^' + word + '$';
        for (std::size_t at = 1; at < whole.size(); ++at) {
            if (at < context.size() || whole.compare(at - context.size(), context.size(), context) != 0)
                continue;
            following.seen += weight;
            following.seenNext += whole[at] == next ? weight : 0;
            kinds.insert(whole[at]);
        }
    }
    following.kinds = static_cast<double>(kinds.size());
    return following;
}

double probabilityAfter(const WeighedWords& words, const std::string& context, char next) {
    constexpr double alike = 1.0 / 82;
    const double shorter = context.empty() ? alike : probabilityAfter(words, context.substr(1), next);
    const auto [seen, seenNext, kinds] = followingOf(words, context, next);
    return kinds > 0 ? (seenNext + kinds * shorter) / (seen + kinds) : shorter;
}

unsigned costOf(double probability) {
    return static_cast<unsigned>(std::min(255.0, std::round(-16 * std::log(probability))));
}

} // namespace

Letters lettersOf(std::string_view word) {
    Letters letters;
    const std::string composed = text::nfc(word);
    bool isOwed = false;
    for (const text::Scalar& scalar : text::Scalars(composed)) {
        if (script::isJoiner(scalar.value))
            continue;
        const auto row = std::ranges::find(script::rows, scalar.value, &script::Row::scalar);
        if (row == script::rows.end() || script::partOf(row->kind) == script::Part::none)
            return {};
        const bool takesVowel = row->kind == script::Kind::vowelSign || row->kind == script::Kind::virama;
        if (isOwed && !takesVowel)
            letters.push_back(WordLetters::inherent);
        letters.push_back(WordLetters::letter(scalar.value));
        isOwed = row->kind == script::Kind::consonant;
    }
    if (isOwed)
        letters.push_back(WordLetters::inherent);
    return letters;
}

double sumOverAllCuts(const Letters& letters, std::string_view typed, const LetterReadings& readings) {
    if (letters.empty())
        return typed.empty() ? 1 : 0;
    double sum = 0;
    for (std::size_t length = 0; length <= std::min(longestPiece, typed.size()); ++length)
        sum += readings.probability(letters.front(), typed.substr(0, length)) *
               sumOverAllCuts({letters.begin() + 1, letters.end()}, typed.substr(length), readings);
    return sum;
}

std::vector<std::string> wordsTyped(const std::vector<WordCount>& words, const std::vector<WordCount>& own,
                                    const std::string& typed, std::size_t limit,
                                    const LetterReadings& readings, bool mayBeEnglish,
                                    const LetterSequences* sequences) {
    const Table all = bothOf(tableOf(words), tableOf(own));
    const auto asSinhala = [&](const auto& letters) {
        return offered(likelihood(letters, typed, readings), leastLikely(typed));
    };
    const auto asEnglish = [&](const auto& letters) {
        return offered(likelihood(letters, typed, LetterReadings::ofEnglish()), 1e-5);
    };
    std::vector<Ranked> ranked = rankedBy(all, asSinhala);
    if (mayBeEnglish || ranked.empty() ||
        ranked.front().likely < std::pow(0.25, static_cast<double>(typed.size())))
        ranked = rankedBy(
            all, [&](const auto& letters) { return std::max(asSinhala(letters), 0.1 * asEnglish(letters)); });
    if (sequences)
        std::ranges::copy(guessed(all, typed, readings, *sequences), std::back_inserter(ranked));
    std::ranges::sort(ranked, [](const Ranked& left, const Ranked& right) {
        return left.score != right.score ? left.score > right.score : left.letters < right.letters;
    });
    std::vector<std::string> best;
    for (const Ranked& each : ranked)
        if (best.size() < limit && each.score >= ranked.front().score * (each.word.empty() ? 0.003 : 1e-5))
            best.push_back(wordOf(each));
    return best;
}

unsigned sequenceCost(const WeighedWords& words, std::size_t order, const std::string& before, char next) {
    std::string context = before.size() >= order ? before.substr(before.size() - order + 1) : before;
    unsigned cost = 0;
    for (; !context.empty(); context.erase(0, 1)) {
        const Following following = followingOf(words, context, next);
        if (following.seenNext > 0)
            break;
        if (following.kinds > 0)
            cost += costOf(following.kinds / (following.seen + following.kinds));
    }
    return cost + costOf(probabilityAfter(words, context, next));
}

} // namespace vanoka::test::plain
