#pragma once

#include <string_view>

namespace vanoka::ibus {

/// What the installed versions of IBus and of the toolkits do, as far as it decides how text is put in.
struct Versions {
    /// Qt's module puts the marked text in by itself but does not tell the daemon that it does.
    bool qtCommitsUnannounced = false;
    /// The GTK 4 module resets the engine before it has put the marked text in.
    bool gtk4ResetsFirst = false;
    /// XIM's server waits for the answer to each key, and meanwhile takes no text.
    bool ximAsksSynchronously = false;
};

/// How a client gets a composition that ends without a key: by a click, a change of focus, another engine.
/// At that moment the client, the daemon and the engine can each put the text in, and exactly one must.
struct CommitPolicy {
    /// Marked text is put in by the client or the daemon when it loses the engine, and is dropped otherwise.
    bool frameworkCommits = true;
    /// Marked text is taken away before the text comes that takes its place.
    bool hidesFirst = false;
    /// The engine puts the text in when it is reset: nobody else does.
    bool commitsInReset = false;
    /// The engine puts the text in as soon as a key is pressed that begins a shortcut: if the shortcut
    /// changes the engine or the window, nobody else would.
    bool commitsBeforeShortcut = false;
    /// The daemon drops the marked text when another client gets the focus before this one has lost it.
    bool losesTextToOthers = false;
    /// Each key that is the client's is sent back on the road that texts take, since one that is only
    /// declined overtakes them.
    bool forwardsPassedKeys = false;
    friend bool operator==(const CommitPolicy&, const CommitPolicy&) = default;
};

/// The policy towards a client with this name, which is empty until the daemon has told it.
CommitPolicy commitPolicyFor(std::string_view client, const Versions& versions);

} // namespace vanoka::ibus
