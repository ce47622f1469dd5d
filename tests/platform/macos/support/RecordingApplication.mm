#import "RecordingApplication.h"

#import "ReplacedMethod.h"

#include <utility>

namespace {

bool isCarriedOut = false; // an order, and what GNUstep makes of it is not the program's

void note(std::string order) {
    if (!isCarriedOut)
        [RecordingApplication shared]->frontOrders.push_back(std::move(order));
}

void noteWindow(NSWindow* window, const char* order) {
    note(std::string([[window title] UTF8String]) + ": " + order);
}

void makeKeyAndOrderFront(NSWindow* window, SEL selector, id sender);
void orderFrontRegardless(NSWindow* window, SEL selector);

/// Windows that write down their orders.
struct RecordingWindows {
    vanoka::test::ReplacedMethod<decltype(makeKeyAndOrderFront)> keyAndFront = {
        [NSWindow class], @selector(makeKeyAndOrderFront:), makeKeyAndOrderFront};
    vanoka::test::ReplacedMethod<decltype(orderFrontRegardless)> frontRegardless = {
        [NSWindow class], @selector(orderFrontRegardless), orderFrontRegardless};
};

const RecordingWindows& windows() {
    static const RecordingWindows recording;
    return recording;
}

void makeKeyAndOrderFront(NSWindow* window, SEL selector, id sender) {
    noteWindow(window, "key and front");
    isCarriedOut = true;
    windows().keyAndFront.original()(window, selector, sender);
    isCarriedOut = false;
}

void orderFrontRegardless(NSWindow* window, SEL selector) {
    noteWindow(window, "front regardless");
    windows().frontRegardless.original()(window, selector);
}

} // namespace

@implementation RecordingApplication

+ (RecordingApplication*)shared {
    return (RecordingApplication*)[self sharedApplication];
}

- (id)init {
    if ((self = [super init])) {
        aboutOptions = [[NSMutableArray alloc] init];
        (void)windows();
    }
    return self;
}

- (void)orderFrontStandardAboutPanelWithOptions:(NSDictionary*)options {
    [aboutOptions addObject:options];
    note("about panel");
}

- (void)activateIgnoringOtherApps:(BOOL)flag {
    (void)flag;
    note("application");
}

- (void)unhideWithoutActivation {
    note("unhidden application");
}

@end
