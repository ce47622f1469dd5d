#include "KeyThread.h"

#include <ctime>
#include <gtest/gtest.h>
#include <thread>

namespace vanoka::test {

namespace {

TEST(KeyThread, DoesWhatAnotherThreadWantedBeforeTheLoopRan) {
    fcitx::EventLoop loop;
    fcitx5::KeyThread keyThread(loop);
    bool isDone = false;
    std::thread other([&] {
        keyThread.schedule([&] {
            isDone = true;
            loop.exit();
        });
    });
    other.join();
    const auto patience = loop.addTimeEvent(CLOCK_MONOTONIC, fcitx::now(CLOCK_MONOTONIC) + 5'000'000, 0,
                                            [&](fcitx::EventSourceTime*, std::uint64_t) {
                                                loop.exit();
                                                return true;
                                            });
    loop.exec();
    EXPECT_TRUE(isDone);
}

} // namespace

} // namespace vanoka::test
