#import "AppKitWindow.h"

#import "NotificationObserver.h"
#import "SettingsController.h"
#import "Strings.h"

namespace vanoka::mac {

namespace {

NSWindowStyleMask styleMask(const WindowDescription& description) {
    return (description.isTitled ? NSWindowStyleMaskTitled : 0) |
           (description.isClosable ? NSWindowStyleMaskClosable : 0) |
           (description.isMiniaturizable ? NSWindowStyleMaskMiniaturizable : 0) |
           (description.isResizable ? NSWindowStyleMaskResizable : 0);
}

NSWindow* makeWindow(const WindowDescription& description) {
    NSWindow* window =
        [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, description.width, description.height)
                                    styleMask:styleMask(description)
                                      backing:NSBackingStoreBuffered
                                        defer:NO];
    [window setTitle:string(description.title)];
    [window setReleasedWhenClosed:description.isReleasedWhenClosed];
    // Shown again, it comes to where the user is, not the user to where it was.
    [window setCollectionBehavior:NSWindowCollectionBehaviorMoveToActiveSpace];
    return window;
}

} // namespace

AppKitWindow::AppKitWindow(const WindowDescription& description, SettingsView& content)
    : window_(makeWindow(description)),
      controller_([[VanokaSettingsController alloc] initWithWindow:window_.get() content:content]) {
    // The toolbar has taken its height by now.
    [window_.get() setContentSize:NSMakeSize(description.width, description.height)];
    if (description.isCentred)
        [window_.get() center];
}

AppKitWindow::~AppKitWindow() {
    [controller_.get() detach];
    [window_.get() close];
}

void AppKitWindow::makeKeyAndBringToFront() {
    [window_.get() makeKeyAndOrderFront:nil];
    // The front of this application is not that of the screen when the system does not activate it.
    [window_.get() orderFrontRegardless];
}

Subscription AppKitWindow::observeWillClose(std::function<void()> observer) {
    return observe(NSWindowWillCloseNotification, window_.get(), std::move(observer));
}

} // namespace vanoka::mac
