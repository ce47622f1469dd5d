// Laid over a program with LD_PRELOAD, this makes one call of the system fail, or kills the program there,
// and writes down what the program asked of the system. From the environment:
//
//     VANOKA_FAULT_LOG    the file to write it to: a line for each call, its fields with tabs between
//     VANOKA_FAULT_AT     the number of the call that goes wrong, from 1; none without it
//     VANOKA_FAULT        how: the number of an error; "kill", before the call; "short", half of the bytes;
//                         "torn", half of the bytes and then a kill
//     VANOKA_FAULT_CALLS  the names of the calls that count, with commas between; all without it
//     VANOKA_FAULT_FROM   what the first call that counts is about, or a part of that; any without it
//     VANOKA_FAULT_THREAD what the first call is of the one thread whose calls count: its name, a tab, and
//                         what it is about
//     VANOKA_FAULT_MEMORY counts and fails what asks for memory instead
//
// A line of the log: number, thread, name, result, what it was about; bytes in hexadecimal.
//
// Not seen: what the C library asks by itself, such as the reads and writes of its streams and getrandom, and
// whatever a program asks without that library. Of fcntl only locks count, of mmap only files; and no reads
// and writes by which a program's threads and its own timers wake it, which cannot fail, nor those of
// sockets, which are as many as messages happen to come one by one.
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

struct Plan {
    long at = 0;
    long error = 0;
    bool kills = false, halves = false, isOfMemory = false;
    int log = -1;
    std::string counted; // names with commas before and after; empty for all
    std::string from, thread;
};

const char* setting(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

int openLog(const char* path) {
    if (*path == '\0')
        return -1;
    const auto opened = syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    constexpr int outOfTheWay = 500; // of the numbers that the program would get without this
    const auto moved = static_cast<int>(syscall(SYS_fcntl, opened, F_DUPFD_CLOEXEC, outOfTheWay));
    syscall(SYS_close, opened);
    return moved;
}

const Plan& plan() {
    static const Plan asked = [] {
        const std::string_view how = setting("VANOKA_FAULT");
        return Plan{.at = std::atol(setting("VANOKA_FAULT_AT")),
                    .error = std::atol(setting("VANOKA_FAULT")),
                    .kills = how == "kill" || how == "torn",
                    .halves = how == "short" || how == "torn",
                    .isOfMemory = *setting("VANOKA_FAULT_MEMORY") != '\0',
                    .log = openLog(setting("VANOKA_FAULT_LOG")),
                    .counted = *setting("VANOKA_FAULT_CALLS") == '\0'
                                   ? std::string()
                                   : ',' + std::string(setting("VANOKA_FAULT_CALLS")) + ',',
                    .from = setting("VANOKA_FAULT_FROM"),
                    .thread = setting("VANOKA_FAULT_THREAD")};
    }();
    return asked;
}

std::atomic<long> calls = 0, callsOfChosen = 0;
std::atomic<bool> isReady = false; // the plan is read when the program's own libraries are there
__attribute__((constructor)) void getReady() {
    plan();
    isReady = true;
}

void die() {
    syscall(SYS_kill, getpid(), SIGKILL);
}

/// Whether the call that begins now is the one that goes wrong; its number.
struct Turn {
    long number;
    bool isWrong;
};

bool counts(const char* name, std::string_view about) {
    const std::string& counted = plan().counted;
    if (!counted.empty() && counted.find(',' + std::string(name) + ',') == std::string::npos)
        return false;
    return calls > 0 || about.find(plan().from) != std::string_view::npos;
}

/// Whether this thread's calls, of which this is the next, are those among which one goes wrong.
bool isChosen(const char* name, std::string_view about) {
    enum class Thread : char { unknown, chosen, other };
    static thread_local Thread own = Thread::unknown;
    if (own == Thread::unknown)
        own = plan().thread.empty() || plan().thread == std::string(name) + '\t' + std::string(about)
                  ? Thread::chosen
                  : Thread::other;
    return own == Thread::chosen;
}

Turn nextTurn(const char* name, std::string_view about) {
    if (!isReady || plan().isOfMemory || !counts(name, about))
        return {0, false};
    const long number = ++calls;
    const bool isWrong = isChosen(name, about) && ++callsOfChosen == plan().at;
    if (isWrong && plan().kills && !plan().halves)
        die();
    return {number, isWrong};
}

/// One line by one call, so that those of two threads do not mix.
void note(long number, const char* name, long result, std::string about) {
    if (!isReady || plan().log < 0 || number == 0)
        return;
    const int error = errno;
    std::replace(about.begin(), about.end(), '\n', ' ');
    const std::string line = std::to_string(number) + '\t' + std::to_string(syscall(SYS_gettid)) + '\t' +
                             name + '\t' + std::to_string(result) + '\t' + about + '\n';
    syscall(SYS_write, plan().log, line.data(), line.size());
    errno = error;
}

template <class Function>
Function* real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Does what `call` does, unless it is to fail.
template <class Result, class Call>
Result attempt(const char* name, Result failure, const std::string& about, Call call) {
    const Turn turn = nextTurn(name, about);
    Result result = failure;
    if (turn.isWrong && !plan().halves)
        errno = static_cast<int>(plan().error);
    else
        result = call();
    long shown = 0;
    if constexpr (std::is_pointer_v<Result>)
        shown = result == failure ? -1 : 0;
    else
        shown = static_cast<long>(result);
    note(turn.number, name, shown, about);
    return result;
}

std::string hexadecimal(const void* bytes, long size) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (long i = 0; i < size; ++i) {
        const auto byte = static_cast<const unsigned char*>(bytes)[i];
        text += {digits[byte >> 4U], digits[byte & 0xFU]};
    }
    return text;
}

