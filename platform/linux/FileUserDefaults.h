#pragma once

#include "AtomicFile.h"
#include "FolderLock.h"
#include "settings/UserDefaults.h"

#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

namespace vanoka {

/// User defaults as files: one file for each name, readable by its owner only, in a folder that is made when
/// it is needed. A value is written beside the file, forced to the disk and then put in its place, so that a
/// reader, or a crash at any instant, finds either the old value or the new one.
///
/// A value that cannot be stored (a full disk, a read-only home) stays in force in this process until it can
/// be or until somebody else changes the file; what the file held before stays in it. One that is in its
/// place and whose name could not be forced to the disk is stored, and `condition` tells that it may not
/// last.
///
/// While a file is there and cannot be read, the value last read or written counts. One that this object
/// could never read is not written over: nobody has seen what would be lost. An edit stays in force in this
/// process. Only storing nothing sets it aside, so that there is always a way out.
///
/// Edits of several programs are kept apart by a lock on the folder. One that is not to be had for long,
/// because its holder is suspended, is like a disk that is full.
class FileUserDefaults final : public UserDefaults {
public:
    /// How long an edit waits for others. An edit takes milliseconds, on a busy disk a second or two.
    static constexpr std::chrono::milliseconds longestWait{5000};

    /// Values in `folder`; an empty path stores nothing on disk.
    explicit FileUserDefaults(std::filesystem::path folder, std::chrono::milliseconds patience = longestWait);

    /// The defaults of the user who runs this process, in "vanoka" in the user's configuration folder.
    static FileUserDefaults& standard();

    /// `Folders::ofSettings`.
    static std::filesystem::path standardFolder();

    std::optional<std::string> data(std::string_view name) override;
    void setData(std::string_view name, const std::optional<std::string>& value) override;
    Lock lock(std::string_view name) override;
    void setAside(std::string_view name) override;
    Condition condition(std::string_view name) const override;

    /// Where the value of `name` is kept.
    std::filesystem::path pathOf(std::string_view name) const;

private:
    struct Unsaved {
        std::optional<std::string> value;
        AtomicFile::Contents stored; ///< what the file held when it could not be written
        std::string reason;          ///< why it could not be
    };

    std::shared_ptr<FolderLock> lockWithin(std::chrono::milliseconds patience);
    AtomicFile::Contents read(std::string_view name) const;
    std::string store(std::string_view name, const std::optional<std::string>& value);
    std::optional<std::string> given(std::string_view name, const AtomicFile::Contents& contents);
    AtomicFile::Contents& seen(std::string_view name, const AtomicFile::Contents& contents);

    std::filesystem::path folder_;
    std::chrono::milliseconds patience_;
    std::weak_ptr<FolderLock> lock_;                                ///< while an edit is made
    std::map<std::string, AtomicFile::Contents, std::less<>> last_; ///< as handed out or written
    std::map<std::string, Unsaved, std::less<>> unsaved_;
    std::map<std::string, std::error_code, std::less<>> unforced_; ///< why what was written may be gone
    std::set<std::string, std::less<>> toSetAside_;            ///< names whose file must not be written over
    std::map<std::string, std::string, std::less<>> setAside_; ///< the files that were
};

} // namespace vanoka
