#include "Clusters.h"

#include "singlish/SinglishScheme.h"
#include "text/Characters.h"
#include "text/Utf8.h"

#include <utf8proc.h>

namespace vanoka::Clusters {

namespace {

std::size_t widthOfScalar(char32_t value) {
    const auto scalar = static_cast<utf8proc_int32_t>(value);
    const utf8proc_category_t category = utf8proc_category(scalar);
    if (category == UTF8PROC_CATEGORY_MC || category == UTF8PROC_CATEGORY_CC)
        return 1; // a vowel sign that some terminals give a cell to; a control character, drawn as a space
    const int cells = utf8proc_charwidth(scalar);
    return cells > 0 ? static_cast<std::size_t>(cells) : 0;
}

} // namespace

std::string_view first(std::string_view text) {
    std::size_t length = text::firstCharacter(text).size();
    while (length < text.size() && text.substr(0, length).ends_with(SinglishScheme::zeroWidthJoiner))
        length += text::firstCharacter(text.substr(length)).size();
    return text.substr(0, length);
}

std::size_t startOfLast(std::string_view text) {
    std::size_t start = 0;
    for (std::size_t next = first(text).size(); next < text.size(); next += first(text.substr(next)).size())
        start = next;
    return start;
}

std::size_t width(std::string_view text) {
    std::size_t cells = 0;
    for (const text::Scalar& scalar : text::Scalars(text))
        cells += widthOfScalar(scalar.value);
    return cells;
}

} // namespace vanoka::Clusters
