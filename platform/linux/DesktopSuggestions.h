#pragma once

#include "FileUserDefaults.h"
#include "FileWatch.h"
#include "SqliteWordStore.h"
#include "SuggestionChoices.h"
#include "Suggestions.h"

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <optional>

namespace vanoka {

/// What the engines of one process suggest from, with the user's choices, which are kept in a file that all
/// engines of the user share.
///
/// Nothing is read or made before suggestions are switched on: the lists are read on a thread then, no key
/// waits for them, and suggestions are on when they are there. What people type is read a moment later, when
/// that has been prepared from them. All stays until the process ends.
///
/// All calls come from the thread of the keys, but for `listsAreRead`.
class DesktopSuggestions {
public:
    /// `listsAreRead` is called on another thread; it shall make the thread of the keys call `adoptLists`,
    /// and must be fit to be called until this object is gone. `defaults` must outlive it.
    DesktopSuggestions(FileUserDefaults& defaults, std::function<void()> listsAreRead);
    DesktopSuggestions(const DesktopSuggestions&) = delete;
    DesktopSuggestions& operator=(const DesktopSuggestions&) = delete;

    /// What controllers suggest from; the same object always.
    Suggestions& inForce() noexcept { return suggestions_; }

    /// The user's choices as they were last heard of.
    const SuggestionChoices& choices() const noexcept { return choices_; }
    /// And as they are kept now.
    SuggestionChoices stored() const;
    /// They are in force at once, and kept.
    void choose(const SuggestionChoices& choices);
    /// Those in which `after` is another than `before`; the others stay as they are kept.
    void change(const SuggestionChoices& before, const SuggestionChoices& after);
    /// Turns a switch over from what it was last heard to be, as a click on it means.
    void toggle(const SuggestionSwitch& which);

    /// Adopts what another program has chosen; true when it is something else. Takes about a microsecond.
    bool adoptStored();
    /// Before each key: the same, but without a look at the disk while they are off, and then the next focus
    /// brings it.
    bool adoptStoredBeforeKey() { return choices_.areOn && adoptStored(); }

    /// True when lists were read, with which suggestions are on from now on, or better ones.
    bool adoptLists();

private:
    using Lists = std::shared_ptr<const SuggestionLists>;

    void enforce(const SuggestionChoices& choices);
    void read(std::function<Lists()> lists);

    FileUserDefaults& defaults_;
    FileWatch watch_;
    std::function<void()> listsAreRead_;
    SuggestionChoices choices_;
    std::optional<SqliteWordStore> store_;
    Suggestions suggestions_;
    std::atomic<bool> isRead_ = false; // what `reading_` reads
    std::future<Lists> reading_;       // last: it waits for its thread
};

} // namespace vanoka
