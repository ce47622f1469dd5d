#pragma once

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vanoka::test {

inline constexpr uid_t nobody = 65534;

/// To whom permissions apply, which they do not to root.
inline void becomeNobody() {
    if (::geteuid() == 0 && ::setresuid(nobody, nobody, nobody) != 0)
        ::_exit(3);
}

/// Runs a body in a child, which no test's user may be stronger than: 0 when it returns true.
inline int inAnotherProcess(const std::function<bool()>& body) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(body() ? 0 : 1);
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

/// Runs the body of a test where permissions apply, in a folder that it may write to.
inline void asNobody(const std::filesystem::path& folder, const std::function<void()>& body) {
    if (::geteuid() == 0)
        ASSERT_EQ(::chown(folder.c_str(), nobody, static_cast<gid_t>(-1)), 0);
    EXPECT_EQ(inAnotherProcess([&] {
                  becomeNobody();
                  body();
                  return !testing::Test::HasFailure();
              }),
              0);
}

} // namespace vanoka::test
