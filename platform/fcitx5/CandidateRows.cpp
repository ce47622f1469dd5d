#include "CandidateRows.h"

#include <stdexcept>
#include <utility>

namespace vanoka::fcitx5 {

namespace {

class Row final : public fcitx::CandidateWord {
public:
    Row(const std::string& text, std::function<void()> choose)
        : fcitx::CandidateWord(fcitx::Text(text)), choose_(std::move(choose)) {}

    void select(fcitx::InputContext*) const override {
        const auto choose = choose_; // which replaces the rows, and with them this one
        choose();
    }

private:
    std::function<void()> choose_;
};

} // namespace

CandidateRows::CandidateRows(const CandidateLine& line, const Actions& actions)
    : highlighted_(static_cast<int>(line.highlighted)), moveHighlight_(actions.moveHighlight) {
    setCursorMovable(this);
    setPageable(this);
    for (std::size_t row = 0; row < line.rows.size(); ++row)
        rows_.push_back(
            std::make_unique<Row>(line.rows[row].text, [choose = actions.choose, row] { choose(row); }));
}

const fcitx::Text& CandidateRows::label(int row) const {
    candidate(row);
    return noLabel_;
}

/// The framework asks for rows that a client of it names, and expects this of one that is not there.
const fcitx::CandidateWord& CandidateRows::candidate(int row) const {
    if (row < 0 || row >= size())
        throw std::invalid_argument("there is no such row");
    return *rows_[static_cast<std::size_t>(row)];
}

void CandidateRows::prevCandidate() {
    const auto move = moveHighlight_; // which replaces these rows
    move(-1);
}

void CandidateRows::nextCandidate() {
    const auto move = moveHighlight_;
    move(1);
}

} // namespace vanoka::fcitx5
