#pragma once

#include <string_view>

namespace vanoka::text {

/// True when any scalar of `text` is of the Sinhala block.
bool holdsSinhala(std::string_view text) noexcept;

} // namespace vanoka::text
