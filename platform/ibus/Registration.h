#pragma once

#include <cstdint>

namespace vanoka::ibus {

/// Makes the running daemon know the engine; 0 when it does. Otherwise a negative error number: -ENOENT
/// when the component description is not installed, -ECONNREFUSED when no daemon runs, -ETIMEDOUT when the
/// daemon does not know the engine after all.
///
/// A daemon reads the descriptions only when it starts, so one that does not know the engine yet is started
/// anew, as its own "restart" command does.
std::int32_t registerEngine();

} // namespace vanoka::ibus
