#pragma once

#include "words/ListReading.h"

#include <charconv>
#include <istream>
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

/// The lines of a text file, without the byte order mark that it may begin with.
class Lines {
public:
    explicit Lines(std::istream& input) : input_(input) {}

    /// Reads the next line into `line`; false at the end.
    bool next(std::string& line) {
        if (!std::getline(input_, line))
            return false;
        if (++number_ == 1)
            line.erase(0, line.size() - ListReading::withoutByteOrderMark(line).size());
        return true;
    }

    /// The number of the line that was read last, counted from 1; 0 before the first.
    std::size_t number() const noexcept { return number_; }

private:
    std::istream& input_;
    std::size_t number_ = 0;
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