std::string text(int number) {
    return std::to_string(number);
}

std::string pathOf(int file) {
    std::string path(4096, '\0');
    const auto size =
        syscall(SYS_readlink, ("/proc/self/fd/" + std::to_string(file)).c_str(), path.data(), path.size());
    path.resize(static_cast<std::size_t>(std::max(0L, size)));
    return path;
}

bool isNoFile(int file) {
    const std::string path = pathOf(file);
    const bool isWithin = path.starts_with("pipe:") && file > STDERR_FILENO;
    return path == "anon_inode:[eventfd]" || path == "anon_inode:[timerfd]" || path.starts_with("socket:") ||
           isWithin;
}

/// Reading and writing, which may also stop half way.
template <class Call>
ssize_t transfer(const char* name, int file, const std::string& about, const void* written, std::size_t size,
                 Call call) {
    if (isNoFile(file))
        return call(size);
    const Turn turn = nextTurn(name, about);
    const bool isHalved = turn.isWrong && plan().halves;
    ssize_t result = -1;
    if (turn.isWrong && !plan().halves)
        errno = static_cast<int>(plan().error);
    else
        result = call(isHalved ? (size + 1) / 2 : size);
    if (isHalved && plan().kills)
        die();
    note(turn.number, name, result, about + '\t' + (written ? hexadecimal(written, result) : ""));
    return result;
}

std::string at(int folder, const char* path) {
    return folder == AT_FDCWD || *path == '/' ? path : pathOf(folder) + '/' + path;
}

int openAt(const char* name, int folder, const char* path, int flags, mode_t mode) {
    return attempt(name, -1, at(folder, path) + '\t' + text(flags),
                   [=] { return static_cast<int>(syscall(SYS_openat, folder, path, flags, mode)); });
}

mode_t modeIn(int flags, std::va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

ssize_t readFrom(const char* name, int file, void* bytes, std::size_t size) {
    return transfer(name, file, text(file), nullptr, size,
                    [=](std::size_t count) { return syscall(SYS_read, file, bytes, count); });
}

ssize_t readAt(int file, void* bytes, std::size_t size, off_t offset) {
    return transfer("pread", file, text(file), nullptr, size,
                    [=](std::size_t count) { return syscall(SYS_pread64, file, bytes, count, offset); });
}

ssize_t writeAt(int file, const void* bytes, std::size_t size, off_t offset) {
    return transfer("pwrite", file, text(file) + '\t' + std::to_string(offset), bytes, size,
                    [=](std::size_t count) { return syscall(SYS_pwrite64, file, bytes, count, offset); });
}

/// Locks alone: everything else that it does cannot fail.
template <class Argument>
int control(int file, int command, Argument argument) {
    const auto call = [=] { return static_cast<int>(syscall(SYS_fcntl, file, command, argument)); };
    const bool locks = command == F_SETLK || command == F_SETLKW || command == F_OFD_SETLK;
    return locks ? attempt("fcntl", -1, text(file), call) : call();
}

int cut(int file, off_t size) {
    return attempt("ftruncate", -1, text(file) + '\t' + std::to_string(size),
                   [=] { return static_cast<int>(syscall(SYS_ftruncate, file, size)); });
}

void* map(void* place, std::size_t size, int protection, int flags, int file, off_t offset) {
    const auto call = [=] {
        return reinterpret_cast<void*>(syscall(SYS_mmap, place, size, protection, flags, file, offset));
    };
    const std::string path = pathOf(file);
    const bool isMemory = file < 0 || path.starts_with("/memfd:"); // whose lack is malloc's
    return isMemory ? call() : attempt("mmap", MAP_FAILED, path, call);
}

template <class Buffer>
int look(const char* name, int folder, const char* path, Buffer* status, int flags) {
    return attempt(name, -1, *path == '\0' ? text(folder) : at(folder, path),
                   [=] { return static_cast<int>(syscall(SYS_newfstatat, folder, path, status, flags)); });
}

template <class Ask>
void* memory(Ask ask) {
    if (isReady && plan().isOfMemory && ++calls == plan().at) {
        constexpr std::string_view line = "0\t0\tmalloc\t-1\t\n";
        syscall(SYS_write, plan().log, line.data(), line.size());
        errno = ENOMEM;
        return nullptr;
    }
    return ask();
}

} // namespace

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size) {
    return memory([=] { return __libc_malloc(size); });
}
void* calloc(std::size_t count, std::size_t size) {
    return memory([=] { return __libc_calloc(count, size); });
}
void* realloc(void* block, std::size_t size) {
    return memory([=] { return __libc_realloc(block, size); });
}

