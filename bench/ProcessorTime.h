#pragma once

#include <ctime>

namespace vanoka::bench {

/// The processor time of this thread so far, in seconds: what others do on the machine does not count.
inline double processorTime() {
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

} // namespace vanoka::bench
