#pragma once

#include "CandidateTyping.h"
#include "TypedLine.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vanoka {

struct TerminalSize {
    std::size_t columns = 80;
    std::size_t rows = 24;
};

/// Draws a typed line on a terminal, over as many rows as it needs, with its marked text underlined.
///
/// Terminals disagree about the width of Sinhala clusters, so nothing here depends on it: rows are broken by
/// the widest answer, with the terminal's own wrapping off, and the caret is put in its place by writing the
/// part of its row before it once more.
class LineView {
public:
    explicit LineView(TerminalSize size) noexcept : size_(size) {}

    /// The bytes that draw `line` in place of what was drawn before, and under it, in one row, as many of the
    /// candidates as it has room for, the highlighted one always among them. A terminal of one row shows
    /// none.
    std::string draw(const TypedLine& line, const CandidateLine& candidates = {});

    /// The bytes that leave `text` on the terminal for good, in place of what was drawn, and begin a new row.
    std::string finish(std::string_view text);

    /// The terminal has another size now. It has wrapped what was drawn anew.
    void resize(TerminalSize size);

    /// Forgets what was drawn: the terminal shows something else now.
    void forget() noexcept { drawn_.clear(); }

private:
    struct Row {
        std::string text;        ///< with its underlining
        std::size_t width = 0;   ///< in cells, at most
        std::string beforeCaret; ///< the part before the caret, if that stands in this row
        bool hasCaret = false;
    };
    class Rows;

    std::vector<Row> rowsOf(const TypedLine& line, std::size_t height) const;
    Row rowOf(const CandidateLine& candidates) const;
    std::string toStart() const;

    TerminalSize size_;
    std::vector<Row> drawn_;
};

} // namespace vanoka
