// What the add-on adds to the time in which a key goes to fcitx5 and back, beside the framework's own
// keyboard in the same fcitx5; what suggestions add to that, and when the candidates follow; and what memory
// fcitx5 takes.

#include "Fcitx5Daemon.h"
#include "Fcitx5Field.h"
#include "Fcitx5Panel.h"
#include "Measures.h"
#include "SuggestionsHere.h"

#include <cstdio>
#include <optional>
#include <utility>
#include <vector>

namespace {

using namespace vanoka::test;
using namespace vanoka::bench;

constexpr std::size_t rounds = 400, roundsWithPauses = 60;

/// Until fcitx5 has answered, in microseconds.
double press(const Fcitx5Field& field, guint keysym) {
    GVariant* answer = nullptr;
    const double time = timed([&] {
        answer = g_dbus_connection_call_sync(Fcitx5Daemon::shared().connection(), "org.fcitx.Fcitx5",
                                             field.path().c_str(), "org.fcitx.Fcitx.InputContext1",
                                             "ProcessKeyEvent",
                                             g_variant_new("(uuubu)", keysym, 0U, 0U, FALSE, 0U), nullptr,
                                             G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, nullptr);
    });
    g_clear_pointer(&answer, g_variant_unref);
    return time;
}

std::vector<double> typeAtFullSpeed(const Fcitx5Field& field) {
    std::vector<double> times;
    for (const char* word : words)
        for (const char* key = word; *key; ++key)
            times.push_back(press(field, static_cast<guint>(*key)));
    settle();
    return times;
}

void switchSuggestions(Fcitx5Field& field, bool areOn) {
    vanoka::bench::switchSuggestions(Fcitx5Daemon::shared().configuration(), areOn);
    field.leaveAndReturn();
}

void report(const char* what, const Arm& arm, const Arm& beside, const Arm& again) {
    std::printf("%s, %zu keys each, nine of ten ratios in brackets\n", what,
                arm.stretches.size() * arm.stretches[0].size());
    for (const auto& [name, part] : {std::pair("median", 0.5), std::pair("p99", 0.99)}) {
        report(name, arm, beside, part);
        report(name, again, beside, part);
    }
}

void compareWithKeyboard(Fcitx5Field& field, const char* what) {
    Arm keyboard{"keyboard-us"}, ours{"vanoka"}, again{"keyboard-us"};
    measure({&keyboard, &ours, &again}, rounds, [&](Arm& arm) {
        Fcitx5Daemon::shared().choose(arm.name);
        typeAtFullSpeed(field); // the first keys after a change have more to do
        arm.stretches.push_back(typeAtFullSpeed(field));
    });
    Fcitx5Daemon::shared().choose("vanoka");
    report(what, ours, keyboard, again);
}

/// Presses a key, and sees in the pause after it when another line of candidates comes, in microseconds after
/// its answer; the time of the key is the first.
std::pair<double, std::optional<double>> pressAndPause(const Fcitx5Field& field, char key) {
    settle();
    const auto& line = Fcitx5Panel::shared().line();
    const auto before = line;
    const double time = press(field, static_cast<guint>(key));
    const auto answered = Clock::now();
    std::optional<double> came;
    pauseAndLook([&] {
        if (!came && !line.rows.empty() && line != before)
            came = Microseconds(Clock::now() - answered).count();
    });
    return {time, came};
}

void compareWithoutSuggestions(Fcitx5Field& field) {
    Arm off{"off"}, on{"on"}, again{"off"};
    std::vector<double> candidates;
    measure({&off, &on, &again}, roundsWithPauses, [&](Arm& arm) {
        switchSuggestions(field, &arm == &on);
        std::vector<double> times;
        for (const char* word : words) {
            for (const char* key = word; *key; ++key) {
                const auto [time, came] = pressAndPause(field, *key);
                times.push_back(time);
                if (came)
                    candidates.push_back(*came);
            }
        }
        arm.stretches.push_back(std::move(times));
    });
    report("with suggestions beside without, with a pause after each key", on, off, again);
    std::printf("candidates after the answer, %zu times: median %.0f us, p99 %.0f us\n", candidates.size(),
                quantile(candidates, 0.5), quantile(candidates, 0.99));
}

/// Types until candidates stand; false when none do.
bool suggests(Fcitx5Field& field) {
    Fcitx5Panel::shared();
    switchSuggestions(field, true);
    return waitUntil([&] {
        pressAndPause(field, 'g');
        const bool areThere = !Fcitx5Panel::shared().line().rows.empty();
        pressAndPause(field, ' ');
        return areThere;
    });
}

double memory() {
    return privateMemory(Fcitx5Daemon::shared().framework());
}

} // namespace

int main() {
    installLists(Fcitx5Daemon::shared().data());
    Fcitx5Field field("bench");
    Fcitx5Daemon::shared().choose("vanoka");
    compareWithKeyboard(field, "key round trip through fcitx5, suggestions off");
    const double without = memory();
    if (!suggests(field)) {
        std::fputs("No candidates came.\n", stderr);
        return 1;
    }
    compareWithKeyboard(field, "key round trip through fcitx5, suggestions on");
    compareWithoutSuggestions(field);
    std::printf("private memory of fcitx5: %.1f MB before suggestions, %.1f MB with them\n", without,
                memory());
    return 0;
}
