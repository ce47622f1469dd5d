#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

/// Reading text files of rows.
namespace vanoka {

/// What is wrong with a file, and where.
struct BadLine {
    std::size_t line = 0; ///< counted from 1
    std::string problem;
};

/// The whole text as a number; nothing when it is none or does not fit.
template <class Number>
std::optional<Number> number(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

/// The parts of `text` between separators; empty ones are left out.
inline std::vector<std::string_view> parts(std::string_view text, std::string_view separators) {
    std::vector<std::string_view> found;
    for (std::size_t start; (start = text.find_first_not_of(separators)) != std::string_view::npos;) {
        text.remove_prefix(start);
        found.push_back(text.substr(0, text.find_first_of(separators)));
        text.remove_prefix(found.back().size());
    }
    return found;
}

} // namespace vanoka
