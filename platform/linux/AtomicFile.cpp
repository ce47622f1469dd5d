#include "AtomicFile.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vanoka::AtomicFile {

namespace {

namespace fs = std::filesystem;

constexpr off_t largestFile = 16 * 1024 * 1024; // in bytes

std::error_code lastError() {
    return {errno, std::generic_category()};
}

/// The same, when that there is no such file is no error.
std::error_code lastErrorUnlessAbsent() {
    return errno == ENOENT || errno == ENOTDIR ? std::error_code() : lastError();
}

/// A descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int number) noexcept : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (isOpen())
            ::close(number_);
    }

    bool isOpen() const noexcept { return number_ >= 0; }
    int number() const noexcept { return number_; }

    /// Closes now, to hear of an error that only closing tells.
    bool close() noexcept {
        const bool closed = ::close(number_) == 0;
        number_ = -1;
        return closed;
    }

private:
    int number_;
};

constexpr int mostLinks = 40; // in a row, as the system counts them

/// The file behind a symbolic link, there or not yet: a settings file may be linked from elsewhere, and shall
/// stay so. Links that lead nowhere because they lead in a circle are files like others.
fs::path resolved(const fs::path& path) {
    fs::path target = path;
    for (int links = 0; links < mostLinks; ++links) {
        std::error_code error;
        const fs::path next = fs::read_symlink(target, error);
        if (error)
            return target;
        target = target.parent_path() / next; // an absolute one stands for itself
    }
    return path;
}

/// Makes the folder and those above it, for their owner only.
std::error_code makeFolders(const fs::path& folder) {
    if (folder.empty() || ::access(folder.c_str(), F_OK) == 0)
        return {};
    if (const auto error = makeFolders(folder.parent_path()))
        return error;
    if (::mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
        return lastError();
    return {};
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Makes a renaming or removal in the folder last. Not every file system can: no error.
void syncFolder(const fs::path& folder) {
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen())
        ::fsync(descriptor.number());
}

} // namespace

Contents read(const fs::path& path) {
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
    if (status.st_size > largestFile)
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

std::error_code write(const fs::path& path, std::string_view bytes) {
    const fs::path target = resolved(path);
    if (const auto error = makeFolders(target.parent_path()))
        return error;
    std::string temporary = target.string() + ".XXXXXX";
    Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC)); // readable by its owner only
    if (!file.isOpen())
        return lastError();
    const bool stored = writeAll(file.number(), bytes) && ::fsync(file.number()) == 0 && file.close() &&
                        ::rename(temporary.c_str(), target.c_str()) == 0;
    if (!stored) {
        const std::error_code error = lastError();
        ::unlink(temporary.c_str());
        return error;
    }
    syncFolder(target.parent_path());
    return {};
}

std::error_code remove(const fs::path& path) {
    const fs::path target = resolved(path);
    if (::unlink(target.c_str()) != 0)
        return lastErrorUnlessAbsent();
    syncFolder(target.parent_path());
    return {};
}

} // namespace vanoka::AtomicFile
