#pragma once

#include "Descriptor.h"

#include <filesystem>

namespace vanoka {

/// Notices that something in a folder was written, made or removed, by whomever.
///
/// The system notes it as it happens, and this object looks at the notes when it is asked, which takes less
/// than a microsecond: nobody is woken meanwhile. A time of writing, as `FileWatch` compares, would be the
/// same for two changes within a few milliseconds.
class FolderWatch {
public:
    explicit FolderWatch(std::filesystem::path folder);

    /// True when anything has changed since the last call, and as long as the folder cannot be watched.
    bool hasChanged();

private:
    void watch();

    std::filesystem::path folder_;
    Descriptor notes_;
    int watched_ = -1; ///< what the notes are about; -1 while there is no folder to watch
};

} // namespace vanoka
