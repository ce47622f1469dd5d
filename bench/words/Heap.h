#pragma once

#include <cstddef>

namespace vanoka::bench {

/// What this program has on the heap by operator new, in bytes, and the most that it had since the peak was
/// begun anew.
std::size_t heapBytes() noexcept;
std::size_t heapPeak() noexcept;
void beginHeapPeak() noexcept;

} // namespace vanoka::bench
