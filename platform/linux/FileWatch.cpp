#include "FileWatch.h"

#include <sys/stat.h>
#include <utility>

namespace vanoka {

FileWatch::FileWatch(std::filesystem::path path) : path_(std::move(path)), seen_(stamp()) {}

bool FileWatch::hasChanged() {
    const auto now = stamp();
    return std::exchange(seen_, now) != now;
}

std::optional<FileWatch::Stamp> FileWatch::stamp() const {
    struct stat status{};
    if (::stat(path_.c_str(), &status) != 0)
        return std::nullopt;
    return Stamp{status.st_dev,          status.st_ino,         status.st_size,        status.st_mtim.tv_sec,
                 status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

} // namespace vanoka
