#pragma once

#include "support/Sort.h"

#include <vector>

namespace vanoka {

/// The rows of a map of words, the most used first, equal ones in the order of the words. `usesOf` tells how
/// often a word was used by what the map holds of it. Valid as long as the rows are.
template <class Rows, class Uses>
std::vector<typename Rows::const_pointer> mostUsedFirst(const Rows& rows, Uses usesOf) {
    std::vector<typename Rows::const_pointer> order;
    order.reserve(rows.size());
    for (const auto& row : rows)
        order.push_back(&row);
    sortRange(order, [&](const auto* one, const auto* other) {
        const auto left = usesOf(one->second), right = usesOf(other->second);
        return left != right ? left > right : one->first < other->first;
    });
    return order;
}

} // namespace vanoka
