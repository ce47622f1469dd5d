#pragma once

#include <ctime>

namespace vanoka {

/// The seconds that this thread has had a processor: what work costs, whatever else the machine does
/// meanwhile.
inline double processorSeconds() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

} // namespace vanoka
