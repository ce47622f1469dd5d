#import "MacPlatform.h"

#import "MainMenu.h"
#import "NotificationObserver.h"
#import "Strings.h"

#include "SettingsWindow.h"

#import <AppKit/AppKit.h>
#import <Carbon/Carbon.h>

namespace vanoka::mac {

std::int32_t MacPlatform::registerInputSource() {
    return TISRegisterInputSource((VANOKA_BRIDGE CFURLRef)[[NSBundle mainBundle] bundleURL]);
}

std::string MacPlatform::registrationFailure(std::int32_t status) const {
    return "TISRegisterInputSource failed: " + std::to_string(status);
}

int MacPlatform::runSettings() {
    NSApplication* application = [NSApplication sharedApplication];
    [application setActivationPolicy:NSApplicationActivationPolicyRegular];
    installMainMenu(MainMenuFor::application);
    // Not before: started by a terminal, an application that is still launching does not come to the front.
    const Subscription launching = observe(NSApplicationDidFinishLaunchingNotification, application,
                                           [] { SettingsWindow::shared().show(true); });
    [application run];
    return 0;
}

std::optional<std::string> MacPlatform::connectionName() const {
    const id name = [[[NSBundle mainBundle] infoDictionary] objectForKey:@"InputMethodConnectionName"];
    return [name isKindOfClass:[NSString class]] ? utf8(name) : std::nullopt;
}

bool MacPlatform::createServer(const std::string& connectionName) {
    [NSApplication sharedApplication];
    server_ = Owned<IMKServer>([[IMKServer alloc] initWithName:string(connectionName)
                                              bundleIdentifier:[[NSBundle mainBundle] bundleIdentifier]]);
    return server_.get() != nil;
}

void MacPlatform::runEventLoop() {
    installMainMenu(MainMenuFor::server);
    [NSApp run];
}

} // namespace vanoka::mac
