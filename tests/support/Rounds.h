#pragma once

#include <cstddef>

namespace vanoka::test {

/// How often a test goes round that compares random values by the thousand: a sixteenth as often where every
/// step is watched or counted. That takes ten times as long, and each round shows as much of what it looks
/// for.
constexpr std::size_t rounds(std::size_t all) {
#ifdef VANOKA_INSTRUMENTED
    return (all + 15) / 16;
#else
    return all;
#endif
}

} // namespace vanoka::test
