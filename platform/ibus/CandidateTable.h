#pragma once

#include "CandidateTyping.h"

#include <ibus.h>
#include <string_view>

namespace vanoka::ibus {

/// The line of candidates as the panel shows it: a table of one page, in the direction that the panel is set
/// to, and a text beside it.
class CandidateTable {
public:
    /// The engine must outlive the table.
    explicit CandidateTable(IBusEngine& engine) noexcept : engine_(engine) {}

    /// Shows the line in place of what is shown, or hides it where it is not to be shown.
    void show(const CandidateLine& line, std::string_view hint);
    /// Others have hidden it.
    void forget() noexcept { isShown_ = isHintShown_ = false; }
    bool isShown() const noexcept { return isShown_; }

private:
    void showHint(std::string_view hint);

    IBusEngine& engine_;
    bool isShown_ = false, isHintShown_ = false;
};

} // namespace vanoka::ibus
