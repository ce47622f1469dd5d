#pragma once

#include "FileWatch.h"
#include "Keysym.h"
#include "VanokaInputController.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vanoka {

/// What a key is to a sequence that makes one text, such as a dead key and the letter after it.
struct SequenceStep {
    bool isPart = false;
    std::string
        text; ///< what the sequence makes with it; empty while more keys follow, or where it makes nothing
};

/// A key as a framework of the desktop tells it.
struct DesktopKey {
    std::uint32_t keysym = 0;
    bool isRelease = false;
    KeyEvent event; ///< what it is to the input method
};

/// The composition in one text field of the desktop, whatever framework brings its keys.
class DesktopContext {
public:
    /// All must outlive it.
    DesktopContext(TextInputClient& client, SinglishSettings& settings, FileWatch& storedSettings);

    /// A key; true when it is consumed. Keys that another program has stored are in force from it on.
    ///
    /// `followSequence` is called for a key-down event, and returns a `SequenceStep`; a key that is part of a
    /// sequence ends the composition, as one does that types nothing. `shortcutsEndIt`: the first key of a
    /// shortcut puts the composition in.
    template <class FollowSequence>
    bool handle(const DesktopKey& key, bool shortcutsEndIt, FollowSequence followSequence) {
        prepare(key, shortcutsEndIt);
        if (key.event.type == KeyEvent::keyDown) {
            const SequenceStep step = followSequence();
            if (step.isPart) {
                insertInstead(step.text);
                return true;
            }
        }
        return controller_.handle(&key.event, &client_);
    }

    /// The field gets the keys.
    void activate() { controller_.activateServer(); }
    /// Puts the composition in.
    void commit() { controller_.commitComposition(&client_); }
    /// Ends the composition whose text others have put in, or taken away, and returns the text.
    std::string forget() { return controller_.forgetComposition(); }

    // The line of candidates, as `VanokaInputController` describes it.
    void setSuggestions(Suggestions* suggestions) { controller_.setSuggestions(suggestions); }
    void setFieldPrivacy(FieldPrivacy privacy) { controller_.setFieldPrivacy(privacy); }
    bool updateCandidates() { return controller_.updateCandidates(); }
    const CandidateLine& candidates() const noexcept { return controller_.candidates(); }
    bool chooseCandidate(std::size_t row) { return controller_.chooseCandidate(row, &client_); }
    bool moveHighlight(std::ptrdiff_t rows) { return controller_.moveHighlight(rows, &client_); }
    /// What a person should know of the highlighted row; empty for nothing.
    std::string_view candidateHint() const noexcept;

private:
    void prepare(const DesktopKey& key, bool shortcutsEndIt);
    void insertInstead(const std::string& text);

    TextInputClient& client_;
    SinglishSettings& settings_;
    FileWatch& storedSettings_;
    VanokaInputController controller_;
};

} // namespace vanoka
