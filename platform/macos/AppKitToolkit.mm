#import "AppKitToolkit.h"

#import "AppKitWindow.h"
#import "Strings.h"
#import "Styles.h"

#import <AppKit/AppKit.h>

namespace vanoka {

namespace mac {

namespace {

/// AppKit keeps the about panel to itself. No other panel is shown here that is not a sheet.
void bringPanelsToFront() {
    for (NSWindow* window in [[NSApplication sharedApplication] windows]) {
        if (![window isKindOfClass:[NSPanel class]] || ![window isVisible] || [window isSheet])
            continue;
        [window setCollectionBehavior:NSWindowCollectionBehaviorMoveToActiveSpace];
        [window orderFrontRegardless];
    }
}

} // namespace

void AppKitToolkit::activateApplication() {
    NSApplication* application = [NSApplication sharedApplication];
    // While the user has it hidden, no order brings its windows up.
    [application unhideWithoutActivation];
    // From macOS 14 on activation is a request; before that it has to be insisted on.
    if ([application respondsToSelector:@selector(activate)])
        [application performSelector:@selector(activate)];
    else
        [application activateIgnoringOtherApps:YES];
}

void AppKitToolkit::terminateApplication() {
    [[NSApplication sharedApplication] terminate:nil];
}

std::unique_ptr<ToolkitWindow> AppKitToolkit::makeWindow(const WindowDescription& description,
                                                         SettingsView& content) {
    return std::make_unique<AppKitWindow>(description, content);
}

void AppKitToolkit::openAboutPanel(const std::string& applicationName, const AttributedText& credits) {
    NSDictionary* options = @{
        NSAboutPanelOptionApplicationName : string(applicationName),
        NSAboutPanelOptionCredits : attributedString(credits),
    };
    [[NSApplication sharedApplication] orderFrontStandardAboutPanelWithOptions:options];
    bringPanelsToFront();
}

} // namespace mac

WindowToolkit& WindowToolkit::standard() {
    static mac::AppKitToolkit toolkit;
    return toolkit;
}

} // namespace vanoka
