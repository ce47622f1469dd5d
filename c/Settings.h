#pragma once

#include "Answer.h"
#include "settings/SinglishSettings.h"
#include "settings/UserDefaults.h"
#include "vanoka.h"

#include <memory>

namespace vanoka::c {

/// The keys in force over a document in memory, which callers put in and take out.
struct KeySettings {
    MemoryUserDefaults defaults;
    SinglishSettings keys{defaults};
};

/// A key as `vanoka_settings_keys` tells it.
void addKey(Reply& reply, const SinglishKeyState& state);

} // namespace vanoka::c

struct vanoka_settings {
    std::shared_ptr<vanoka::c::KeySettings> shared; ///< with the typing by these keys
};
