#include "IBusDaemon.h"
#include "IBusField.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace vanoka::test {

namespace {

namespace fs = std::filesystem;

/// How often the threads of a process have gone to sleep, which is how often something has woken them.
long sleepsOf(pid_t process) {
    long all = 0;
    for (const auto& thread : fs::directory_iterator("/proc/" + std::to_string(process) + "/task")) {
        std::ifstream status(thread.path() / "status");
        const std::string name = "voluntary_ctxt_switches:";
        for (std::string line; std::getline(status, line);)
            if (line.starts_with(name))
                all += std::stol(line.substr(name.size()));
    }
    return all;
}

/// A laptop's processor sleeps while nobody types.
TEST(IdleTest, NothingWakesTheEngineWhileNobodyTypes) {
    IBusField field;
    ASSERT_TRUE(field.choose("vanoka"));
    for (const char key : {'a', 'm', 'm', 'a', ' '})
        ibus_input_context_process_key_event(field.context(), static_cast<guint>(key), 0, 0);
    settle();
    const auto engine = IBusDaemon::shared().engineProcess();
    ASSERT_TRUE(engine.has_value());
    constexpr gulong twoSeconds = 2'000'000;
    long woken = -1;
    for (int attempt = 0; attempt < 5 && woken != 0; ++attempt) { // what the daemon still says comes first
        const long before = sleepsOf(*engine);
        ASSERT_GT(before, 0);
        g_usleep(twoSeconds);
        woken = sleepsOf(*engine) - before;
    }
    EXPECT_EQ(woken, 0);
}

} // namespace

} // namespace vanoka::test
