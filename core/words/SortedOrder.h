#pragma once

#include "support/Sort.h"
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The numbers from 0 to `count` − 1, stably sorted by the bytes that `bytesOf(number, buffer)` gives for
/// each. The bytes may stand in `buffer`, a string of the caller's.
///
/// Sorts by the first eight bytes where they decide, and looks at the rest only where they do not.
template <class BytesOf>
std::vector<std::uint32_t> sortedOrder(std::size_t count, BytesOf bytesOf) {
    struct Record {
        std::uint64_t start = 0; // the first eight bytes, zeros after a shorter text
        std::uint32_t length = 0;
        std::uint32_t number = 0;
    };
    constexpr std::size_t startLength = sizeof(Record::start);
    std::string left, right;
    std::vector<Record> records(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view bytes = bytesOf(static_cast<std::uint32_t>(i), left);
        std::uint64_t start = 0;
        for (std::size_t j = 0; j < startLength; ++j)
            start = start << 8 | (j < bytes.size() ? static_cast<unsigned char>(bytes[j]) : 0U);
        records[i] = {start, static_cast<std::uint32_t>(bytes.size()), static_cast<std::uint32_t>(i)};
    }
    sortRange(records, [&](const Record& one, const Record& other) {
        if (one.start != other.start)
            return one.start < other.start;
        if (one.length > startLength && other.length > startLength) {
            const std::string_view ones = bytesOf(one.number, left), others = bytesOf(other.number, right);
            if (const int order = ones.substr(startLength).compare(others.substr(startLength)); order != 0)
                return order < 0;
        } else if (one.length != other.length) {
            return one.length < other.length; // the shorter one is how the longer one starts
        }
        return one.number < other.number;
    });
    std::vector<std::uint32_t> order(count);
    std::ranges::transform(records, order.begin(), &Record::number);
    return order;
}

} // namespace vanoka
