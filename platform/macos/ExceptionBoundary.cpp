#include "ExceptionBoundary.h"

namespace vanoka::mac::detail {

void guarded(void* work, void (*call)(void*)) noexcept {
    try {
        call(work);
    } catch (...) { // NOLINT(bugprone-empty-catch): the caller's reply stands
    }
}

} // namespace vanoka::mac::detail
