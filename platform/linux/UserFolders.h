#pragma once

#include <filesystem>

/// Where the user who runs this process keeps what is theirs. Only absolute paths of the environment count.
namespace vanoka::UserFolders {

/// "vanoka" in `$XDG_CONFIG_HOME`, or in ".config" in the home folder; empty when there is neither.
std::filesystem::path configuration();

/// "vanoka" in `$XDG_DATA_HOME`, or in ".local/share" in the home folder; empty when there is neither.
std::filesystem::path data();

} // namespace vanoka::UserFolders
