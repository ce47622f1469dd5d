#pragma once

#include "vanoka.h"

/// How calls are performed, so that none ends the process.
namespace vanoka::c {

/// The status of a call that may run out of memory: nothing else is thrown below.
template <class Call>
vanoka_status guarded(Call call) noexcept {
#ifdef __cpp_exceptions
    try {
        return call();
    } catch (...) {
        return VANOKA_NO_MEMORY;
    }
#else
    return call();
#endif
}

/// Creates a handle unless there is a problem.
template <class Handle, class Problem, class Make>
vanoka_status creating(Handle** handle, Problem problem, Make make) noexcept {
    if (!handle)
        return VANOKA_BAD_ARGUMENT;
    *handle = nullptr;
    return guarded([&] {
        const vanoka_status status = problem();
        if (status == VANOKA_OK)
            *handle = make();
        return status;
    });
}

} // namespace vanoka::c
