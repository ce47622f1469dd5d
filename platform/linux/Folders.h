#pragma once

#include <filesystem>

/// Where the files of this product are on this machine.
namespace vanoka::Folders {

/// "vanoka" in `$XDG_CONFIG_HOME`, or in ".config" in the home folder; empty when there is neither.
std::filesystem::path ofSettings();

/// "vanoka" in `$XDG_DATA_HOME`, or in ".local/share" in the home folder; empty when there is neither.
std::filesystem::path ofData();

/// The folder of the running program; empty when the system does not say.
std::filesystem::path ofProgram();

} // namespace vanoka::Folders
