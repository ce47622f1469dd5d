#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vanoka {

/// Whether any scalar of `word` is of the Sinhala block.
bool isSinhala(std::string_view word) noexcept;

/// Calls `take` with every Sinhala word of `text`, in its canonical composition: a letter and the letters and
/// signs after it. Joiners belong to a word when they stand inside it; punctuation, digits and everything
/// that is not Sinhala separate words. Views are valid during the call alone.
template <class Take>
void forEachSinhalaWord(std::string_view text, Take take);

/// The same for English words, in lower case: letters of the Latin script with their accents. An apostrophe
/// belongs to a word when it stands between letters; the curly one becomes the straight one.
template <class Take>
void forEachEnglishWord(std::string_view text, Take take);

/// Cuts a text that comes in pieces where no word is cut. Holds back little: a word of more bytes than
/// `longestWord` is cut all the same.
class PieceCutter {
public:
    static constexpr std::size_t longestWord = 4096;

    /// Calls `take` with what is whole of the text so far.
    template <class Take>
    void write(std::string_view piece, Take take) {
        held_ += piece;
        const std::size_t space = held_.find_last_of(" \n\t\r");
        const bool isTooLong = held_.size() - (space == std::string::npos ? 0 : space) > longestWord;
        const std::size_t end = isTooLong ? wholeScalars() : space == std::string::npos ? 0 : space;
        take(std::string_view(held_).substr(0, end));
        held_.erase(0, end);
    }

    /// Calls `take` with the rest.
    template <class Take>
    void finish(Take take) {
        take(std::string_view(held_));
        held_.clear();
    }

private:
    std::size_t wholeScalars() const noexcept;

    std::string held_;
};

namespace words_detail {

/// The first Sinhala word at or after the start of `rest`, taken off together with all before it; empty at
/// the end. English alike.
std::string_view takeSinhalaWord(std::string_view& rest) noexcept;
std::string_view takeEnglishWord(std::string_view& rest) noexcept;

std::string_view composed(std::string_view word, std::string& buffer);
std::string_view composedInLowerCase(std::string_view word, std::string& buffer);

} // namespace words_detail

template <class Take>
void forEachSinhalaWord(std::string_view text, Take take) {
    std::string buffer;
    for (auto word = words_detail::takeSinhalaWord(text); !word.empty();
         word = words_detail::takeSinhalaWord(text))
        take(words_detail::composed(word, buffer));
}

template <class Take>
void forEachEnglishWord(std::string_view text, Take take) {
    std::string buffer;
    for (auto word = words_detail::takeEnglishWord(text); !word.empty();
         word = words_detail::takeEnglishWord(text))
        take(words_detail::composedInLowerCase(word, buffer));
}

} // namespace vanoka
