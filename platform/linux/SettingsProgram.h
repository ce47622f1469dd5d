#pragma once

#include <filesystem>
#include <optional>

/// The settings window and the about panel run in a process of their own, so that no front end ever loads a
/// window toolkit.
namespace vanoka::SettingsProgram {

inline constexpr const char* name = "vanoka-settings";
inline constexpr const char* aboutSwitch = "--about";

/// Where it is: in `folder`, or where it is installed; nothing when it is in neither place.
std::optional<std::filesystem::path> find(const std::filesystem::path& folder);

} // namespace vanoka::SettingsProgram
