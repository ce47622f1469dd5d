#pragma once

#include "product/Url.h"

#include <string_view>

/// The product's own pages. The values are set where the build is configured.
namespace vanoka::VanokaWebsite {

const Url& home();
const Url& terms();
const Url& privacyPolicy();

} // namespace vanoka::VanokaWebsite
