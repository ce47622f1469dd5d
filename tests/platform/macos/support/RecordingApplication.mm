#import "RecordingApplication.h"

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

void (*makeKeyAndOrderFront)(id, SEL, id);
void (*orderFrontRegardless)(id, SEL);

void noteMakeKeyAndOrderFront(NSWindow* window, SEL selector, id sender) {
    noteWindow(window, "key and front");
    isCarriedOut = true;
    makeKeyAndOrderFront(window, selector, sender);
    isCarriedOut = false;
}

void noteOrderFrontRegardless(NSWindow* window, SEL selector) {
    noteWindow(window, "front regardless");
    orderFrontRegardless(window, selector);
}

IMP replace(SEL selector, IMP replacement) {
    return method_setImplementation(class_getInstanceMethod([NSWindow class], selector), replacement);
}

} // namespace

@implementation RecordingApplication

+ (RecordingApplication*)shared {
    return (RecordingApplication*)[self sharedApplication];
}

- (id)init {
    if ((self = [super init])) {
        aboutOptions = [[NSMutableArray alloc] init];
        makeKeyAndOrderFront = reinterpret_cast<decltype(makeKeyAndOrderFront)>(
            replace(@selector(makeKeyAndOrderFront:), reinterpret_cast<IMP>(noteMakeKeyAndOrderFront)));
        orderFrontRegardless = reinterpret_cast<decltype(orderFrontRegardless)>(
            replace(@selector(orderFrontRegardless), reinterpret_cast<IMP>(noteOrderFrontRegardless)));
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
