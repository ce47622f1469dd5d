#pragma once

#include "settings/UserDefaults.h"

namespace vanoka::test {

/// Defaults that say of how they are stored what they are told to.
class TroubledDefaults final : public UserDefaults {
public:
    std::optional<std::string> data(std::string_view name) override { return stored_.data(name); }
    void setData(std::string_view name, const std::optional<std::string>& value) override {
        stored_.setData(name, value);
    }
    Condition condition(std::string_view) const override { return said; }

    Condition said;

private:
    MemoryUserDefaults stored_;
};

} // namespace vanoka::test
