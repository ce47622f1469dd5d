#include "CommitPolicy.h"

#include <algorithm>
#include <array>

namespace vanoka::ibus {

namespace {

struct Row {
    std::string_view client; // the beginning of its name
    bool (*holds)(const Versions&);
    CommitPolicy policy;
};

bool always(const Versions&) {
    return true;
}
bool qtCommitsUnannounced(const Versions& versions) {
    return versions.qtCommitsUnannounced;
}
bool gtk4ResetsFirst(const Versions& versions) {
    return versions.gtk4ResetsFirst;
}
bool ximAsksSynchronously(const Versions& versions) {
    return versions.ximAsksSynchronously;
}

// The first row that fits counts. Clients that none fits put the marked text in themselves and have said so
// (GTK, browsers, GNOME Shell, newer Qt), or leave it to the daemon.
//
// A text sent while focus changes reaches whoever has focus next, so no row ever commits on losing focus.
constexpr std::array policyRows = std::to_array<Row>({
    // Puts the text in, then resets the engine, whereupon the daemon puts it in again: the daemon must not.
    // It then drops the text when the engine is changed, which a shortcut does. And it takes the text
    // away as soon as another program gets the focus, which Qt notices only later.
    {"QIBusInputContext",
     qtCommitsUnannounced,
     {.frameworkCommits = false,
      .hidesFirst = true,
      .commitsBeforeShortcut = true,
      .losesTextToOthers = true}},
    // One that has announced that it puts the text in loses it on the same roads. One that has not looks the
    // same from here, and may be installed beside it: if a text makes a field move the focus, that puts in
    // what
    // is still marked, again and again.
    {"QIBusInputContext",
     always,
     {.hidesFirst = true, .commitsBeforeShortcut = true, .losesTextToOthers = true}},
    // Tells the daemon that it puts the text in, and on a click in the same field does not.
    {"gtk4-im:", gtk4ResetsFirst, {.commitsInReset = true}},
    // Its server may tell that another window has the focus before it tells that this one has lost it, and
    // then nobody puts the text in. One that waits for each answer acts on it before it acts on what was sent
    // earlier, however long ago: so one that waits gets every key, and every release, behind the texts.
    // One that does not wait has the answers in order, and knows better which window each is for.
    {"xim",
     ximAsksSynchronously,
     {.commitsBeforeShortcut = true, .losesTextToOthers = true, .forwardsPassedKeys = true}},
    {"xim", always, {.commitsBeforeShortcut = true, .losesTextToOthers = true}},
});

} // namespace

CommitPolicy commitPolicyFor(std::string_view client, const Versions& versions) {
    const auto* row = std::ranges::find_if(policyRows, [&](const Row& candidate) {
        return client.starts_with(candidate.client) && candidate.holds(versions);
    });
    return row == policyRows.end() ? CommitPolicy{} : row->policy;
}

} // namespace vanoka::ibus
