#pragma once

#include <cstdint>
#include <string_view>

namespace vanoka::ibus {

/// Makes the running daemon know the engine; 0 when it does. Otherwise a negative error number: -ENOENT
/// when the component description is not installed, -ECONNREFUSED when no daemon runs, -ETIMEDOUT when the
/// daemon does not know the engine after all.
///
/// A daemon reads the descriptions only when it starts, so one that does not know the engine yet is started
/// anew, as its own "restart" command does.
std::int32_t registerEngine();

/// What a result other than 0 means, as the rest of a sentence for a person.
std::string_view meaningOf(std::int32_t result) noexcept;

} // namespace vanoka::ibus