int open(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return openAt("open", AT_FDCWD, path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return openAt("open", folder, path, flags, mode);
}
int __open_2(const char* path, int flags) {
    return openAt("open", AT_FDCWD, path, flags, 0);
}
int __open64_2(const char* path, int flags) {
    return openAt("open", AT_FDCWD, path, flags, 0);
}
FILE* fopen(const char* path, const char* mode) {
    return attempt<FILE*>("fopen", nullptr, path, [=] { return real<decltype(fopen)>("fopen")(path, mode); });
}
FILE* fopen64(const char* path, const char* mode) {
    return attempt<FILE*>("fopen", nullptr, path,
                          [=] { return real<decltype(fopen)>("fopen64")(path, mode); });
}
int mkostemp(char* path, int flags) {
    const Turn turn = nextTurn("mkostemp", path);
    int result = -1;
    if (turn.isWrong && !plan().halves)
        errno = static_cast<int>(plan().error);
    else
        result = real<decltype(mkostemp)>("mkostemp")(path, flags);
    note(turn.number, "mkostemp", result, path); // the name that it got
    return result;
}
DIR* opendir(const char* path) {
    return attempt<DIR*>("opendir", nullptr, path, [=] { return real<decltype(opendir)>("opendir")(path); });
}
dirent* readdir(DIR* folder) {
    return attempt<dirent*>("readdir", nullptr, pathOf(dirfd(folder)),
                            [=] { return real<decltype(readdir)>("readdir")(folder); });
}

ssize_t read(int file, void* bytes, std::size_t size) {
    return readFrom("read", file, bytes, size);
}
ssize_t __read_chk(int file, void* bytes, std::size_t size, std::size_t) {
    return readFrom("read", file, bytes, size);
}
ssize_t pread(int file, void* bytes, std::size_t size, off_t offset) {
    return readAt(file, bytes, size, offset);
}
ssize_t __pread64_chk(int file, void* bytes, std::size_t size, off_t offset, std::size_t) {
    return readAt(file, bytes, size, offset);
}
ssize_t write(int file, const void* bytes, std::size_t size) {
    return transfer("write", file, text(file), bytes, size,
                    [=](std::size_t count) { return syscall(SYS_write, file, bytes, count); });
}
ssize_t writev(int file, const iovec* parts, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all.append(static_cast<const char*>(parts[i].iov_base), parts[i].iov_len);
    return write(file, all.data(), all.size());
}
ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t offset) {
    return writeAt(file, bytes, size, offset);
}
off_t lseek(int file, off_t offset, int from) {
    return attempt("lseek", off_t(-1), text(file), [=] { return syscall(SYS_lseek, file, offset, from); });
}
int close(int file) {
    const int result =
        attempt("close", -1, text(file), [=] { return static_cast<int>(syscall(SYS_close, file)); });
    if (result != 0)
        syscall(SYS_close, file); // it is closed even when that fails
    return result;
}

