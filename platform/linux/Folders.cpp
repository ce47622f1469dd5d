#include "Folders.h"

#include <cstdlib>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

namespace vanoka::Folders {

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

/// Our folder in the one that the variable names, or in `usual` in the home folder.
fs::path ownFolderIn(const char* variable, const char* usual) {
    if (const fs::path folder = folderFromEnvironment(variable); !folder.empty())
        return folder / folderName;
    const fs::path home = homeFolder();
    return home.empty() ? fs::path() : home / usual / folderName;
}

} // namespace

fs::path ofSettings() {
    return ownFolderIn("XDG_CONFIG_HOME", ".config");
}

fs::path ofData() {
    return ownFolderIn("XDG_DATA_HOME", ".local/share");
}

fs::path ofProgram() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

} // namespace vanoka::Folders
