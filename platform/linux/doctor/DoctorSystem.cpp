#include "DoctorCompositor.h"

#include "AtomicFile.h"
#include "StoredKeys.h"
#include "WordDatabase.h"
#include "WordListFiles.h"
#include "WordMessages.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <glob.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vanoka {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds longestWait{5};             // for a command's output
constexpr std::size_t largestLibrary = 64UL * 1024 * 1024; // in bytes

std::string valueOf(std::string_view name) {
    const char* value = std::getenv(std::string(name).c_str());
    return value ? value : "";
}

std::vector<std::string> filesLike(const std::string& pattern) {
    glob_t found{};
    std::vector<std::string> files;
    if (::glob(pattern.c_str(), GLOB_NOSORT, nullptr, &found) == 0)
        files.assign(found.gl_pathv, found.gl_pathv + found.gl_pathc);
    ::globfree(&found);
    return files;
}

bool isFileThere(const std::string& pattern) {
    return !filesLike(pattern).empty();
}

bool doesFileHold(const std::string& pattern, std::string_view text) {
    return std::ranges::any_of(filesLike(pattern), [text](const std::string& path) {
        const auto bytes = AtomicFile::read(path, largestLibrary).bytes;
        return bytes && bytes->find(text) != std::string::npos;
    });
}

[[noreturn]] void become(const std::vector<std::string>& command, int output) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const int nothing = ::open("/dev/null", O_RDWR);
    ::dup2(nothing, STDIN_FILENO);
    ::dup2(nothing, STDERR_FILENO);
    ::dup2(output, STDOUT_FILENO);
    ::execvp(arguments[0], arguments.data());
    ::_exit(127);
}

/// All that comes until the end; false when that takes too long.
bool readAll(int input, std::string& bytes) {
    const auto end = Clock::now() + longestWait;
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd ready{input, POLLIN, 0};
        if (left <= 0 || ::poll(&ready, 1, static_cast<int>(left)) <= 0)
            return false;
        char buffer[4096];
        const ssize_t count = ::read(input, buffer, sizeof buffer);
        if (count <= 0)
            return count == 0;
        bytes.append(buffer, static_cast<std::size_t>(count));
    }
}

std::optional<std::string> outputOf(const std::vector<std::string>& command) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return std::nullopt;
    const pid_t process = ::fork();
    if (process == 0)
        become(command, ends[1]);
    ::close(ends[1]);
    std::string bytes;
    const bool isWhole = process > 0 && readAll(ends[0], bytes);
    ::close(ends[0]);
    if (process <= 0)
        return std::nullopt;
    if (!isWhole)
        ::kill(process, SIGKILL);
    int status = 0;
    ::waitpid(process, &status, 0);
    const bool isGood = isWhole && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return isGood ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace

DoctorSystem DoctorSystem::real(const SinglishSettings& settings) {
    return {valueOf,
            isFileThere,
            doesFileHold,
            askCompositor,
            outputOf,
            [&settings] { return StoredKeys::readingProblem(settings); },
            [] { return WordMessages::problemsOf(WordDatabase::standardPath()); },
            [] { return WordListFiles::read().problems; }};
}

} // namespace vanoka
