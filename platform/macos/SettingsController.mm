#import "SettingsController.h"

#import "ExceptionBoundary.h"
#import "Strings.h"
#import "Widgets.h"

#include <algorithm>

namespace mac = vanoka::mac;

namespace {

NSString* const resetItem = @"VanokaReset";

} // namespace

@implementation VanokaSettingsController

- (instancetype)initWithWindow:(NSWindow*)window content:(vanoka::SettingsView&)content {
    if ((self = [super init])) {
        _window = window;
        _content = &content;
        [self fillWindow];
        [self addToolbar];
        // Not retained: the subscription ends with this object.
        VanokaSettingsController* __unsafe_unretained drawing = self;
        _drawing.emplace([drawing] { [drawing scheduleDrawing]; }, [drawing] { [drawing draw]; });
        _changes = content.observe([drawing] { drawing->_drawing->drawSoon(); });
    }
    return self;
}

- (void)detach {
    _changes.end();
    [NSObject cancelPreviousPerformRequestsWithTarget:self];
    [_split.get() setDelegate:nil];
    [_toolbar.get() setDelegate:nil];
    _window = nil;
}

- (void)fillWindow {
    using View = vanoka::SettingsView;
    const NSRect bounds = [[_window contentView] bounds];
    _split = mac::Owned([[NSSplitView alloc] initWithFrame:bounds]);
    [_split.get() setVertical:YES];
    [_split.get() setDividerStyle:NSSplitViewDividerStyleThin];
    [_split.get() setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
    const NSRect left = NSMakeRect(0, 0, View::sidebarWidth, bounds.size.height);
    const CGFloat rightStart = View::sidebarWidth + [_split.get() dividerThickness];
    const NSRect right = NSMakeRect(rightStart, 0, bounds.size.width - rightStart, bounds.size.height);
    _sidebar = mac::Owned([[VanokaSidebarView alloc] initWithFrame:left content:_content]);
    _detail = mac::Owned([[VanokaDetailView alloc] initWithFrame:right content:_content]);
    [_split.get() addSubview:_sidebar.get()];
    [_split.get() addSubview:_detail.get()];
    [_split.get() setDelegate:self];
    [[_window contentView] addSubview:_split.get()];
    [_split.get() adjustSubviews];
    [_window setContentMinSize:NSMakeSize(View::minimumWidth, View::minimumHeight)];
}

- (void)addToolbar {
    _resetButton = mac::retained(mac::button(_content->resetButton(), self, @selector(askToReset:)));
    _toolbar = mac::Owned([[NSToolbar alloc] initWithIdentifier:@"VanokaSettings"]);
    [_toolbar.get() setDelegate:self];
    [_toolbar.get() setAllowsUserCustomization:NO];
    [_toolbar.get() setDisplayMode:NSToolbarDisplayModeIconOnly];
    [_window setToolbar:_toolbar.get()];
}

- (void)askToReset:(id)sender {
    (void)sender;
    mac::guarded([&] { _content->askToReset(); });
}

- (void)scheduleDrawing {
    NSArray* modes = @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ];
    [self performSelector:@selector(drawIfDue) withObject:nil afterDelay:0 inModes:modes];
}

- (void)drawIfDue {
    mac::guarded([&] { _drawing->drawIfDue(); });
}

- (void)draw {
    [_sidebar.get() showContent];
    [_detail.get() showContent];
    mac::setButton(_resetButton.get(), _content->resetButton());
    if (_content->isConfirmingReset() && !_isAsking)
        [self showResetDialog];
}

/// As a sheet: a modal loop would stop the input method of whoever is typing.
- (void)showResetDialog {
    _isAsking = true;
    const auto dialog = vanoka::SettingsView::resetDialog();
    NSAlert* alert = mac::autoreleased([[NSAlert alloc] init]);
    [alert setMessageText:mac::string(dialog.title)];
    NSButton* confirm = [alert addButtonWithTitle:mac::string(dialog.confirm.title)];
    [confirm setHasDestructiveAction:dialog.confirm.isDestructive];
    [confirm setKeyEquivalent:dialog.confirm.isDefault ? @"\r" : @""];
    [[alert addButtonWithTitle:mac::string(dialog.cancel.title)] setKeyEquivalent:@"\033"];
    [alert beginSheetModalForWindow:_window
                  completionHandler:^(NSModalResponse answer) {
                    [self takeAnswer:answer];
                  }];
}

- (void)takeAnswer:(NSModalResponse)answer {
    _isAsking = false;
    mac::guarded([&] {
        if (answer == NSAlertFirstButtonReturn)
            _content->confirmReset();
        else
            _content->cancelReset();
    });
}

- (NSArray*)toolbarDefaultItemIdentifiers:(NSToolbar*)toolbar {
    (void)toolbar;
    return @[ NSToolbarFlexibleSpaceItemIdentifier, resetItem ];
}

- (NSArray*)toolbarAllowedItemIdentifiers:(NSToolbar*)toolbar {
    return [self toolbarDefaultItemIdentifiers:toolbar];
}

- (NSToolbarItem*)toolbar:(NSToolbar*)toolbar
        itemForItemIdentifier:(NSString*)identifier
    willBeInsertedIntoToolbar:(BOOL)flag {
    (void)toolbar;
    (void)flag;
    if (![identifier isEqualToString:resetItem])
        return nil;
    NSToolbarItem* item = mac::autoreleased([[NSToolbarItem alloc] initWithItemIdentifier:identifier]);
    [item setLabel:[_resetButton.get() title]];
    [item setView:_resetButton.get()];
    return item;
}

- (CGFloat)splitView:(NSSplitView*)splitView
    constrainMinCoordinate:(CGFloat)proposed
               ofSubviewAt:(NSInteger)index {
    (void)splitView;
    (void)index;
    return std::max<CGFloat>(proposed, vanoka::SettingsView::sidebarMinimumWidth);
}

/// The detail pane keeps what the smallest window leaves it beside the narrowest sidebar.
- (CGFloat)splitView:(NSSplitView*)splitView
    constrainMaxCoordinate:(CGFloat)proposed
               ofSubviewAt:(NSInteger)index {
    using View = vanoka::SettingsView;
    (void)index;
    const CGFloat detailMinimum = View::minimumWidth - View::sidebarMinimumWidth;
    return std::min<CGFloat>(proposed, [splitView bounds].size.width - detailMinimum);
}

- (BOOL)splitView:(NSSplitView*)splitView shouldAdjustSizeOfSubview:(NSView*)subview {
    (void)splitView;
    return subview != _sidebar.get();
}

@end
