#pragma once

#include <filesystem>
#include <optional>
#include <string>

/// The installed component description: the file by which the daemon knows this program and its engine.
namespace vanoka::ibus::Component {

inline constexpr const char* engineName = "vanoka";

/// Where the daemon finds it; nothing when it is not installed.
std::optional<std::filesystem::path> find();

/// The component's name in the description at `path`; nothing when there is no description, or no name in it,
/// or one that is no text.
std::optional<std::string> nameIn(const std::filesystem::path& path);

} // namespace vanoka::ibus::Component
