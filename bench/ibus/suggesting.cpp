// What suggestions add to the time in which a key goes to the daemon, to the engine and back, beside the same
// engine without them; when the candidates follow; what memory they take; and how long after they are
// switched on the first ones stand.

#include "IBusDaemon.h"
#include "IBusField.h"
#include "Press.h"
#include "SuggestionsHere.h"

#include <csignal>
#include <cstdio>
#include <optional>
#include <utility>
#include <vector>

namespace {

using namespace vanoka;
using namespace vanoka::test;
using namespace vanoka::bench;

constexpr std::size_t rounds = 60;
constexpr guint shownHere =
    IBUS_CAP_PREEDIT_TEXT | IBUS_CAP_FOCUS | IBUS_CAP_PROPERTY | IBUS_CAP_LOOKUP_TABLE;

/// A field that notes when it is told of candidates.
class Field {
public:
    Field() : field_("bench", IBusField::Commits::daemon, shownHere) {
        g_signal_connect(field_.context(), "update-lookup-table",
                         G_CALLBACK(+[](IBusInputContext*, IBusLookupTable*, gboolean, gpointer field) {
                             static_cast<Field*>(field)->shown_ = Clock::now();
                         }),
                         this);
    }
    IBusField* operator->() noexcept { return &field_; }
    IBusField& operator*() noexcept { return field_; }

    /// Presses a key, and sees in the pause after it when its candidates come, in microseconds after its
    /// answer; the time of the key is the first.
    std::pair<double, std::optional<double>> type(char key) {
        settle();
        shown_.reset();
        const double time = press(field_, static_cast<guint>(key));
        const auto answered = Clock::now();
        pauseAndLook([] {});
        return {time, shown_ ? std::optional(Microseconds(*shown_ - answered).count()) : std::nullopt};
    }
    /// Until candidates come; false when none do.
    bool waitForCandidates() {
        shown_.reset();
        return waitUntil([this] { return shown_.has_value(); });
    }

private:
    IBusField field_;
    std::optional<Clock::time_point> shown_;
};

void choose(bool areOn) {
    switchSuggestions(IBusDaemon::shared().configuration(), areOn);
}

void typeStretch(Field& field, Arm& arm, std::vector<double>& candidates) {
    field->leaveAndReturn();
    std::vector<double> times;
    for (const char* word : words) {
        for (const char* key = word; *key; ++key) {
            const auto [time, candidatesCame] = field.type(*key);
            times.push_back(time);
            if (candidatesCame)
                candidates.push_back(*candidatesCame);
        }
    }
    arm.stretches.push_back(std::move(times));
}

double memoryAfterTyping(Field& field) {
    Arm arm{"once"};
    std::vector<double> candidates;
    typeStretch(field, arm, candidates);
    return privateMemory(IBusDaemon::shared().engineProcess().value());
}

/// In milliseconds, from a click on the switch to the first candidates, in a process that has never had them
/// on.
std::optional<double> firstCandidates(Field& field) {
    choose(false);
    field->choose("xkb:us::eng");
    IBusDaemon::shared().killEngine(SIGKILL);
    field->choose("vanoka");
    for (const char* key = "gedr"; *key; ++key)
        field.type(*key);
    const auto start = Clock::now();
    ibus_input_context_property_activate(field->context(), "suggestions", 0);
    if (!field.waitForCandidates())
        return std::nullopt;
    return Microseconds(Clock::now() - start).count() / 1000;
}

void reportMemory(Field& field) {
    const double without = memoryAfterTyping(field);
    choose(true);
    field->leaveAndReturn();
    for (const char key : {'g', 'e'})
        field.type(key);
    field.waitForCandidates();
    const double with = memoryAfterTyping(field);
    std::printf("private memory of the engine: %.1f MB without, %.1f MB with suggestions: %.1f MB more\n",
                without, with, with - without);
}

void reportKeys(Field& field) {
    Arm off{"off"}, on{"on"}, again{"off"};
    std::vector<double> candidates, none;
    measure({&off, &on, &again}, rounds, [&](Arm& arm) {
        choose(&arm == &on);
        typeStretch(field, arm, &arm == &on ? candidates : none);
    });
    std::printf(
        "key round trip through the daemon, %zu keys each, %u ms apart, nine of ten ratios in brackets\n",
        rounds * on.stretches[0].size(), pauseOfTypist);
    for (const auto& [name, part] : {std::pair("median", 0.5), std::pair("p99", 0.99)}) {
        report(name, on, off, part);
        report(name, again, off, part);
    }
    std::printf("candidates after the answer, %zu times (%zu times while off): median %.0f us, p99 %.0f us\n",
                candidates.size(), none.size(), quantile(candidates, 0.5), quantile(candidates, 0.99));
}

/// What the way of any candidates through the daemon takes.
void reportTables(Field& field) {
    field->choose("echo-table");
    Arm arm{"echo-table"};
    std::vector<double> tables;
    for (std::size_t round = 0; round < rounds; ++round)
        typeStretch(field, arm, tables);
    std::printf("those of an engine that need not find any, %zu times: median %.0f us, p99 %.0f us\n",
                tables.size(), quantile(tables, 0.5), quantile(tables, 0.99));
    field->choose("vanoka");
}

void reportStarts(Field& field) {
    std::vector<double> starts;
    for (int i = 0; i < 15; ++i)
        if (const auto time = firstCandidates(field))
            starts.push_back(*time);
    std::printf("a click on the switch to the first candidates, %zu times: median %.0f ms, longest %.0f ms\n",
                starts.size(), quantile(starts, 0.5), quantile(starts, 1));
}

} // namespace

int main() {
    installLists(IBusDaemon::shared().data());
    Field field;
    field->choose("vanoka");
    reportMemory(field);
    reportKeys(field);
    reportTables(field);
    reportStarts(field);
    return 0;
}
