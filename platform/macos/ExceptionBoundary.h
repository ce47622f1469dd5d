#pragma once

namespace vanoka::mac {

namespace detail {
void guarded(void* work, void (*call)(void*)) noexcept;
}

/// Calls `work`. Whatever it throws, of C++ or Objective-C, ends here: no exception may reach the platform
/// that has called us, and a caller sets its neutral reply before.
///
/// The handler is in a file of plain C++: where a file is compiled for Objective-C exceptions, a C++ handler
/// is not found on every runtime.
template <class Work>
void guarded(Work work) noexcept {
    detail::guarded(&work, [](void* kept) { (*static_cast<Work*>(kept))(); });
}

} // namespace vanoka::mac
