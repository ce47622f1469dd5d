#pragma once

#include "CommitPolicy.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

namespace vanoka::ibus {

/// What is installed on this system, found out on the first call.
const Versions& installedVersions();

/// IBus's version times what its library's file name makes of it: 527 for "libibus-1.0.so.5.0.527", which is
/// 1.5.27. Nothing for any other name.
std::optional<int> releaseOfLibrary(std::string_view fileName);

/// Whether XIM's server waits for the answer to each key with this setting of `IBUS_ENABLE_SYNC_MODE`, which
/// is null when there is none; `release` is IBus's.
bool ximWaits(const char* setting, int release);

/// True when the first of these modules of Qt that exists does not know the property by which a client tells
/// the daemon that it puts the marked text in itself. False when none exists, or it cannot be read.
bool commitsUnannounced(std::span<const std::filesystem::path> modules);

} // namespace vanoka::ibus
