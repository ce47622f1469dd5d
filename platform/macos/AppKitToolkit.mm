#import "AppKitToolkit.h"

#import "AppKitWindow.h"
#import "Strings.h"
#import "Styles.h"

#import <AppKit/AppKit.h>

namespace vanoka {

namespace mac {

void AppKitToolkit::activateApplication() {
    // From macOS 14 on activation is a request; before that it has to be insisted on.
    NSApplication* application = [NSApplication sharedApplication];
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
}

} // namespace mac

WindowToolkit& WindowToolkit::standard() {
    static mac::AppKitToolkit toolkit;
    return toolkit;
}

} // namespace vanoka
