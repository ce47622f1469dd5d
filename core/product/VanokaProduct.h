#pragma once

#include <string_view>

/// The product's names.
namespace vanoka::VanokaProduct {

inline constexpr std::string_view name = "Vanoka";

/// The name in Sinhala script. The value is set where the build is configured.
std::string_view sinhalaName() noexcept;

} // namespace vanoka::VanokaProduct
