#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace vanoka {

/// Notices that the file at a path has been replaced, written, made or removed.
///
/// It asks the file system when it is asked, which takes about a microsecond. A notification would come some
/// time after the change, and so might come after the next key.
class FileWatch {
public:
    /// What stands at `path` now counts as seen.
    explicit FileWatch(std::filesystem::path path);

    /// True when the file is not the one that was there at the last call.
    bool hasChanged();

private:
    struct Stamp {
        std::uint64_t device, file;
        std::int64_t size, written, writtenNanoseconds, changed, changedNanoseconds;
        friend bool operator==(const Stamp&, const Stamp&) = default;
    };

    std::optional<Stamp> stamp() const;

    std::filesystem::path path_;
    std::optional<Stamp> seen_;
};

} // namespace vanoka
