#pragma once

#include <cstddef>
#include <gtest/gtest.h>

namespace vanoka::test {

/// What is kept takes as many bytes as it needs; more only where the core is compiled without exceptions,
/// since the standard library gives no room back there.
inline void expectMemory(std::size_t taken, std::size_t needed) {
#ifdef VANOKA_CORE_ALONE
    EXPECT_GE(taken, needed);
#else
    EXPECT_EQ(taken, needed);
#endif
}

} // namespace vanoka::test
