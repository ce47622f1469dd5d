#include "FileUserDefaults.h"

#include "Folders.h"

namespace vanoka {

namespace {

namespace fs = std::filesystem;

/// Names are dotted words; anything that would leave the folder is spelled in hexadecimal.
std::string fileName(std::string_view name) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (const char character : name) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isLeadingDot = character == '.' && result.empty();
        if (character == '/' || character == '\0' || character == '%' || isLeadingDot)
            result.append({'%', digits[byte >> 4U], digits[byte & 0xFU]});
        else
            result += character;
    }
    return result;
}

bool isBusy(const std::shared_ptr<FolderLock>& lock) {
    return lock && lock->outcome() == FolderLock::Outcome::busy;
}

} // namespace

FileUserDefaults::FileUserDefaults(fs::path folder, std::chrono::milliseconds patience)
    : folder_(std::move(folder)), patience_(patience) {}

FileUserDefaults& FileUserDefaults::standard() {
    static FileUserDefaults defaults(standardFolder());
    return defaults;
}

UserDefaults& UserDefaults::standard() {
    return FileUserDefaults::standard();
}

fs::path FileUserDefaults::standardFolder() {
    return Folders::ofSettings();
}

fs::path FileUserDefaults::pathOf(std::string_view name) const {
    return folder_ / fileName(name);
}

std::optional<std::string> FileUserDefaults::data(std::string_view name) {
    const auto found = unsaved_.find(name);
    if (found == unsaved_.end())
        return given(name, read(name));
    const auto edit = lockWithin(std::chrono::milliseconds::zero());
    const auto contents = read(name);
    Unsaved& unsaved = found->second;
    if (contents.error || isBusy(edit))
        return unsaved.value;
    if (unsaved.stored.error) // it can be read at last
        unsaved.stored = contents;
    if (contents.bytes != unsaved.stored.bytes) { // somebody else has written since
        unsaved_.erase(found);
        return given(name, contents);
    }
    auto value = unsaved.value;
    setData(name, value);
    return value;
}

void FileUserDefaults::setData(std::string_view name, const std::optional<std::string>& value) {
    const auto contents = read(name);
    AtomicFile::Contents& last = seen(name, contents);
    if (!value && contents.error && last.error) { // who drops everything drops this, too
        setAside(name);
        last.error.clear();
    }
    std::string reason = last.error ? last.error.message() : store(name, value);
    if (!reason.empty()) {
        const auto left = read(name);
        unsaved_.insert_or_assign(std::string(name),
                                  Unsaved{value, left.error ? last : left, std::move(reason)});
        return;
    }
    last.bytes = value;
    if (const auto unsaved = unsaved_.find(name); unsaved != unsaved_.end())
        unsaved_.erase(unsaved);
}

UserDefaults::Lock FileUserDefaults::lock(std::string_view) {
    return lockWithin(patience_);
}

void FileUserDefaults::setAside(std::string_view name) {
    toSetAside_.emplace(name);
}

UserDefaults::Condition FileUserDefaults::condition(std::string_view name) const {
    Condition condition;
    if (!folder_.empty())
        condition.location = pathOf(name).string();
    if (const auto last = last_.find(name); last != last_.end() && last->second.error)
        condition.unreadable = last->second.error.message();
    if (const auto unsaved = unsaved_.find(name); unsaved != unsaved_.end())
        condition.unstored = unsaved->second.reason;
    if (const auto last = unforced_.find(name); last != unforced_.end() && last->second)
        condition.unforced = last->second.message();
    if (const auto moved = setAside_.find(name); moved != setAside_.end())
        condition.setAside = moved->second;
    return condition;
}

/// One lock for all names, as an edit takes no time to speak of. Within an edit it is the edit's.
std::shared_ptr<FolderLock> FileUserDefaults::lockWithin(std::chrono::milliseconds patience) {
    auto lock = lock_.lock();
    if (lock || folder_.empty())
        return lock;
    static_cast<void>(AtomicFile::makeFolder(folder_)); // why it cannot be made, storing tells
    lock = std::make_shared<FolderLock>(folder_, patience);
    lock_ = lock;
    return lock;
}

/// Hands out what was read, or what it was when that could not be done now.
std::optional<std::string> FileUserDefaults::given(std::string_view name,
                                                   const AtomicFile::Contents& contents) {
    if (const auto mark = toSetAside_.find(name); mark != toSetAside_.end())
        toSetAside_.erase(mark); // it was for what stood there before
    AtomicFile::Contents& last = seen(name, contents);
    if (!contents.error && contents.bytes != last.bytes)
        unforced_.erase(std::string(name)); // whoever has written since has forced this, too
    if (!contents.error)
        last = contents;
    return last.bytes;
}

/// What is known of the file's contents now that these have been read; an error when nobody knows what
/// writing over it would lose.
AtomicFile::Contents& FileUserDefaults::seen(std::string_view name, const AtomicFile::Contents& contents) {
    AtomicFile::Contents& last = last_.try_emplace(std::string(name), contents).first->second;
    if (contents.error && !last.bytes)
        last.error = contents.error;
    else if (!contents.error && !contents.bytes)
        last.error.clear();
    return last;
}

AtomicFile::Contents FileUserDefaults::read(std::string_view name) const {
    return folder_.empty() ? AtomicFile::Contents() : AtomicFile::read(pathOf(name), largestValue);
}

/// Puts the value into its file; the reason if that cannot be done.
std::string FileUserDefaults::store(std::string_view name, const std::optional<std::string>& value) {
    if (folder_.empty())
        return "there is no home folder";
    if (isBusy(lock_.lock()))
        return "another program is changing it and does not finish";
    if (value && value->size() > largestValue)
        return std::make_error_code(std::errc::file_too_large).message();
    if (const auto mark = toSetAside_.find(name); mark != toSetAside_.end()) {
        const auto moved = AtomicFile::setAside(pathOf(name));
        if (moved.error)
            return moved.error.message();
        setAside_.insert_or_assign(*mark, moved.path.string());
        toSetAside_.erase(mark);
    }
    const auto done = value ? AtomicFile::write(pathOf(name), *value) : AtomicFile::remove(pathOf(name));
    if (done.error)
        return done.error.message();
    unforced_[std::string(name)] = done.unforced;
    return {};
}

} // namespace vanoka
