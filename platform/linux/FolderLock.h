#pragma once

#include "Descriptor.h"

#include <chrono>
#include <cstdint>
#include <filesystem>

namespace vanoka {

/// Keeps the other programs that take it, too, from changing what is in a folder. The system takes it back
/// when its holder ends, however that ends, and nothing of it stays in the folder. On a folder of another
/// machine it holds among the programs of this one.
class FolderLock {
public:
    enum class Outcome : std::uint8_t {
        taken,
        busy,       ///< somebody else has had it all the time
        unavailable ///< there is no such folder, or it cannot be read or locked
    };

    /// Takes the lock of `folder`, waiting for `patience` at most while somebody else has it.
    FolderLock(const std::filesystem::path& folder, std::chrono::milliseconds patience);

    Outcome outcome() const noexcept { return outcome_; }

private:
    Descriptor folder_;
    Outcome outcome_;
};

} // namespace vanoka
