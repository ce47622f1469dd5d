#include "words/TypedReadings.h"

#include <algorithm>
#include <numeric>

namespace vanoka {

namespace {

constexpr std::size_t longest = LetterReadings::longest;

} // namespace

TypedReadings::TypedReadings(std::string_view typed, const LetterReadings& readings) : length_(typed.size()) {
    // The runs for what no table knows stand in front, one for each length; most letters share them.
    for (std::size_t pieceLength = 0; pieceLength <= longest; ++pieceLength)
        probabilities_.insert(probabilities_.end(), length_ + 1, LetterReadings::unknown(pieceLength));
    for (Lengths& places : places_)
        std::iota(places.begin(), places.end(), std::size_t{0});
    findReadings(typed, readings);
    foresee();
}

void TypedReadings::findReadings(std::string_view typed, const LetterReadings& readings) {
    unwritten_.fill(LetterReadings::unknown(0));
    for (const LetterReadings::Reading& reading : readings.of(""))
        unwritten_[WordLetters::number(reading.letter)] = reading.probability;
    for (std::size_t start = 0; start < length_; ++start)
        for (std::size_t pieceLength = 1; pieceLength <= std::min(longest, length_ - start); ++pieceLength)
            for (const auto& reading : readings.of(typed.substr(start, pieceLength))) {
                std::size_t& place = places_[WordLetters::number(reading.letter)][pieceLength];
                if (place == pieceLength) {
                    place = probabilities_.size() / (length_ + 1);
                    probabilities_.insert(probabilities_.end(), length_ + 1,
                                          LetterReadings::unknown(pieceLength));
                }
                probabilities_[place * (length_ + 1) + start + pieceLength] = reading.probability;
            }
}

void TypedReadings::begin(double* row) const noexcept {
    std::fill_n(row, length_ + 1, 0.0);
    row[0] = 1;
}

void TypedReadings::advance(const double* row, WordLetter next, double* advanced) const noexcept {
    const double unwritten = unwritten_[WordLetters::number(next)];
    for (std::size_t end = 0; end <= length_; ++end)
        advanced[end] = row[end] * unwritten;
    for (std::size_t pieceLength = 1; pieceLength <= std::min(longest, length_); ++pieceLength) {
        const bool isPossible =
            pieceLength <= 2 || places_[WordLetters::number(next)][pieceLength] != pieceLength;
        if (!isPossible)
            continue;
        const double* piece = pieces(next, pieceLength);
        for (std::size_t end = pieceLength; end <= length_; ++end)
            advanced[end] += row[end - pieceLength] * piece[end];
    }
}

// Adds up in the order of the whole row, for the same number to the last digit.
double TypedReadings::advanced(const double* row, WordLetter next, std::size_t end) const noexcept {
    double sum = row[end] * unwritten_[WordLetters::number(next)];
    for (std::size_t pieceLength = 1; pieceLength <= std::min(longest, end); ++pieceLength)
        sum += row[end - pieceLength] * pieces(next, pieceLength)[end];
    return sum;
}

double TypedReadings::likelihood(std::string_view letters) const {
    Probabilities row(length_ + 1), next(length_ + 1);
    begin(row.data());
    for (const char each : letters) {
        advance(row.data(), WordLetters::fromByte(each), next.data());
        row.swap(next);
    }
    return row[length_];
}

// The letters that follow begin with some letter u, which is written with the next few typed ones or with
// none:
//
//     hope(i, u) = P(none | u) · hope(i) + sum over n from 1 up of P(n letters from i on | u) · hope(i + n)
//     hope(i)    = max over u of hope(i, u)
//
// so a letter that may go unwritten is worth what it is worth written, over 1 − P(none | u).
void TypedReadings::foresee() {
    const std::size_t width = length_ + 1;
    hopes_.resize(WordLetters::count * width);
    std::vector<double> best(width);
    for (std::size_t at = width; at-- > 0;) {
        double most = at == length_ ? 1 : 0;
        for (std::size_t each = 0; each < WordLetters::count; ++each) {
            double& hope = hopes_[each * width + at];
            for (std::size_t pieceLength = 1; pieceLength <= std::min(longest, length_ - at); ++pieceLength)
                hope += pieces(static_cast<WordLetter>(each), pieceLength)[at + pieceLength] *
                        best[at + pieceLength];
            most = std::max(most, hope / (1 - unwritten_[each]));
        }
        best[at] = most;
        for (std::size_t each = 0; each < WordLetters::count; ++each)
            hopes_[each * width + at] += unwritten_[each] * most;
    }
}

double TypedReadings::mostLikely(const double* row, WordLetter next) const noexcept {
    const std::size_t width = length_ + 1;
    const double* hopes = hopes_.data() + WordLetters::number(next) * width;
    std::array<double, 4> sums{}; // added up side by side
    std::size_t at = 0;
    for (; at + 4 <= width; at += 4)
        for (std::size_t i = 0; i < 4; ++i)
            sums[i] += row[at + i] * hopes[at + i];
    for (; at < width; ++at)
        sums[0] += row[at] * hopes[at];
    const auto& [first, second, third, fourth] = sums;
    return (first + second) + (third + fourth);
}

} // namespace vanoka
