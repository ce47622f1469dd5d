#include "swipe/SinglishSpelling.h"

#include "singlish/WrittenLetters.h"

namespace vanoka {

std::optional<std::string> singlishSpelling(std::string_view word) {
    std::string spelling;
    if (!forEachTypedLetter(word, [&](const WrittenLetter& letter) { spelling += letter.key; }))
        return std::nullopt;
    return spelling;
}

} // namespace vanoka