int fsync(int file) {
    return attempt("fsync", -1, text(file), [=] { return static_cast<int>(syscall(SYS_fsync, file)); });
}
int fdatasync(int file) {
    return attempt("fdatasync", -1, text(file),
                   [=] { return static_cast<int>(syscall(SYS_fdatasync, file)); });
}
int ftruncate(int file, off_t size) {
    return cut(file, size);
}
void* mmap(void* place, std::size_t size, int protection, int flags, int file, off_t offset) {
    return map(place, size, protection, flags, file, offset);
}
int flock(int file, int operation) {
    return attempt("flock", -1, text(file),
                   [=] { return static_cast<int>(syscall(SYS_flock, file, operation)); });
}
int fcntl(int file, int command, ...) {
    std::va_list arguments;
    va_start(arguments, command);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    return control(file, command, argument);
}

int rename(const char* from, const char* to) {
    return attempt("rename", -1, std::string(from) + '\t' + to,
                   [=] { return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0)); });
}
int link(const char* from, const char* to) {
    return attempt("link", -1, std::string(from) + '\t' + to,
                   [=] { return static_cast<int>(syscall(SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0)); });
}
int unlink(const char* path) {
    return attempt("unlink", -1, path,
                   [=] { return static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, 0)); });
}
int remove(const char* path) {
    return attempt("unlink", -1, path, [=] { return real<decltype(remove)>("remove")(path); });
}
int mkdir(const char* path, mode_t mode) {
    return attempt("mkdir", -1, path,
                   [=] { return static_cast<int>(syscall(SYS_mkdirat, AT_FDCWD, path, mode)); });
}
int mknod(const char* path, mode_t mode, dev_t device) {
    return attempt("mknod", -1, path,
                   [=] { return static_cast<int>(syscall(SYS_mknodat, AT_FDCWD, path, mode, device)); });
}
int chmod(const char* path, mode_t mode) {
    return attempt("chmod", -1, path,
                   [=] { return static_cast<int>(syscall(SYS_fchmodat, AT_FDCWD, path, mode)); });
}
int fchmod(int file, mode_t mode) {
    return attempt("fchmod", -1, text(file),
                   [=] { return static_cast<int>(syscall(SYS_fchmod, file, mode)); });
}
int fchown(int file, uid_t user, gid_t group) {
    return attempt("fchown", -1, text(file),
                   [=] { return static_cast<int>(syscall(SYS_fchown, file, user, group)); });
}
int access(const char* path, int mode) {
    return attempt("access", -1, path,
                   [=] { return static_cast<int>(syscall(SYS_faccessat, AT_FDCWD, path, mode)); });
}
ssize_t readlink(const char* path, char* target, std::size_t size) {
    return attempt("readlink", ssize_t(-1), path, [=] {
        return static_cast<ssize_t>(syscall(SYS_readlinkat, AT_FDCWD, path, target, size));
    });
}
ssize_t __readlink_chk(const char* path, char* target, std::size_t size, std::size_t) {
    return readlink(path, target, size);
}
int stat(const char* path, struct stat* status) {
    return look("stat", AT_FDCWD, path, status, 0);
}
int stat64(const char* path, struct stat64* status) {
    return look("stat", AT_FDCWD, path, status, 0);
}
int lstat(const char* path, struct stat* status) {
    return look("stat", AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}
int lstat64(const char* path, struct stat64* status) {
    return look("stat", AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}
int fstat(int file, struct stat* status) {
    return look("stat", file, "", status, AT_EMPTY_PATH);
}
int fstat64(int file, struct stat64* status) {
    return look("stat", file, "", status, AT_EMPTY_PATH);
}

// Offsets have one size here, so that the calls with two names are one each.
int open64(const char* path, int flags, ...) __attribute__((alias("open")));
dirent64* readdir64(DIR* folder) __attribute__((alias("readdir")));
int openat64(int folder, const char* path, int flags, ...) __attribute__((alias("openat")));
int fcntl64(int file, int command, ...) __attribute__((alias("fcntl")));
int mkostemp64(char* path, int flags) __attribute__((alias("mkostemp")));
ssize_t pread64(int file, void* bytes, std::size_t size, off_t offset) __attribute__((alias("pread")));
ssize_t pwrite64(int file, const void* bytes, std::size_t size, off_t offset)
    __attribute__((alias("pwrite")));
off_t lseek64(int file, off_t offset, int from) noexcept __attribute__((alias("lseek")));
int ftruncate64(int file, off_t size) noexcept __attribute__((alias("ftruncate")));
void* mmap64(void* place, std::size_t size, int protection, int flags, int file, off_t offset) noexcept
    __attribute__((alias("mmap")));

} // extern "C"
