#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vanoka {

/// The platform's store of a user's settings: byte values by name. Both operations always succeed as far as
/// the caller can tell: while a value cannot be read, it is the one last read or written (none when there was
/// none), and a value that cannot be stored for good stays in force for this process. `condition` tells a
/// person of either.
///
/// The virtual functions that have a body here suit a platform whose own store sees to it.
class UserDefaults {
public:
    /// The largest value, in bytes: what is larger is not stored, and cannot be read where it is found.
    static constexpr std::size_t largestValue = 16UL * 1024 * 1024;

    /// Keeps others from editing, for as long as it lives.
    using Lock = std::shared_ptr<void>;

    /// How a value is stored, for a person to read. Texts are empty where there is nothing to tell.
    struct Condition {
        std::string location;   ///< where it is kept
        std::string unreadable; ///< why what stands there cannot be read
        std::string unstored;   ///< why the value in force is not what stands there
        std::string unforced;   ///< why a loss of power may undo the last change, which stands there
        std::string setAside;   ///< where this process has put what stood there before
        friend bool operator==(const Condition&, const Condition&) = default;
    };

    virtual ~UserDefaults() = default;

    /// The value under `name`; nothing when there is none.
    virtual std::optional<std::string> data(std::string_view name) = 0;

    /// Stores `value` under `name`; storing nothing removes the value.
    virtual void setData(std::string_view name, const std::optional<std::string>& value) = 0;

    /// Waits until no other process edits the value under `name`, and keeps all others from it until the
    /// result is gone. Whoever reads a value to store what follows from it holds this from before to after.
    [[nodiscard]] virtual Lock lock(std::string_view /*name*/) { return nullptr; }

    /// Keeps what stands under `name` in another place, as it is of no use here, so that nothing is lost when
    /// a value is stored. `condition` tells where.
    virtual void setAside(std::string_view /*name*/) {}

    /// How the value under `name` was when it was last read or stored.
    virtual Condition condition(std::string_view /*name*/) const { return {}; }

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
