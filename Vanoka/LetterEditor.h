#pragma once

#include "Controls.h"
#include "KeyRow.h"
#include "TextStyle.h"
#include "settings/SinglishSettings.h"

#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The keys of one letter: a header, the section of its keys, and the section that adds one. Everything is
/// computed from the settings and the draft when it is asked for.
class LetterEditor {
public:
    /// An editor of `letter`'s keys in `settings`, which must outlive it, with nothing typed or with `draft`.
    LetterEditor(const SinglishScheme::Letter& letter, SinglishSettings& settings, std::string draft = {});

    const SinglishScheme::Letter& letter() const noexcept { return letter_; }

    // The header: the letter, and beside it its kind over an example of how it is typed.
    StyledText letterText() const;
    StyledText kind() const;
    /// An example with the first key, or that there is none.
    StyledText example() const;

    // The section of the letter's keys.
    static StyledText keysTitle();
    std::vector<KeyRow> keyRows() const;

    // The section that adds a key: a line with the field and the button, the message under it, and the
    // section's footnote.
    static StyledText addTitle();
    TextField field() const;
    Button addButton() const;
    /// What the draft would do, or why it cannot be added.
    StyledText message() const;
    StyledText footnote() const;

    /// The key being typed in the field, as it stands there: nothing is trimmed or folded.
    const std::string& draft() const noexcept { return draft_; }
    void setDraft(std::string draft) { draft_ = std::move(draft); }

    /// What the button and Return in the field do: gives the draft to the letter and empties the field. A
    /// draft that is refused stays, and so does the message that says why.
    void add();

private:
    SinglishScheme::Letter letter_;
    SinglishSettings& settings_;
    std::string draft_;
};

} // namespace vanoka
