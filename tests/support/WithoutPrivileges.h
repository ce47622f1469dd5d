#pragma once

#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vanoka::test {

inline constexpr uid_t nobody = 65534; // a user who is not the tests'

/// Runs a body in a child, which may be left without rights and limits: 0 when it returns true.
inline int inAnotherProcess(const std::function<bool()>& body) {
    const pid_t child = ::fork();
    if (child == 0) {
        try {
            ::_exit(body() ? 0 : 1);
        } catch (...) {
            ::_exit(2);
        }
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

/// From here on permissions apply to this process, as they do not to root's.
inline void dropPrivileges() {
    __user_cap_header_struct own = {.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
    const std::array<__user_cap_data_struct, 2> none = {};
    ASSERT_EQ(::syscall(SYS_capset, &own, none.data()), 0);
}

/// Runs the body of a test where permissions apply, whoever runs it.
inline void withoutPrivileges(const std::function<void()>& body) {
    EXPECT_EQ(inAnotherProcess([&] {
                  dropPrivileges();
                  body();
                  return !testing::Test::HasFailure();
              }),
              0);
}

} // namespace vanoka::test
