#import "InputController.h"

#import "ClientAdapter.h"
#import "ExceptionBoundary.h"
#import "KeyEvents.h"
#import "Memory.h"
#import "Strings.h"

#include "AboutPanel.h"
#include "SettingsWindow.h"

namespace {

namespace mac = vanoka::mac;

/// Null when there is none.
vanoka::TextInputClient* pointer(std::optional<mac::ClientAdapter>& client) {
    return client ? &*client : nullptr;
}

SEL selector(vanoka::VanokaInputController::MenuAction action) {
    return action == vanoka::VanokaInputController::MenuAction::showSettings ? @selector(showSettings:)
                                                                             : @selector(showAbout:);
}

} // namespace

vanoka::mac::Typing::Typing() : controller(utf8([[NSBundle mainBundle] bundleIdentifier])) {}

@implementation VanokaInputController

- (NSUInteger)recognizedEvents:(id)sender {
    (void)sender;
    static_assert(vanoka::VanokaInputController::recognizedEvents == NSEventMaskKeyDown);
    return vanoka::VanokaInputController::recognizedEvents;
}

- (BOOL)handleEvent:(NSEvent*)event client:(id)sender {
    bool isConsumed = false;
    mac::guarded([&] {
        auto client = mac::ClientAdapter::of(sender);
        if (!event || !client)
            return;
        const vanoka::KeyEvent translated = mac::keyEvent(event);
        isConsumed = _typing.controller.handle(&translated, pointer(client));
    });
    return isConsumed;
}

- (void)commitComposition:(id)sender {
    mac::guarded([&] {
        auto client = mac::ClientAdapter::of(sender);
        _typing.controller.commitComposition(pointer(client));
    });
}

- (void)activateServer:(id)sender {
    [super activateServer:sender];
    mac::guarded([&] { _typing.controller.activateServer(); });
}

- (void)deactivateServer:(id)sender {
    mac::guarded([&] {
        auto client = mac::ClientAdapter::of(sender);
        _typing.controller.deactivateServer(pointer(client));
    });
    [super deactivateServer:sender];
}

- (NSMenu*)menu {
    NSMenu* menu = mac::autoreleased([[NSMenu alloc] initWithTitle:@""]);
    for (const auto& item : vanoka::VanokaInputController::menu())
        [menu addItemWithTitle:mac::string(item.title)
                        action:selector(item.action)
                 keyEquivalent:mac::string(item.keyEquivalent)];
    return menu;
}

- (void)showSettings:(id)sender {
    (void)sender;
    mac::guarded([] { vanoka::SettingsWindow::shared().show(false); });
}

- (void)showAbout:(id)sender {
    (void)sender;
    mac::guarded([] { vanoka::AboutPanel::show(); });
}

@end
