#include "ListCheck.h"

#include "Words.h"
#include "text/Rows.h"
#include "text/Utf8.h"
#include "text/Visible.h"
#include "words/ListReading.h"
#include "words/SinhalaSpelling.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace vanoka {

namespace {

constexpr std::array<std::string_view, 3> names = {"sinhala", "english", "emoji"};
constexpr std::string_view byteOrderMarkWarning = "it begins with a byte order mark, which is passed over "
                                                  "here; a keyboard may take it as a part of the word";

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
    return '"' + text::visible(field) + '"';
}

/// Why a field is no count; empty when it is one.
std::string countProblem(std::string_view field) {
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

/// All but the first of the lines that CR LF keeps together are lost even when the line loads.
LineProblem joinedProblem(const LineProblem& problem, std::string_view line, std::size_t inside) {
    std::string reason = "it ends in CR LF, which ends no line" + joined(line, problem.number, inside);
    if (!problem.reason.empty())
        reason.append("; ").append(problem.reason);
    return {problem.number, std::move(reason)};
}

class Checker {
public:
    explicit Checker(ListKind kind) : kind_(kind) {}

    /// What is wrong with the line with this number; the reason is empty when nothing is.
    LineProblem problemOf(std::string_view line, std::size_t number) {
        const text::Row row = text::rowOf(line);
        if (std::string reason = skippedBecause(row, line, number); !reason.empty())
            return {number, std::move(reason)};
        return {number, warningOf(row), LineProblem::Kind::warning};
    }

private:
    std::string skippedBecause(const text::Row& row, std::string_view line, std::size_t number) {
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
            return skippedBecause(row, number);
        }
        return {};
    }

    std::string skippedBecause(const text::Row& row, std::size_t number) {
        if (kind_ == ListKind::emoji)
            return emojiProblem(row.first, number);
        const bool isCount = text::integer(row.second) || isChat(row);
        return isCount ? std::string() : countProblem(row.second);
    }

    bool isChat(const text::Row& row) const { return kind_ == ListKind::english && row.second == "chat"; }

    std::string warningOf(const text::Row& row) const {
        const auto count = text::integer(row.second);
        if (kind_ == ListKind::emoji || !count || ListReading::held(*count) == *count)
            return {};
        return "the count is held to " + std::to_string(ListReading::held(*count)) +
               " here; a keyboard that adds up larger ones stops";
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
    list = ListReading::withoutByteOrderMark(list);
    text::forEachRow(list, [&](std::string_view word, std::string_view field) {
        const bool isCount = text::integer(field).has_value();
        const ListKind kind = field == "chat" || (isCount && !isSinhala(word)) ? ListKind::english
                              : isCount                                        ? ListKind::sinhala
                                                                               : ListKind::emoji;
        ++rows[static_cast<std::size_t>(kind)];
    });
    return static_cast<ListKind>(std::ranges::max_element(rows) - rows.begin());
}

std::vector<LineProblem> problemsOf(std::string_view list, ListKind kind) {
    std::vector<LineProblem> problems;
    Checker checker(kind);
    std::size_t number = 1;
    if (list.starts_with(ListReading::byteOrderMark))
        problems.push_back({number, std::string(byteOrderMarkWarning), LineProblem::Kind::warning});
    list = ListReading::withoutByteOrderMark(list);
    while (!list.empty()) {
        const std::string_view line = text::takeLine(list);
        const auto inside = static_cast<std::size_t>(std::ranges::count(line, '\n'));
        LineProblem problem = checker.problemOf(line, number);
        if (inside > 0)
            problem = joinedProblem(problem, line, inside);
        if (!problem.reason.empty())
            problems.push_back(std::move(problem));
        number += inside + 1;
    }
    return problems;
}

std::size_t countOf(LineProblem::Kind kind, const std::vector<LineProblem>& problems) {
    return static_cast<std::size_t>(std::ranges::count(problems, kind, &LineProblem::kind));
}

} // namespace vanoka
