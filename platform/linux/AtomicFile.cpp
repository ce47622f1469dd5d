#include "AtomicFile.h"

#include "Descriptor.h"
#include "LastError.h"
#include "Owner.h"
#include "UnfinishedFile.h"

#include <cstdint>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vanoka::AtomicFile {

namespace {

namespace fs = std::filesystem;

/// The same, when that there is no such file is no error.
std::error_code lastErrorUnlessAbsent() {
    return errno == ENOENT || errno == ENOTDIR ? std::error_code() : lastError();
}

constexpr int mostLinks = 40; // in a row, as the system counts them

bool leadsOn(const fs::path& path) {
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode) && isTrustedOwner(status.st_uid);
}

/// "name.kept", or the first of "name.kept-2" and so on that nothing has.
fs::path freeNameBeside(const fs::path& path) {
    const std::string kept = path.string() + ".kept";
    fs::path candidate = kept;
    std::error_code ignored;
    for (int number = 2; fs::exists(fs::symlink_status(candidate, ignored)); ++number)
        candidate = kept + "-" + std::to_string(number);
    return candidate;
}

} // namespace

std::error_code forceNamesBeside(const fs::path& file) {
    const Descriptor folder(::open(file.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen() && (::fsync(folder.number()) == 0 || errno == EINVAL || errno == ENOTSUP))
        return {};
    return lastErrorUnlessAbsent();
}

std::error_code makeFolder(const fs::path& folder) {
    if (folder.empty() || ::access(folder.c_str(), F_OK) == 0)
        return {};
    if (const auto error = makeFolder(folder.parent_path()))
        return error;
    if (::mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
        return lastError();
    const std::error_code unforced = forceNamesBeside(folder);
    if (unforced)
        ::rmdir(folder.c_str()); // which fails, and rightly, when others have put something into it
    return unforced;
}

Contents read(const fs::path& path, std::size_t most) {
    // Not to hang where somebody has put a pipe.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen())
        return {.bytes = {}, .error = lastErrorUnlessAbsent()};
    struct stat status = {};
    if (::fstat(file.number(), &status) != 0)
        return {.bytes = {}, .error = lastError()};
    if (!S_ISREG(status.st_mode))
        return {.bytes = {},
                .error = std::make_error_code(S_ISDIR(status.st_mode) ? std::errc::is_a_directory
                                                                      : std::errc::invalid_argument)};
    if (static_cast<std::uintmax_t>(status.st_size) > most)
        return {.bytes = {}, .error = std::make_error_code(std::errc::file_too_large)};
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t size = 0;
    while (size < bytes.size()) {
        const ssize_t count = ::read(file.number(), bytes.data() + size, bytes.size() - size);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return {.bytes = {}, .error = lastError()};
        if (count == 0)
            break;
        size += static_cast<std::size_t>(count);
    }
    bytes.resize(size);
    return {.bytes = std::move(bytes), .error = {}};
}

fs::path resolved(const fs::path& path) {
    fs::path target = path;
    for (int links = 0; links < mostLinks; ++links) {
        if (!leadsOn(target))
            return target;
        std::error_code error;
        const fs::path next = fs::read_symlink(target, error);
        if (error)
            return target;
        target = target.parent_path() / next; // an absolute one stands for itself
    }
    return path;
}

Outcome write(const fs::path& path, std::string_view bytes) {
    const fs::path target = resolved(path);
    if (const auto error = makeFolder(target.parent_path()))
        return {.error = error, .unforced = {}};
    UnfinishedFile::removeAbandoned(target);
    UnfinishedFile file(target);
    if (const auto error = file.finish(bytes))
        return {.error = error, .unforced = {}};
    return {.error = {}, .unforced = forceNamesBeside(target)};
}

Outcome remove(const fs::path& path) {
    const fs::path target = resolved(path);
    UnfinishedFile::removeAbandoned(target);
    const auto error = ::unlink(target.c_str()) == 0 ? std::error_code() : lastErrorUnlessAbsent();
    return {.error = error, .unforced = error ? std::error_code() : forceNamesBeside(target)};
}

NewPlace setAside(const fs::path& path) {
    const fs::path target = resolved(path);
    const fs::path aside = freeNameBeside(target);
    if (::rename(target.c_str(), aside.c_str()) != 0)
        return {.path = {}, .error = lastErrorUnlessAbsent()};
    return {.path = aside, .error = {}};
}

} // namespace vanoka::AtomicFile
