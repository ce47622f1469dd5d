#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

/// Whole files that are never seen half written.
namespace vanoka::AtomicFile {

struct Contents {
    std::optional<std::string> bytes; ///< nothing when there is no file, and after an error
    std::error_code error;            ///< why what stands there could not be read
};

/// What became of a change.
struct Outcome {
    std::error_code error;    ///< why it was not made; what stood there still stands
    std::error_code unforced; ///< why a change that was made may be gone after a loss of power
};

/// Makes the folder and those above it that are not there, for their owner only. One whose name cannot be
/// forced to the disk is taken away again, and that is an error: the power would take with it all that was
/// forced to the disk in it.
std::error_code makeFolder(const std::filesystem::path& folder);

/// The file behind a symbolic link, there or not yet, or `path` itself: a file may be linked from elsewhere,
/// and shall stay so. Links that lead in a circle are files like others, and so are links of other users.
std::filesystem::path resolved(const std::filesystem::path& path);

/// Makes names that were given or taken beside the file last. That a file system cannot is no error.
std::error_code forceNamesBeside(const std::filesystem::path& file);

/// What the regular file at `path` holds. That there is none is no error; anything else at `path`, and a file
/// of more than `most` bytes, is one.
Contents read(const std::filesystem::path& path, std::size_t most);

/// Puts a file with `bytes`, readable by its owner only, in the place of whatever stands at `path`, through a
/// symbolic link if there is one, even to a file that is not there yet; makes the folders above it. A link of
/// another user (not of this one nor of the system) is replaced. The bytes are forced to the disk before,
/// and the name after; a file system that cannot force names is none of `unforced`.
Outcome write(const std::filesystem::path& path, std::string_view bytes);

/// Removes the file at `path`, or the one behind a symbolic link, which stays. That there is none is no
/// error.
Outcome remove(const std::filesystem::path& path);

/// Gives whatever stands at `path`, or behind a symbolic link there, another name beside it, so that the
/// place is free and nothing is lost. What is written or removed there afterwards forces this to the disk.
struct NewPlace {
    std::filesystem::path path; ///< empty when nothing stood there, and after an error
    std::error_code error;
};
NewPlace setAside(const std::filesystem::path& path);

} // namespace vanoka::AtomicFile
