#pragma once

#import <Foundation/Foundation.h>

namespace vanoka::test {

/// An instance method of a class that does something else as long as this lives: `replacement`, a function
/// that takes the object, the selector and the arguments. A class that inherits the method shares it with
/// those from which it does.
template <class Function>
class ReplacedMethod {
public:
    ReplacedMethod(Class kind, SEL selector, Function* replacement)
        : method_(class_getInstanceMethod(kind, selector)),
          original_(method_setImplementation(method_, asIs<IMP>(replacement))) {}
    ReplacedMethod(const ReplacedMethod&) = delete;
    ReplacedMethod& operator=(const ReplacedMethod&) = delete;
    ~ReplacedMethod() { method_setImplementation(method_, original_); }

    /// What the method does else.
    Function* original() const { return asIs<Function*>(original_); }

private:
    /// By the one type of function that compilers take for any other.
    template <class To, class From>
    static To asIs(From function) {
        return reinterpret_cast<To>(reinterpret_cast<void (*)()>(function));
    }

    Method method_;
    IMP original_;
};

} // namespace vanoka::test
