#pragma once

#include "settings/UserDefaults.h"

namespace vanoka::mac {

/// The standard defaults of this application's user. A value that is no data counts as absent.
class MacUserDefaults final : public UserDefaults {
public:
    std::optional<std::string> data(std::string_view name) override;
    void setData(std::string_view name, const std::optional<std::string>& value) override;
};

} // namespace vanoka::mac
