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

/// A line that is skipped when the list is loaded, and why.
struct SkippedLine {
    std::size_t number = 0; ///< counted from 1, as an editor counts
    std::string reason;
    friend bool operator==(const SkippedLine&, const SkippedLine&) = default;
};

/// Every line of `list` that is skipped, but empty lines and comments.
std::vector<SkippedLine> skippedLines(std::string_view list, ListKind kind);

} // namespace vanoka
