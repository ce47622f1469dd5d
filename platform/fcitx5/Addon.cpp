#include "VanokaEngine.h"

// NOLINTNEXTLINE: the framework's own entry point
FCITX_ADDON_FACTORY(vanoka::fcitx5::VanokaEngineFactory)
