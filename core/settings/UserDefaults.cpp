#include "settings/UserDefaults.h"

namespace vanoka {

std::optional<std::string> MemoryUserDefaults::data(std::string_view name) {
    const auto found = values_.find(name);
    return found == values_.end() ? std::nullopt : std::optional(found->second);
}

void MemoryUserDefaults::setData(std::string_view name, const std::optional<std::string>& value) {
    if (value)
        values_.insert_or_assign(std::string(name), *value);
    else if (const auto found = values_.find(name); found != values_.end())
        values_.erase(found);
}

} // namespace vanoka
