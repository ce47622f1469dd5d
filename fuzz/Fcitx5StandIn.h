#pragma once

#include "KeyThread.h"
#include "TemporaryFolder.h"

#include <fcitx/focusgroup.h>
#include <fcitx/instance.h>
#include <functional>
#include <semaphore>

namespace vanoka::fuzz {

/// A whole Fcitx5 in this process, on a thread of its own, without displays, buses, panels and shortcuts. It
/// has two input methods: the add-on under test, with a few lists, and one that lets every key pass.
class Fcitx5StandIn {
public:
    static constexpr auto vanoka = "vanoka", other = "other";

    /// For the whole process, whose end alone ends it.
    static Fcitx5StandIn& shared();

    /// What clients tell on a display, of which one field at a time has the focus; whether there is more to
    /// come.
    using Step = std::function<bool(fcitx::Instance&, fcitx::FocusGroup& display)>;

    /// Does it on the thread of the keys, again and again while there is more, each time after all that was
    /// put off until a key has its answer.
    void repeat(const Step& step);

    /// Whether the user wants candidates; to be called by a step.
    void setSuggestions(bool areOn);

private:
    Fcitx5StandIn();
    void writeFiles() const;
    void setEnvironment() const;
    void serve();

    test::TemporaryFolder folder_;
    fcitx::Instance* instance_ = nullptr;
    fcitx::FocusGroup* display_ = nullptr; ///< with the last of them Fcitx5 ends
    fcitx5::KeyThread* keys_ = nullptr;
    bool areSuggestionsOn_ = false;
    std::binary_semaphore isDone_{0}; ///< what the other thread was to do
};

} // namespace vanoka::fuzz
