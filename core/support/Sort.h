#pragma once

#include <algorithm>
#include <functional>

namespace vanoka {

/// Sorts as `std::ranges::sort` does; equal elements come in any order. In the module for WebAssembly, which
/// people fetch before they can type, by heaps: the usual code for a dozen sorts would be a sixteenth of it.
template <class Range, class Order = std::ranges::less, class Projection = std::identity>
void sortRange(Range& range, Order order = {}, Projection projection = {}) {
#ifdef __wasm__
    std::ranges::make_heap(range, order, projection);
    std::ranges::sort_heap(range, order, projection);
#else
    std::ranges::sort(range, order, projection);
#endif
}

} // namespace vanoka
