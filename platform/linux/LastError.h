#pragma once

#include <cerrno>
#include <system_error>

namespace vanoka {

/// Why the last call of the system failed.
inline std::error_code lastError() {
    return {errno, std::generic_category()};
}

} // namespace vanoka
