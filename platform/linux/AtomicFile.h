#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

/// Whole files that are never seen half written.
namespace vanoka::AtomicFile {

/// The bytes of the regular file at `path`; nothing when there is none, when it cannot be read or when it is
/// larger than any settings file.
std::optional<std::string> read(const std::filesystem::path& path);

/// Puts a file with `bytes`, readable by its owner only, in the place of whatever stands at `path`, through a
/// symbolic link if there is one; makes the folders above it. On an error what stood there still stands.
std::error_code write(const std::filesystem::path& path, std::string_view bytes);

/// Removes the file at `path`. That there is none is no error.
std::error_code remove(const std::filesystem::path& path);

} // namespace vanoka::AtomicFile
