#include "FileUserDefaults.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

constexpr const char* folderName = "vanoka";

/// An absolute path from the environment; any other value does not count.
fs::path folderFromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    const fs::path path(value ? value : "");
    return path.is_absolute() ? path : fs::path();
}

fs::path homeFolder() {
    if (fs::path home = folderFromEnvironment("HOME"); !home.empty())
        return home;
    const passwd* user = ::getpwuid(::getuid());
    return user && user->pw_dir ? fs::path(user->pw_dir) : fs::path();
}

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

} // namespace

FileUserDefaults::FileUserDefaults(fs::path folder) : folder_(std::move(folder)) {}

FileUserDefaults& FileUserDefaults::standard() {
    static FileUserDefaults defaults(standardFolder());
    return defaults;
}

UserDefaults& UserDefaults::standard() {
    return FileUserDefaults::standard();
}

fs::path FileUserDefaults::standardFolder() {
    if (const fs::path folder = folderFromEnvironment("XDG_CONFIG_HOME"); !folder.empty())
        return folder / folderName;
    const fs::path home = homeFolder();
    return home.empty() ? fs::path() : home / ".config" / folderName;
}

fs::path FileUserDefaults::pathOf(std::string_view name) const {
    return folder_ / fileName(name);
}

std::optional<std::string> FileUserDefaults::data(std::string_view name) {
    const auto contents = read(name);
    const auto found = unsaved_.find(name);
    if (found == unsaved_.end())
        return given(name, contents);
    Unsaved& unsaved = found->second;
    if (contents.error)
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
    const std::error_code error = last.error ? last.error : write(name, value);
    if (!error) {
        last.bytes = value;
        if (const auto unsaved = unsaved_.find(name); unsaved != unsaved_.end())
            unsaved_.erase(unsaved);
        return;
    }
    unsaved_.insert_or_assign(std::string(name),
                              Unsaved{value, contents.error ? last : contents, error.message()});
}

/// Hands out what was read, or what it was when that could not be done now.
std::optional<std::string> FileUserDefaults::given(std::string_view name,
                                                   const AtomicFile::Contents& contents) {
    AtomicFile::Contents& last = seen(name, contents);
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
    return folder_.empty() ? AtomicFile::Contents() : AtomicFile::read(pathOf(name));
}

std::error_code FileUserDefaults::write(std::string_view name,
                                        const std::optional<std::string>& value) const {
    if (folder_.empty())
        return std::make_error_code(std::errc::no_such_file_or_directory);
    return value ? AtomicFile::write(pathOf(name), *value) : AtomicFile::remove(pathOf(name));
}

std::string FileUserDefaults::failure(std::string_view name) const {
    const auto unsaved = unsaved_.find(name);
    return unsaved == unsaved_.end() ? std::string() : unsaved->second.failure;
}

} // namespace vanoka
