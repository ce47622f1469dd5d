#pragma once

namespace vanoka {

// Letters that tests of the settings use, by their ids.
inline constexpr const char* aa = "\u0D86";
inline constexpr const char* ka = "\u0D9A";
inline constexpr const char* kha = "\u0D9B";
inline constexpr const char* binduwa = "\u0D82";

} // namespace vanoka
