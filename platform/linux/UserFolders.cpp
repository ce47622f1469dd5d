#include "UserFolders.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace vanoka::UserFolders {

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

fs::path ownFolder(const char* variable, const char* inHome) {
    if (const fs::path folder = folderFromEnvironment(variable); !folder.empty())
        return folder / folderName;
    const fs::path home = homeFolder();
    return home.empty() ? fs::path() : home / inHome / folderName;
}

} // namespace

fs::path configuration() {
    return ownFolder("XDG_CONFIG_HOME", ".config");
}

fs::path data() {
    return ownFolder("XDG_DATA_HOME", ".local/share");
}

} // namespace vanoka::UserFolders
