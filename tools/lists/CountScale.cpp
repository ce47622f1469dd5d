#include "CountScale.h"

#include "text/Rows.h"
#include "words/ListReading.h"

#include <algorithm>

namespace vanoka::CountScale {

namespace {

/// The row's count; 0 when it has none, or none above 0.
std::int64_t countOf(const text::Row& row) {
    const auto count =
        row.kind == text::Row::Kind::fields ? text::integer(row.second) : std::optional<std::int64_t>();
    return std::clamp<std::int64_t>(count.value_or(0), 0, ListReading::largestCount);
}

std::int64_t sumOf(std::string_view list) {
    std::int64_t sum = 0;
    while (!list.empty())
        sum += countOf(text::rowOf(text::takeLine(list)));
    return sum;
}

} // namespace

std::optional<std::string> scaled(std::string_view list, std::int64_t total) {
    list = ListReading::withoutByteOrderMark(list);
    const std::int64_t sum = sumOf(list);
    if (sum == 0)
        return std::nullopt;
    std::string result;
    while (!list.empty()) {
        const std::string_view line = text::takeLine(list);
        const text::Row row = text::rowOf(line);
        if (const std::int64_t count = countOf(row); count > 0)
            result.append(row.first).append(1, '\t').append(
                std::to_string(std::max<std::int64_t>((count * total + sum / 2) / sum, 1)));
        else
            result.append(line);
        result += '\n';
    }
    return result;
}

} // namespace vanoka::CountScale
