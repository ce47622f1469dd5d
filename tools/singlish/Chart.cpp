#include "Chart.h"

#include "Clusters.h"
#include "text/Visible.h"

#include <algorithm>

namespace vanoka {

namespace {

using Row = std::vector<std::string>;

constexpr std::string_view indent = "  ";
constexpr std::string_view gap = "   ";

std::string joined(const std::vector<std::string>& keys) {
    std::string result;
    for (const std::string& key : keys)
        result += (result.empty() ? "" : "  ") + key;
    return result;
}

Row rowOf(const SinglishScheme::Letter& letter, const SinglishSettings& settings) {
    const auto keys = settings.activeKeysFor(letter);
    if (keys.empty())
        return {letter.display(), "no key"};
    return {letter.display(), joined(keys), letter.example(keys.front())};
}

std::vector<std::size_t> widthsOf(const std::vector<Row>& rows) {
    std::vector<std::size_t> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], Clusters::width(row[column]));
    }
    return widths;
}

} // namespace

void writeColumns(std::ostream& output, std::vector<Row> rows) {
    for (Row& row : rows)
        std::ranges::transform(row, row.begin(), text::visible);
    const auto widths = widthsOf(rows);
    for (const Row& row : rows) {
        output << indent;
        for (std::size_t column = 0; column < row.size(); ++column) {
            output << row[column];
            if (column + 1 < row.size())
                output << std::string(widths[column] - Clusters::width(row[column]), ' ') << gap;
        }
        output << '\n';
    }
}

void writeChart(std::ostream& output, const SinglishSettings& settings) {
    for (const SinglishScheme::Group group : SinglishScheme::allGroups) {
        std::vector<Row> rows;
        for (const auto& letter : SinglishScheme::letters())
            if (letter.group == group)
                rows.push_back(rowOf(letter, settings));
        output << (group == SinglishScheme::allGroups.front() ? "" : "\n") << title(group) << '\n';
        writeColumns(output, rows);
    }
}

} // namespace vanoka
