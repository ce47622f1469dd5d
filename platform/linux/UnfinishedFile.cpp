#include "UnfinishedFile.h"

#include "LastError.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

// Nobody gives a file of their own such a name.
constexpr std::string_view mark = ".unfinished-";
constexpr std::string_view placeholder = "XXXXXX"; // for the system to fill in

bool isUnfinished(const fs::path& candidate, const fs::path& target) {
    const std::string start = target.filename().string() + std::string(mark);
    const std::string name = candidate.filename().string();
    return name.starts_with(start) && name.size() == start.size() + placeholder.size();
}

bool hasName(int file) {
    struct stat status = {};
    return ::fstat(file, &status) == 0 && status.st_nlink > 0;
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

void UnfinishedFile::removeAbandoned(const fs::path& target) {
    std::error_code ignored;
    for (fs::directory_iterator entry(target.parent_path(), ignored), end; entry != end;
         entry.increment(ignored)) {
        if (!isUnfinished(entry->path(), target))
            continue;
        const Descriptor file(::open(entry->path().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        if (file.isOpen() && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0)
            ::unlink(entry->path().c_str());
    }
}

UnfinishedFile::UnfinishedFile(fs::path target) : target_(std::move(target)) {
    while (!make()) {
    }
}

UnfinishedFile::~UnfinishedFile() {
    if (!path_.empty())
        ::unlink(path_.c_str());
}

/// False when another writer has taken the file for an abandoned one, before it was locked.
bool UnfinishedFile::make() {
    path_ = target_.string().append(mark).append(placeholder);
    file_ = Descriptor(::mkostemp(path_.data(), O_CLOEXEC));
    if (!file_.isOpen()) {
        error_ = lastError();
        path_.clear();
        return true;
    }
    ::flock(file_.number(), LOCK_EX); // where files cannot be locked, nobody removes any
    return hasName(file_.number());
}

std::error_code UnfinishedFile::finish(std::string_view bytes) {
    if (error_)
        return error_;
    // It stays locked until it has its name. What only closing would tell, forcing to the disk has told.
    if (!writeAll(file_.number(), bytes) || ::fsync(file_.number()) != 0 ||
        ::rename(path_.c_str(), target_.c_str()) != 0)
        return lastError();
    path_.clear();
    return {};
}

} // namespace vanoka
