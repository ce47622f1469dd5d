#include "FolderWatch.h"

#include <array>
#include <cstring>
#include <string_view>
#include <sys/inotify.h>
#include <utility>

namespace vanoka {

namespace {

constexpr std::uint32_t changes = IN_MODIFY | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                  IN_MOVE_SELF | IN_DELETE_SELF | IN_ONLYDIR;

/// True when the notes tell that the folder itself has gone from its place. Some may be about an earlier one.
bool tellThatFolderWent(std::string_view notes, int watched) {
    while (!notes.empty()) {
        inotify_event note = {};
        std::memcpy(&note, notes.data(), sizeof note);
        if (note.wd == watched && (note.mask & (IN_MOVE_SELF | IN_DELETE_SELF | IN_IGNORED)) != 0)
            return true;
        notes.remove_prefix(sizeof note + note.len);
    }
    return false;
}

} // namespace

FolderWatch::FolderWatch(std::filesystem::path folder)
    : folder_(std::move(folder)), notes_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    watch();
}

void FolderWatch::watch() {
    watched_ = notes_.isOpen() ? ::inotify_add_watch(notes_.number(), folder_.c_str(), changes) : -1;
}

bool FolderWatch::hasChanged() {
    if (watched_ < 0) {
        watch();
        return true;
    }
    bool has = false, went = false;
    std::array<char, 4096> notes = {};
    for (;;) {
        const ssize_t size = ::read(notes_.number(), notes.data(), notes.size());
        if (size <= 0)
            break;
        has = true;
        went = went || tellThatFolderWent({notes.data(), static_cast<std::size_t>(size)}, watched_);
    }
    if (went) {
        ::inotify_rm_watch(notes_.number(), watched_);
        watched_ = -1;
    }
    return has;
}

} // namespace vanoka
