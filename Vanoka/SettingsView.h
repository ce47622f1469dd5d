#pragma once

#include "Controls.h"
#include "LetterEditor.h"
#include "LetterRow.h"
#include "TextStyle.h"
#include "settings/SinglishSettings.h"
#include "support/Announcer.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vanoka {

/// The content of the settings window, without a toolkit: a sidebar of all letters beside the editor of the
/// chosen one, a toolbar, and a dialog. A toolkit draws it and passes on what the user does.
///
///     +- notice() ----------------------------------------+
///     +- toolbar ------------------- [Reset to Defaults] -+
///     | sidebar()          | editor(), or placeholder()   |
///     |   section title    |   letter, kind and example   |
///     |     LetterRow …    |   keysTitle                  |
///     |   …                |     KeyRow …                 |
///     | ------------------ |   addTitle                   |
///     | footer()           |     field, button, message   |
///     +--------------------+------------------------------+
///
/// Drawing: observe the view; when it calls, have the event loop call you back once, and then read the
/// content anew. Every part is computed when it is asked for, from the settings and the view's own state, in
/// well under a millisecond, so there is nothing to keep. What is read before the event loop has turned may
/// still be the old content.
class SettingsView {
public:
    static constexpr double minimumWidth = 660, minimumHeight = 460;       ///< of the whole view, in points
    static constexpr double sidebarMinimumWidth = 220, sidebarWidth = 250; ///< least and ideal, in points

    /// A view of `settings`, which must outlive it. The first letter is chosen.
    explicit SettingsView(SinglishSettings& settings);
    SettingsView(const SettingsView&) = delete;
    SettingsView& operator=(const SettingsView&) = delete;

    /// Calls `observer` whenever the content changes.
    [[nodiscard]] Subscription observe(std::function<void()> observer);

    /// Across the window, above everything else: what is wrong with the stored keys. Mostly nothing.
    std::optional<StyledText> notice() const;

    /// Adopts what other programs have stored meanwhile.
    void reload();

    struct Section {
        StyledText title;
        std::vector<LetterRow> rows;
    };
    /// The letters in their groups, in the order in which they are shown.
    std::vector<Section> sidebar() const;

    /// A title, which cannot be chosen, or a letter.
    using SidebarRow = std::variant<StyledText, LetterRow>;
    /// The same for a list that is flat: a section's title stands above its letters.
    std::vector<SidebarRow> sidebarRows() const;

    /// Pinned below the sidebar's list, on a bar with a divider above it: the application's icon, the
    /// product's two names beside it, and the links.
    struct Footer {
        static constexpr double iconSize = 32; ///< width and height, in points
        StyledText name;
        StyledText sinhalaName;
        std::vector<Link> links;
    };
    Footer footer() const;

    /// The id of the chosen letter, if any.
    const std::optional<std::string>& selection() const noexcept { return selection_; }
    /// Chooses a letter. Another letter than before gets a fresh editor, with an empty field.
    void select(std::optional<std::string> letter);

    /// The detail pane: the editor of the chosen letter; null when no known letter is chosen. Valid until
    /// another letter is chosen.
    const LetterEditor* editor() const noexcept { return editor_ ? &*editor_ : nullptr; }
    /// The detail pane without an editor.
    static StyledText placeholder();

    /// The field's text has become `draft`.
    void setDraft(std::string draft);
    /// Return in the field, or the button beside it.
    void addDraft();
    /// A control of a key row has been used.
    void perform(const KeyEdit& edit);

    /// The toolbar's one button. It asks first: see `askToReset`.
    Button resetButton() const;

    struct Dialog {
        std::string_view title;
        Button confirm;
        Button cancel; ///< Escape presses it, too
    };
    static Dialog resetDialog();

    /// True while the dialog is up.
    bool isConfirmingReset() const noexcept { return isConfirmingReset_; }
    /// The toolbar's button has been pressed.
    void askToReset();
    /// The dialog's button has been pressed.
    void confirmReset();
    /// The dialog has been dismissed in any other way.
    void cancelReset();

private:
    SinglishSettings& settings_;
    std::optional<std::string> selection_;
    std::optional<LetterEditor> editor_;
    bool isConfirmingReset_ = false;
    Announcer<> changes_;
    Subscription settingsChanges_;
};

} // namespace vanoka
