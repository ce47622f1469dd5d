#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

/// Rows of tab-separated text, the form of all word lists: lines that end in a line feed, comments that begin
/// with "#", two fields with one or more tabs between them. Everything is split by character (see
/// "text/Characters.h"): the line feed of a CR LF is a part of that character and ends no line.
///
/// All views are views into the text that was given.
namespace vanoka::text {

/// Takes the first line off `rest`, together with the line feed after it.
std::string_view takeLine(std::string_view& rest) noexcept;

/// What a line is.
struct Row {
    enum class Kind : std::uint8_t { fields, empty, comment, illFormed, tooFewFields, tooManyFields };

    Kind kind = Kind::empty;
    std::string_view first, second; ///< the two fields of a line that is `fields`
};

/// What `line` is. Empty fields do not count: tabs at the ends and runs of tabs are tolerated.
Row rowOf(std::string_view line) noexcept;

/// Calls `take(first, second)` for every line of `text` that has two fields and is well-formed UTF-8; passes
/// over all others.
template <class Take>
void forEachRow(std::string_view text, Take take) {
    while (!text.empty()) {
        const Row row = rowOf(takeLine(text));
        if (row.kind == Row::Kind::fields)
            take(row.first, row.second);
    }
}

/// The decimal number that `field` is from its first byte to its last: a sign or none, then ASCII digits.
/// Nothing when it is anything else or does not fit.
std::optional<std::int64_t> integer(std::string_view field) noexcept;

/// The pieces of `field` between its space characters, without empty ones.
std::vector<std::string_view> piecesOf(std::string_view field);

} // namespace vanoka::text
