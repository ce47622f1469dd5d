#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace vanoka {

/// The platform's store of a user's settings: byte values by name. Both operations always succeed as far as
/// the caller can tell: while a value cannot be read, it is the one last read or written (none when there was
/// none), and a value that cannot be stored for good stays in force for this process.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// The value under `name`; nothing when there is none.
    virtual std::optional<std::string> data(std::string_view name) = 0;

    /// Stores `value` under `name`; storing nothing removes the value.
    virtual void setData(std::string_view name, const std::optional<std::string>& value) = 0;

    /// The defaults of the user who runs this process. Declared here, defined by each platform; a program
    /// that never asks for it links without one.
    static UserDefaults& standard();

protected:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = default;
    UserDefaults& operator=(const UserDefaults&) = default;
};

/// Defaults that last as long as the object.
class MemoryUserDefaults final : public UserDefaults {
public:
    std::optional<std::string> data(std::string_view name) override;
    void setData(std::string_view name, const std::optional<std::string>& value) override;

private:
    std::map<std::string, std::string, std::less<>> values_;
};

} // namespace vanoka
