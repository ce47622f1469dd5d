#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The three forms of word lists.
enum class ListKind : std::uint8_t { sinhala, english, emoji };

/// The kind that this name, "sinhala", "english" or "emoji", means.
std::optional<ListKind> listKind(std::string_view name) noexcept;
std::string_view nameOf(ListKind kind) noexcept;

/// What most rows of a list look like; Sinhala when there are none.
ListKind guessListKind(std::string_view list);

/// A line that does not load as it is written, and why.
struct LineProblem {
    enum class Kind : std::uint8_t {
        skipped, ///< it does not load
        warning ///< it loads here (see "words/ListReading.h"); in a keyboard that reads lists as they are, it
                ///< does harm
    };

    std::size_t number = 0; ///< counted from 1, as an editor counts
    std::string reason;
    Kind kind = Kind::skipped;
    friend bool operator==(const LineProblem&, const LineProblem&) = default;
};

/// What is wrong with the lines of `list`, in their order. Empty lines and comments are as they should be.
std::vector<LineProblem> problemsOf(std::string_view list, ListKind kind);

/// How many of the problems are of that kind.
std::size_t countOf(LineProblem::Kind kind, const std::vector<LineProblem>& problems);

} // namespace vanoka
