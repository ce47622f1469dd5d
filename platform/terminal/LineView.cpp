#include "LineView.h"

#include "Clusters.h"
#include "text/Visible.h"

#include <algorithm>

namespace vanoka {

namespace {

constexpr std::string_view underlineOn = "\x1B[4m";
constexpr std::string_view underlineOff = "\x1B[24m";
constexpr std::string_view inverseOn = "\x1B[7m";
constexpr std::string_view inverseOff = "\x1B[27m";
constexpr std::string_view candidateGap = "   ";
constexpr std::string_view wrapOn = "\x1B[?7h";
constexpr std::string_view wrapOff = "\x1B[?7l";
constexpr std::string_view eraseBelow = "\x1B[J";
constexpr std::string_view newRow = "\r\n";

std::string up(std::size_t rows) {
    return rows == 0 ? "" : "\x1B[" + std::to_string(rows) + "A";
}

/// A cluster as it may be sent to a terminal.
std::string drawable(std::string_view cluster) {
    return cluster == "\t" ? " " : text::visible(cluster);
}

} // namespace

/// Rows as they fill up, cluster by cluster.
class LineView::Rows {
public:
    explicit Rows(std::size_t columns) : columns_(columns), rows_(1) {}

    void append(std::string_view cluster, bool isUnderlined) {
        const std::string drawn = drawable(cluster);
        const std::size_t width = Clusters::width(drawn);
        if (rows_.back().width > 0 &&
            rows_.back().width + width >= columns_) { // the last cell is the caret's
            underline(false);
            rows_.emplace_back();
        }
        underline(isUnderlined);
        rows_.back().text += drawn;
        rows_.back().width += width;
    }

    void placeCaret() {
        Row& row = rows_.back();
        row.hasCaret = true;
        row.beforeCaret = row.text;
        if (isUnderlined_)
            row.beforeCaret += underlineOff;
    }

    /// At most `height` of the rows, those around the caret.
    std::vector<Row> take(std::size_t height) {
        underline(false);
        if (rows_.size() <= height)
            return std::move(rows_);
        const auto caret = std::ranges::find_if(rows_, &Row::hasCaret) - rows_.begin();
        const auto count = static_cast<std::ptrdiff_t>(height);
        const auto top = std::max<std::ptrdiff_t>(0, caret + 1 - count);
        return {rows_.begin() + top, rows_.begin() + top + count};
    }

private:
    void underline(bool on) {
        if (on != isUnderlined_)
            rows_.back().text += on ? underlineOn : underlineOff;
        isUnderlined_ = on;
    }

    std::size_t columns_;
    std::vector<Row> rows_;
    bool isUnderlined_ = false;
};

std::string LineView::draw(const TypedLine& line, const CandidateLine& candidates) {
    std::string bytes = toStart();
    const bool showsCandidates = candidates.isShown() && size_.rows > 1;
    drawn_ = rowsOf(line, size_.rows - (showsCandidates ? 1 : 0));
    if (showsCandidates)
        drawn_.push_back(rowOf(candidates));
    bytes += wrapOff;
    bytes += eraseBelow;
    std::size_t caretRow = 0;
    for (std::size_t index = 0; index < drawn_.size(); ++index) {
        if (index > 0)
            bytes += newRow;
        bytes += drawn_[index].text;
        if (drawn_[index].hasCaret)
            caretRow = index;
    }
    bytes += up(drawn_.size() - 1 - caretRow);
    bytes += '\r';
    bytes += drawn_[caretRow].beforeCaret;
    bytes += wrapOn;
    return bytes;
}

std::string LineView::finish(std::string_view text) {
    std::string bytes = toStart();
    bytes += eraseBelow;
    while (!text.empty()) {
        const std::string_view cluster = Clusters::first(text);
        bytes += drawable(cluster);
        text.remove_prefix(cluster.size());
    }
    bytes += newRow;
    drawn_.clear();
    return bytes;
}

void LineView::resize(TerminalSize size) {
    std::vector<Row> wrapped;
    for (const Row& row : drawn_) {
        const std::size_t parts = std::max<std::size_t>(1, (row.width + size.columns - 1) / size.columns);
        for (std::size_t part = 0; part < parts; ++part) {
            const std::size_t caretPart =
                std::min(Clusters::width(row.beforeCaret) / size.columns, parts - 1);
            wrapped.push_back({.hasCaret = row.hasCaret && part == caretPart});
        }
    }
    drawn_ = std::move(wrapped);
    size_ = size;
}

/// Moves from the caret to the first column of the first row.
std::string LineView::toStart() const {
    const auto caret = std::ranges::find_if(drawn_, &Row::hasCaret);
    return up(caret == drawn_.end() ? 0 : static_cast<std::size_t>(caret - drawn_.begin())) + '\r';
}

std::vector<LineView::Row> LineView::rowsOf(const TypedLine& line, std::size_t height) const {
    const std::size_t markedStart = line.caret();
    const std::size_t caret = markedStart + line.marked().size();
    std::string text = line.text();
    text.insert(markedStart, line.marked());

    Rows rows(size_.columns);
    std::size_t at = 0;
    const auto appendUpTo = [&](std::size_t place) {
        while (at < place) {
            const std::string_view cluster = Clusters::first(std::string_view(text).substr(at));
            // A cluster that is marked in part is underlined whole: nothing may come between its scalars.
            const bool isMarked = at < caret && at + cluster.size() > markedStart && markedStart < caret;
            rows.append(cluster, isMarked);
            at += cluster.size();
        }
    };
    appendUpTo(caret);
    rows.placeCaret();
    appendUpTo(text.size());
    return rows.take(height);
}

LineView::Row LineView::rowOf(const CandidateLine& candidates) const {
    std::vector<std::string> texts;
    texts.reserve(candidates.rows.size());
    for (const Candidate& candidate : candidates.rows)
        texts.push_back(text::visible(candidate.text));
    const auto widthTo = [&](std::size_t from, std::size_t end) {
        std::size_t width = 0;
        for (std::size_t at = from; at <= end; ++at)
            width += Clusters::width(texts[at]) + (at == from ? 0 : candidateGap.size());
        return width;
    };
    std::size_t first = 0;
    while (first < candidates.highlighted && widthTo(first, candidates.highlighted) >= size_.columns)
        ++first;
    Row row;
    for (std::size_t at = first; at < texts.size() && widthTo(first, at) < size_.columns; ++at) {
        const bool isHighlighted = at == candidates.highlighted;
        row.text.append(at == first ? std::string_view() : candidateGap);
        row.text.append(isHighlighted ? inverseOn : std::string_view()).append(texts[at]);
        row.text.append(isHighlighted ? inverseOff : std::string_view());
        row.width = widthTo(first, at);
    }
    return row;
}

} // namespace vanoka
