#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The arguments of a command: options with a value each ("--minimum 3", "--minimum=3"), and operands. After
/// "--" everything is an operand.
class Options {
public:
    /// Nothing when an option is none of `known` or lacks its value; `problem` says which then.
    static std::optional<Options> read(std::span<const std::string_view> arguments,
                                       std::span<const std::string_view> known, std::string& problem);

    const std::vector<std::string>& operands() const noexcept { return operands_; }
    std::optional<std::string> value(std::string_view option) const;
    /// The whole number that an option is, `fallback` when it is not given; nothing when it is no number from
    /// `least` to `most`.
    std::optional<std::int64_t> number(std::string_view option, std::int64_t fallback, std::int64_t least,
                                       std::int64_t most = std::numeric_limits<std::int64_t>::max()) const;

private:
    std::map<std::string, std::string, std::less<>> values_;
    std::vector<std::string> operands_;
};

} // namespace vanoka
