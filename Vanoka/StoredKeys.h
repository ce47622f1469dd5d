#pragma once

#include "settings/SinglishSettings.h"

#include <string>

/// What a person is told of how their keys are stored, in whole sentences on one line. Each is
/// empty when there is nothing to tell.
namespace vanoka::StoredKeys {

/// Why the keys that are stored are not in force.
std::string readingProblem(const SinglishSettings& settings);

/// Why the keys in force are not stored, or not for good.
std::string storingProblem(const SinglishSettings& settings);

/// Where that is kept which could not be read and has made room for the keys in force.
std::string setAside(const SinglishSettings& settings);

} // namespace vanoka::StoredKeys
