#pragma once

#include "DoctorFindings.h"

#include <string_view>

namespace vanoka {

/// How the toolkits reach an input method framework.
struct FrameworkModules {
    std::string_view name;   ///< of the framework
    std::string_view module; ///< what the toolkits' variables call it
};

/// Looks at the way from the programs of each toolkit that is installed to the framework: through the
/// toolkit's own module, or through the Wayland compositor, which has to hand the text on.
void examineToolkits(const DoctorSystem& system, const FrameworkModules& framework, Findings& findings);

} // namespace vanoka
