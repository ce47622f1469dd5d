#include "Options.h"

#include "text/Rows.h"

#include <algorithm>

namespace vanoka {

std::optional<Options> Options::read(std::span<const std::string_view> arguments,
                                     std::span<const std::string_view> known, std::string& problem) {
    Options options;
    bool areOperands = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (areOperands || !argument.starts_with("--")) {
            options.operands_.emplace_back(argument);
        } else if (argument == "--") {
            areOperands = true;
        } else {
            const std::string_view name = argument.substr(0, argument.find('='));
            if (std::ranges::find(known, name) == known.end()) {
                problem = "No such option: " + std::string(name);
                return std::nullopt;
            }
            if (name.size() < argument.size()) {
                options.values_.insert_or_assign(std::string(name), argument.substr(name.size() + 1));
            } else if (++i < arguments.size()) {
                options.values_.insert_or_assign(std::string(name), arguments[i]);
            } else {
                problem = std::string(name) + " needs a value";
                return std::nullopt;
            }
        }
    }
    return options;
}

std::optional<std::string> Options::value(std::string_view option) const {
    const auto found = values_.find(option);
    return found == values_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::int64_t> Options::number(std::string_view option, std::int64_t fallback,
                                            std::int64_t least, std::int64_t most) const {
    const auto given = value(option);
    if (!given)
        return fallback;
    const auto number = text::integer(*given);
    return number && *number >= least && *number <= most ? number : std::nullopt;
}

} // namespace vanoka
