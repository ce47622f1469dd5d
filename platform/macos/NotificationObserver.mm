#import "NotificationObserver.h"

#import "ExceptionBoundary.h"
#import "Memory.h"

#include <memory>
#include <utility>

/// Keeps what is called.
@interface VanokaNotificationObserver : NSObject {
@private
    std::function<void()> _observer;
}
- (instancetype)initWithObserver:(std::function<void()>)observer;
- (void)take:(NSNotification*)notification;
@end

@implementation VanokaNotificationObserver

- (instancetype)initWithObserver:(std::function<void()>)observer {
    if ((self = [super init]))
        _observer = std::move(observer);
    return self;
}

- (void)take:(NSNotification*)notification {
    (void)notification;
    vanoka::mac::guarded(_observer);
}

@end

namespace vanoka::mac {

namespace {

/// A registration with the notification centre that ends with this object.
class Registration {
public:
    Registration(NSString* name, id sender, std::function<void()> observer)
        : observer_([[VanokaNotificationObserver alloc] initWithObserver:std::move(observer)]) {
        [[NSNotificationCenter defaultCenter] addObserver:observer_.get()
                                                 selector:@selector(take:)
                                                     name:name
                                                   object:sender];
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration() { [[NSNotificationCenter defaultCenter] removeObserver:observer_.get()]; }

private:
    Owned<VanokaNotificationObserver> observer_;
};

} // namespace

Subscription observe(NSString* name, id sender, std::function<void()> observer) {
    return Subscription(std::make_shared<Registration>(name, sender, std::move(observer)));
}

} // namespace vanoka::mac
