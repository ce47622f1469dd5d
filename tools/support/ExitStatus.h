#pragma once

/// What a script learns from the program's exit status.
namespace vanoka::ExitStatus {

inline constexpr int done = 0;
inline constexpr int refused =
    1; ///< the answer is no: a key that cannot be added, a letter that does not exist
inline constexpr int usage = 2;  ///< the command line is not understood
inline constexpr int failed = 3; ///< something could not be read, written or stored, or the terminal is unfit

} // namespace vanoka::ExitStatus
