#include "text/Rows.h"

#include "text/Characters.h"
#include "text/Utf8.h"

#include <charconv>

namespace vanoka::text {

namespace {

/// Takes the first field that is not empty off `rest`; empty when there is none. A tab never belongs to a
/// character with anything else, so its byte is enough.
std::string_view takeField(std::string_view& rest) noexcept {
    rest.remove_prefix(std::min(rest.find_first_not_of('\t'), rest.size()));
    const std::string_view field = rest.substr(0, rest.find('\t'));
    rest.remove_prefix(field.size());
    return field;
}

} // namespace

std::string_view takeLine(std::string_view& rest) noexcept {
    std::size_t end = rest.find('\n');
    while (end != std::string_view::npos && end > 0 && rest[end - 1] == '\r')
        end = rest.find('\n', end + 1);
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return line;
}

Row rowOf(std::string_view line) noexcept {
    if (line.empty())
        return {};
    if (line[0] == '#' && firstCharacter(line).size() == 1)
        return {Row::Kind::comment, {}, {}};
    if (!isWellFormed(line))
        return {Row::Kind::illFormed, {}, {}};
    const std::string_view first = takeField(line);
    const std::string_view second = takeField(line);
    if (second.empty())
        return {Row::Kind::tooFewFields, {}, {}};
    if (!takeField(line).empty())
        return {Row::Kind::tooManyFields, {}, {}};
    return {Row::Kind::fields, first, second};
}

std::optional<std::int64_t> integer(std::string_view field) noexcept {
    const bool isPlus = field.starts_with('+');
    if (isPlus)
        field.remove_prefix(1);
    if (isPlus && field.starts_with('-'))
        return std::nullopt;
    std::int64_t value = 0;
    const char* end = field.data() + field.size();
    const auto result = std::from_chars(field.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return value;
}

std::vector<std::string_view> piecesOf(std::string_view field) {
    std::vector<std::string_view> pieces;
    std::size_t start = 0, at = 0;
    const auto finish = [&] {
        if (at > start)
            pieces.push_back(field.substr(start, at - start));
    };
    for (const std::string_view character : Characters(field)) {
        if (character == " ") {
            finish();
            start = at + 1;
        }
        at += character.size();
    }
    finish();
    return pieces;
}

} // namespace vanoka::text
