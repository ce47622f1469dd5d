#pragma once

#include "product/Url.h"

#include <string_view>

/// The maker of this build. The values are set where the build is configured.
namespace vanoka::VanokaCompany {

std::string_view name() noexcept;
const Url& website();

} // namespace vanoka::VanokaCompany
