#pragma once

#include "CandidateTyping.h"

#include <functional>
#include <glib.h>
#include <ibus.h>
#include <map>
#include <string>

namespace vanoka::fuzz {

/// What an engine tells IBus's daemon, told to this instead: the functions of libibus by which it does so,
/// and GLib's by which it puts something off, are defined here anew, in the program itself.
class IBusStandIn {
public:
    struct Preedit {
        std::string text;
        bool isPutIn = false; ///< by whoever puts it in when the focus is lost
        bool isStale = false; ///< its text has been put in, and it is about to go
    };

    /// The one that is told now.
    static IBusStandIn& current();

    std::function<void(const std::string& text)> commit;
    std::function<void(guint keysym, guint state)> forward;
    Preedit preedit;
    CandidateLine line; ///< as the panel shows it

    guint putOff(int priority, GSourceFunc function, void* data);
    void cancel(guint id);
    /// Does what was put off, up to this priority; greater ones come later.
    void doWhatWasPutOff(int priority);

    /// Begins anew, with an engine that has shown nothing.
    void reset();

private:
    struct PutOff {
        int priority;
        GSourceFunc function;
        void* data;
    };
    std::map<guint, PutOff> putOff_;
    guint lastId_ = 0;
};

} // namespace vanoka::fuzz
