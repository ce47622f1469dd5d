#import "CloseObserver.h"

#import "ExceptionBoundary.h"
#import "Memory.h"

#include <memory>
#include <utility>

/// Keeps what is called when a window is about to close.
@interface VanokaCloseObserver : NSObject {
@private
    std::function<void()> _observer;
}
- (instancetype)initWithObserver:(std::function<void()>)observer;
- (void)windowWillClose:(NSNotification*)notification;
@end

@implementation VanokaCloseObserver

- (instancetype)initWithObserver:(std::function<void()>)observer {
    if ((self = [super init]))
        _observer = std::move(observer);
    return self;
}

- (void)windowWillClose:(NSNotification*)notification {
    (void)notification;
    vanoka::mac::guarded(_observer);
}

@end

namespace vanoka::mac {

namespace {

/// A registration with the notification centre that ends with this object.
class Registration {
public:
    Registration(NSWindow* window, std::function<void()> observer)
        : observer_([[VanokaCloseObserver alloc] initWithObserver:std::move(observer)]) {
        [[NSNotificationCenter defaultCenter] addObserver:observer_.get()
                                                 selector:@selector(windowWillClose:)
                                                     name:NSWindowWillCloseNotification
                                                   object:window];
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration() { [[NSNotificationCenter defaultCenter] removeObserver:observer_.get()]; }

private:
    Owned<VanokaCloseObserver> observer_;
};

} // namespace

Subscription observeWillClose(NSWindow* window, std::function<void()> observer) {
    return Subscription(std::make_shared<Registration>(window, std::move(observer)));
}

} // namespace vanoka::mac
