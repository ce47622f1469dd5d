#include "words/UnknownWords.h"

#include "singlish/WrittenLetters.h"
#include "support/Sort.h"
#include "words/ReadingScore.h"

#include <algorithm>
#include <cmath>

namespace vanoka {

UnknownWords::UnknownWords(const LetterReadings& readings, const LetterSequences& sequences)
    : readings_(readings), sequences_(sequences), beginnings_(1) {
    beginnings_[0].emplace_back().context = sequences.begin();
}

void UnknownWords::read(std::string_view typed, std::size_t same) {
    beginnings_.resize(same + 1);
    beginnings_.resize(typed.size() + 1);
    for (std::size_t end = same + 1; end <= typed.size(); ++end) {
        for (std::size_t length = 1; length <= std::min(LetterReadings::longest, end); ++length)
            for (const Beginning& each : beginnings_[end - length])
                extend(each, typed.substr(end - length, length), mostSilent, beginnings_[end]);
        keepBest(beginnings_[end]);
    }
}

bool UnknownWords::mayGoOn(const Beginning& beginning, WordLetter next) {
    if (next != WordLetters::inherent && !writtenLetter(WordLetters::scalar(next)))
        return false; // nobody could type it
    return beginning.letters.empty()
               ? WordLetters::mayBegin(next)
               : WordLetters::mayFollow(WordLetters::fromByte(beginning.letters.back()), next);
}

UnknownWords::Beginning UnknownWords::goneOn(const Beginning& beginning, WordLetter next,
                                             double likely) const {
    Beginning longer = beginning;
    longer.letters += WordLetters::byte(next);
    longer.likely *= likely;
    longer.cost += sequences_.advance(longer.context, next);
    return longer;
}

void UnknownWords::extend(const Beginning& beginning, std::string_view piece, int silent,
                          Beginnings& extended) const {
    for (const LetterReadings::Reading& reading : readings_.of(piece))
        if (mayGoOn(beginning, reading.letter))
            extended.push_back(goneOn(beginning, reading.letter, reading.probability));
    if (silent == 0)
        return;
    for (const LetterReadings::Reading& reading : readings_.of(""))
        if (mayGoOn(beginning, reading.letter))
            extend(goneOn(beginning, reading.letter, reading.probability), piece, silent - 1, extended);
}

/// The same letters, cut up in several ways, are one beginning.
void UnknownWords::keepBest(Beginnings& beginnings) const {
    sortRange(beginnings, {}, &Beginning::letters);
    Beginnings merged;
    for (Beginning& each : beginnings) {
        if (!merged.empty() && merged.back().letters == each.letters)
            merged.back().likely += each.likely;
        else
            merged.push_back(std::move(each));
    }
    for (Beginning& each : merged)
        each.worth = each.likely * ReadingScore::unknownPrior(each.cost);
    sortRange(merged, [](const Beginning& left, const Beginning& right) {
        return left.worth != right.worth ? left.worth > right.worth : left.letters < right.letters;
    });
    merged.resize(std::min(merged.size(), beam));
    beginnings = std::move(merged);
}

std::vector<UnknownWords::Guess> UnknownWords::words() const {
    std::vector<Guess> guesses;
    const WordLetter killer = WordLetters::letter(script::virama);
    for (const Beginning& each : beginnings_.back()) {
        const bool isWhole = WordLetters::mayEnd(WordLetters::fromByte(each.letters.back()));
        const Beginning whole = isWhole ? each : goneOn(each, killer, 1);
        guesses.push_back({whole.letters, whole.cost + sequences_.end(whole.context)});
    }
    return guesses;
}

} // namespace vanoka
