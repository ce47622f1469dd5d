#include "FolderLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace vanoka {

namespace {

using Clock = std::chrono::steady_clock;
using Outcome = FolderLock::Outcome;

constexpr std::chrono::milliseconds pause{1}; // between two attempts; an edit takes a few

Outcome attempt(int folder) {
    if (::flock(folder, LOCK_EX | LOCK_NB) == 0)
        return Outcome::taken;
    return errno == EWOULDBLOCK || errno == EINTR ? Outcome::busy : Outcome::unavailable;
}

/// Asks again and again: a wait by the system itself would have no end while a holder is suspended.
Outcome take(int folder, std::chrono::milliseconds patience) {
    const auto end = Clock::now() + patience;
    Outcome outcome = attempt(folder);
    while (outcome == Outcome::busy && Clock::now() < end) {
        std::this_thread::sleep_for(pause);
        outcome = attempt(folder);
    }
    return outcome;
}

} // namespace

FolderLock::FolderLock(const std::filesystem::path& folder, std::chrono::milliseconds patience)
    : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
      outcome_(folder_.isOpen() ? take(folder_.number(), patience) : Outcome::unavailable) {}

} // namespace vanoka
