#pragma once

#include "Doctor.h"

namespace vanoka {

/// Asks the compositor of the session; nothing where there is none, or this program was built without the
/// library for it.
std::optional<Compositor> askCompositor();

} // namespace vanoka
