#pragma once

#include <vector>

namespace vanoka {

/// Makes room for `more` values at the end of `values`. Growing by a quarter instead of doubling keeps the
/// peak low while a large list is read.
template <class Value>
void makeRoom(std::vector<Value>& values, std::size_t more) {
    if (values.capacity() - values.size() < more)
        values.reserve(values.size() + values.size() / 4 + more + 16);
}

} // namespace vanoka
