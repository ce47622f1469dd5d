#include "ListCheck.h"

#include "text/Rows.h"
#include "text/Utf8.h"
#include "words/SinhalaSpelling.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace vanoka {

namespace {

constexpr std::array<std::string_view, 3> names = {"sinhala", "english", "emoji"};

bool isSinhala(std::string_view word) {
    for (const text::Scalar& scalar : text::Scalars(word))
        if (scalar.value >= 0x0D80 && scalar.value <= 0x0DFF)
            return true;
    return false;
}

std::size_t illFormedByte(std::string_view line) {
    std::size_t at = 0;
    for (const text::Scalar& scalar : text::Scalars(line)) {
        if (!scalar.wellFormed)
            break;
        at += scalar.length;
    }
    return at + 1;
}

/// A field as it can be shown within a line.
std::string quoted(std::string_view field) {
    std::string result = "\"";
    for (const char byte : field) {
        if (byte == '\r' || byte == '\n')
            result += byte == '\r' ? "\\r" : "\\n";
        else
            result += byte;
    }
    return result + '"';
}

/// Why a field is no count; empty when it is one.
std::string countProblem(std::string_view field) {
    if (text::integer(field))
        return {};
    const bool isSigned = field.starts_with('-') || field.starts_with('+');
    const std::string_view digits = field.substr(isSigned ? 1 : 0);
    if (!digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos)
        return "the count does not fit into 64 bits";
    return quoted(field) + " is not a whole decimal number";
}

/// Which other lines are lost in a line that has so many line feeds inside.
std::string joined(std::string_view line, std::size_t number, std::size_t inside) {
    const std::size_t others = line.ends_with('\n') ? inside - 1 : inside;
    return others == 0
               ? ""
               : ": lines " + std::to_string(number) + " to " + std::to_string(number + others) + " are one";
}

class Checker {
public:
    explicit Checker(ListKind kind) : kind_(kind) {}

    /// Why the line with this number is skipped; empty when it is not.
    std::string problemOf(std::string_view line, std::size_t number) {
        const text::Row row = text::rowOf(line);
        switch (row.kind) {
        case text::Row::Kind::empty:
        case text::Row::Kind::comment:
            return {};
        case text::Row::Kind::illFormed:
            return "byte " + std::to_string(illFormedByte(line)) + " is not well-formed UTF-8";
        case text::Row::Kind::tooFewFields:
            return "there is no tab between two fields";
        case text::Row::Kind::tooManyFields:
            return "there are more than two fields";
        case text::Row::Kind::fields:
            return problemOf(row, number);
        }
        return {};
    }

private:
    std::string problemOf(const text::Row& row, std::size_t number) {
        if (kind_ == ListKind::emoji)
            return emojiProblem(row.first, number);
        if (kind_ == ListKind::english && row.second == "chat")
            return {};
        return countProblem(row.second);
    }

    std::string emojiProblem(std::string_view word, std::size_t number) {
        if (!isSinhala(word))
            return {};
        const auto [known, isNew] = lines_.try_emplace(SinhalaSpelling::looseKey(word), number);
        if (isNew)
            return {};
        return "line " + std::to_string(known->second) + " has the same Sinhala word, loosely";
    }

    ListKind kind_;
    std::unordered_map<std::string, std::size_t> lines_; ///< of Sinhala words with emoji, by loose key
};

} // namespace

std::optional<ListKind> listKind(std::string_view name) noexcept {
    const auto found = std::ranges::find(names, name);
    if (found == names.end())
        return std::nullopt;
    return static_cast<ListKind>(found - names.begin());
}

std::string_view nameOf(ListKind kind) noexcept {
    return names[static_cast<std::size_t>(kind)];
}

ListKind guessListKind(std::string_view list) {
    std::array<std::size_t, 3> rows{};
    text::forEachRow(list, [&](std::string_view word, std::string_view field) {
        const bool isCount = text::integer(field).has_value();
        const ListKind kind = field == "chat" || (isCount && !isSinhala(word)) ? ListKind::english
                              : isCount                                        ? ListKind::sinhala
                                                                               : ListKind::emoji;
        ++rows[static_cast<std::size_t>(kind)];
    });
    return static_cast<ListKind>(std::ranges::max_element(rows) - rows.begin());
}

std::vector<SkippedLine> skippedLines(std::string_view list, ListKind kind) {
    std::vector<SkippedLine> skipped;
    Checker checker(kind);
    std::size_t number = 1;
    while (!list.empty()) {
        const std::string_view line = text::takeLine(list);
        const auto inside = static_cast<std::size_t>(std::ranges::count(line, '\n'));
        std::string problem = checker.problemOf(line, number);
        // All but the first of the lines that CR LF keeps together are lost even when the line loads.
        if (inside > 0) {
            std::string ending = "it ends in CR LF, which ends no line" + joined(line, number, inside);
            if (!problem.empty())
                ending.append("; ").append(problem);
            problem = std::move(ending);
        }
        if (!problem.empty())
            skipped.push_back({number, std::move(problem)});
        number += inside + 1;
    }
    return skipped;
}

} // namespace vanoka
