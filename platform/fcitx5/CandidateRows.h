#pragma once

#include "CandidateTyping.h"

#include <cstddef>
#include <fcitx/candidatelist.h>
#include <functional>
#include <memory>
#include <vector>

namespace vanoka::fcitx5 {

/// The line of candidates as the framework's panels show it: without numbers, since digits are digits, and
/// all on one page, so that a panel's arrows and wheel move the highlight.
class CandidateRows final : public fcitx::CandidateList,
                            public fcitx::CursorMovableCandidateList,
                            public fcitx::PageableCandidateList {
public:
    /// What a person does with the rows without a key. May replace these rows.
    struct Actions {
        std::function<void(std::size_t row)> choose;
        std::function<void(std::ptrdiff_t rows)> moveHighlight;
    };

    /// Of a line that is shown.
    CandidateRows(const CandidateLine& line, const Actions& actions);

    const fcitx::Text& label(int row) const override;
    const fcitx::CandidateWord& candidate(int row) const override;
    int size() const override { return static_cast<int>(rows_.size()); }
    int cursorIndex() const override { return highlighted_; }
    fcitx::CandidateLayoutHint layoutHint() const override { return fcitx::CandidateLayoutHint::NotSet; }
    void prevCandidate() override;
    void nextCandidate() override;
    bool hasPrev() const override { return true; }
    bool hasNext() const override { return true; }
    void prev() override { prevCandidate(); }
    void next() override { nextCandidate(); }
    bool usedNextBefore() const override { return true; }

private:
    std::vector<std::unique_ptr<fcitx::CandidateWord>> rows_;
    int highlighted_;
    std::function<void(std::ptrdiff_t rows)> moveHighlight_;
    fcitx::Text noLabel_;
};

} // namespace vanoka::fcitx5
