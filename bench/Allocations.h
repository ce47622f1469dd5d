#pragma once

#include <cstddef>

namespace vanoka::bench {

/// How often this program has asked the heap for memory with operator new.
std::size_t allocations() noexcept;

} // namespace vanoka::bench
