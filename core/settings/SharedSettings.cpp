#include "settings/SinglishSettings.h"

namespace vanoka {

// In an object file of its own: a program that never asks for the shared settings needs no platform's
// defaults.
SinglishSettings& SinglishSettings::shared() {
    static SinglishSettings settings(UserDefaults::standard());
    return settings;
}

} // namespace vanoka
