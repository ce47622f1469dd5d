#import "MainMenu.h"

#import "Memory.h"

#import <AppKit/AppKit.h>

namespace vanoka::mac {

namespace {

/// The action is looked up along the responder chain; an empty title is a separator.
struct Item {
    NSString* title;
    SEL action = nullptr;
    NSString* key = @"";
    NSEventModifierFlags modifiers = NSEventModifierFlagCommand;
};

void addItem(NSMenu* menu, const Item& item) {
    if (!item.action) {
        [menu addItem:[NSMenuItem separatorItem]];
        return;
    }
    NSMenuItem* added = autoreleased([[NSMenuItem alloc] initWithTitle:item.title
                                                                action:item.action
                                                         keyEquivalent:item.key]);
    [added setKeyEquivalentModifierMask:item.modifiers];
    [menu addItem:added];
}

template <std::size_t count>
NSMenu* addMenu(NSMenu* bar, NSString* title, const Item (&items)[count]) {
    NSMenu* menu = autoreleased([[NSMenu alloc] initWithTitle:title]);
    for (const Item& item : items)
        addItem(menu, item);
    NSMenuItem* holder = autoreleased([[NSMenuItem alloc] initWithTitle:title
                                                                 action:nullptr
                                                          keyEquivalent:@""]);
    [holder setSubmenu:menu];
    [bar addItem:holder];
    return menu;
}

} // namespace

void installMainMenu(MainMenuFor purpose) {
    constexpr NSEventModifierFlags shiftCommand = NSEventModifierFlagShift | NSEventModifierFlagCommand;
    constexpr NSEventModifierFlags optionCommand = NSEventModifierFlagOption | NSEventModifierFlagCommand;
    const Item separator = {@""};
    const Item application[] = {
        {@"Hide Vanoka", @selector(hide:), @"h"},
        {@"Hide Others", @selector(hideOtherApplications:), @"h", optionCommand},
        {@"Show All", @selector(unhideAllApplications:)},
    };
    const Item quitting[] = {separator, {@"Quit Vanoka", @selector(terminate:), @"q"}};
    const Item edit[] = {
        {@"Undo", @selector(undo:), @"z"},
        {@"Redo", @selector(redo:), @"z", shiftCommand},
        separator,
        {@"Cut", @selector(cut:), @"x"},
        {@"Copy", @selector(copy:), @"c"},
        {@"Paste", @selector(paste:), @"v"},
        {@"Select All", @selector(selectAll:), @"a"},
    };
    const Item window[] = {
        {@"Close", @selector(performClose:), @"w"},
        {@"Minimize", @selector(performMiniaturize:), @"m"},
        {@"Zoom", @selector(performZoom:)},
        separator,
        {@"Bring All to Front", @selector(arrangeInFront:)},
    };

    NSMenu* bar = autoreleased([[NSMenu alloc] initWithTitle:@"Vanoka"]);
    NSMenu* first = addMenu(bar, @"Vanoka", application);
    if (purpose == MainMenuFor::application)
        for (const Item& item : quitting)
            addItem(first, item);
    addMenu(bar, @"Edit", edit);
    NSMenu* windows = addMenu(bar, @"Window", window);
    [[NSApplication sharedApplication] setMainMenu:bar];
    [NSApp setWindowsMenu:windows];
}

} // namespace vanoka::mac
