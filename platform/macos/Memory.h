#pragma once

#import <Foundation/Foundation.h>

#include <utility>

// Objective-C memory, the same in source whether the compiler counts references (ARC) or not. Every object of
// ours is held by an `Owned` or handed out by `autoreleased`; nothing else retains or releases, and there is
// no dealloc: C++ instance variables are destroyed with their object.

#if __has_feature(objc_arc)
#define VANOKA_BRIDGE __bridge
#else
#define VANOKA_BRIDGE
#endif

namespace vanoka::mac {

/// Gives back to the pool what `alloc` and `init` have made.
template <class Object>
Object* autoreleased(Object* made) {
#if __has_feature(objc_arc)
    return made;
#else
    return [made autorelease];
#endif
}

/// The owner of one object. Move-only; empty when made without one.
template <class Object>
class Owned {
public:
    Owned() = default;
    /// Takes over what `alloc` and `init` have made.
    explicit Owned(Object* made) : object_(made) {}
    Owned(Owned&& other) noexcept : object_(std::exchange(other.object_, nil)) {}
    Owned& operator=(Owned&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
#if __has_feature(objc_arc)
    ~Owned() = default;
#else
    ~Owned() { [object_ release]; }
#endif

    Object* get() const noexcept { return object_; }

private:
    Object* object_ = nil;
};

/// Makes an owner, beside those that it has, of an object.
template <class Object>
Owned<Object> retained(Object* object) {
#if __has_feature(objc_arc)
    return Owned<Object>(object);
#else
    return Owned<Object>([object retain]);
#endif
}

} // namespace vanoka::mac
