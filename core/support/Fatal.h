#pragma once

#include <string_view>

namespace vanoka {

/// Stops the process at once with `message` on standard error. For a broken precondition or a programming
/// error only: whatever a user or a stored file can cause has an outcome of its own.
[[noreturn]] void fatal(std::string_view message) noexcept;

/// The same with the place, a file and a line, before the message.
[[noreturn]] void fatal(std::string_view message, std::string_view place) noexcept;

} // namespace vanoka
