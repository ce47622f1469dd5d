// What the engine adds to the time in which a key goes to the daemon, to the engine and back, beside a bare
// engine in the same daemon; what memory its process takes; and how long after its start it answers a key.
// With --busy, while a program keeps each processor busy; with --million, what a million keys change.

#include "IBusDaemon.h"
#include "IBusField.h"
#include "Keysym.h"
#include "Press.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace vanoka::test;
using namespace vanoka::bench;

constexpr std::size_t rounds = 400; // of one short stretch of keys each

void typeStretch(IBusField& field, Arm& arm) {
    field.choose(arm.name);
    for (const char* key = words[0]; *key; ++key) // a new engine object has its first word behind it
        press(field, static_cast<guint>(*key));
    std::vector<double> times;
    for (const char* word : words)
        for (const char* key = word; *key; ++key)
            times.push_back(press(field, static_cast<guint>(*key)));
    arm.stretches.push_back(std::move(times));
    settle();
}

/// In milliseconds, from the choice of the engine, whose process does not run, to the answer to a key.
double startTime(IBusField& field) {
    field.choose("xkb:us::eng");
    IBusDaemon::shared().killEngine(SIGKILL);
    const auto start = Clock::now();
    field.choose("vanoka");
    press(field, 'a');
    const double time = Microseconds(Clock::now() - start).count() / 1000;
    press(field, ' ');
    settle();
    return time;
}

/// As many processes that only count as there are processors, until this is gone.
class BusyMachine {
public:
    BusyMachine() {
        for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i) {
            const pid_t process = ::fork();
            if (process == 0)
                count();
            if (process < 0)
                std::abort(); // to end that process would end every other
            processes_.push_back(process);
        }
    }
    BusyMachine(const BusyMachine&) = delete;
    BusyMachine& operator=(const BusyMachine&) = delete;
    ~BusyMachine() {
        for (const pid_t process : processes_) {
            ::kill(process, SIGKILL);
            ::waitpid(process, nullptr, 0);
        }
    }

private:
    [[noreturn]] static void count() {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // when who started it is gone
        for (std::atomic<unsigned> turns = 0;;)
            ++turns;
    }

    std::vector<pid_t> processes_;
};

void compareWithBare(IBusField& field) {
    Arm bare{"echo"}, ours{"vanoka"}, again{"echo"};
    measure({&bare, &ours, &again}, rounds, [&](Arm& arm) {
        field.choose("xkb:us::eng"); // the same way to each
        typeStretch(field, arm);
    });
    std::printf("key round trip through the daemon, %zu keys each, nine of ten ratios in brackets\n",
                rounds * ours.stretches[0].size());
    for (const auto& [name, part] :
         {std::pair("median", 0.5), std::pair("p99", 0.99), std::pair("worst", 1.0)}) {
        report(name, ours, bare, part);
        report(name, again, bare, part);
    }
}

/// Types so many keys as fast as the daemon takes them, and waits until all have been answered.
class FullSpeed {
public:
    explicit FullSpeed(IBusField& field) : field_(field) {}

    void type(std::size_t count) {
        for (const std::size_t end = pressed_ + count; pressed_ < end;) {
            for (int times = 0; times < 50; ++times)
                for (const char* word : words)
                    for (const char* key = word; *key; ++key)
                        press(static_cast<guint>(*key));
            field_.waitUntilFinished(pressed_);
            settle();
            field_.field() = TextField(); // a text of a million letters would take time of its own
        }
    }

private:
    void press(guint keysym) {
        constexpr std::size_t mostUnderway = 100;
        field_.pressAtOnce(vanoka::Keysym::keyEvent(keysym, 0, keysym));
        if (++pressed_ % mostUnderway == 0)
            field_.waitUntilFinished(pressed_ - mostUnderway);
    }

    IBusField& field_;
    std::size_t pressed_ = 0;
};

/// What the engine does for a key, what a key takes and what the process holds, after each tenth of a million
/// keys.
void typeAMillion(IBusField& field) {
    constexpr std::size_t tenth = 100'000;
    field.choose("vanoka");
    press(field, ' ');
    FullSpeed fullSpeed(field);
    const pid_t engine = IBusDaemon::shared().engineProcess().value();
    for (int part = 1; part <= 10; ++part) {
        const double before = processorTime(engine);
        fullSpeed.type(tenth);
        const double ofAKey = (processorTime(engine) - before) / tenth;
        std::vector<double> times;
        for (std::size_t stretch = 0; stretch < 5; ++stretch)
            for (const char* word : words)
                for (const char* key = word; *key; ++key)
                    times.push_back(press(field, static_cast<guint>(*key)));
        settle();
        std::printf(
            "%2d00,000 keys: %.1f us of the engine's processor time each; then a round trip of %.0f us, "
            "private memory %.1f MB\n",
            part, ofAKey, quantile(times, 0.5), privateMemory(engine));
        std::fflush(stdout); // it takes minutes
    }
}

} // namespace

int main(int count, char** values) {
    IBusField field("bench");
    const std::string_view option = count > 1 ? values[1] : "";
    if (option == "--million") {
        typeAMillion(field);
        return 0;
    }
    if (option == "--busy") {
        const BusyMachine busy;
        compareWithBare(field);
        return 0;
    }
    compareWithBare(field);
    field.choose("vanoka");
    if (const auto process = IBusDaemon::shared().engineProcess())
        std::printf("private memory of the engine after that: %.1f MB\n", privateMemory(*process));
    constexpr guint deadAcute = 0xFE51;
    press(field, deadAcute);
    press(field, 'e');
    if (const auto process = IBusDaemon::shared().engineProcess())
        std::printf("and after a dead key: %.1f MB\n", privateMemory(*process));
    std::vector<double> starts;
    for (int i = 0; i < 15; ++i)
        starts.push_back(startTime(field));
    std::printf("start of the process to the answer to its first key: median %.0f ms, longest %.0f ms\n",
                quantile(starts, 0.5), quantile(starts, 1));
    return 0;
}
