#include "FolderLock.h"

#include "TemporaryFolder.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vanoka {

namespace {

using Outcome = FolderLock::Outcome;

constexpr std::chrono::milliseconds noPatience{0};

Outcome outcome(const std::filesystem::path& folder) {
    return FolderLock(folder, noPatience).outcome();
}

TEST(FolderLock, IsHeldByOneAtATime) {
    const test::TemporaryFolder folder;
    {
        const FolderLock lock(folder.path(), noPatience);
        EXPECT_EQ(lock.outcome(), Outcome::taken);
        EXPECT_EQ(outcome(folder.path()), Outcome::busy);
    }
    EXPECT_EQ(outcome(folder.path()), Outcome::taken);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path())) << "nothing of it is left";
}

TEST(FolderLock, GoesWithAHolderThatIsKilled) {
    const test::TemporaryFolder folder;
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t holder = ::fork();
    if (holder == 0) {
        const FolderLock lock(folder.path(), noPatience);
        if (::write(ready[1], "", 1) == 1)
            ::pause();
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    EXPECT_EQ(outcome(folder.path()), Outcome::busy);
    ::kill(holder, SIGKILL);
    ::waitpid(holder, nullptr, 0);
    EXPECT_EQ(outcome(folder.path()), Outcome::taken);
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST(FolderLock, IsNotToBeHadWhereThereIsNoFolder) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(outcome(folder.path() / "none"), Outcome::unavailable);
    std::ofstream(folder.path() / "file") << "";
    EXPECT_EQ(outcome(folder.path() / "file"), Outcome::unavailable);
}

} // namespace

} // namespace vanoka
