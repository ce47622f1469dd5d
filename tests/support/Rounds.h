#pragma once

#include <cstddef>

namespace vanoka::test {

/// How often a test goes round that compares random values by the thousand: fewer times where every step is
/// watched or counted. That takes ten times as long, and each round shows as much of what it looks for.
constexpr std::size_t rounds(std::size_t all) {
    return (all + VANOKA_FEWER_ROUNDS - 1) / VANOKA_FEWER_ROUNDS;
}

} // namespace vanoka::test
