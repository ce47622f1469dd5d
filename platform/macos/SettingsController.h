#pragma once

#include "DelayedDrawing.h"
#import "DetailView.h"
#import "Memory.h"
#include "SettingsView.h"
#import "SidebarView.h"

#import <AppKit/AppKit.h>

#include <optional>

/// Draws the content of the settings into a window: the sidebar beside the detail pane, the toolbar and the
/// dialog. Neither texts nor conditions are its own.
@interface VanokaSettingsController : NSObject <NSSplitViewDelegate, NSToolbarDelegate> {
@private
    NSWindow* __unsafe_unretained _window;
    vanoka::SettingsView* _content;
    vanoka::Subscription _changes;
    std::optional<vanoka::DelayedDrawing> _drawing;
    bool _isAsking; // the dialog is up
    vanoka::mac::Owned<NSSplitView> _split;
    vanoka::mac::Owned<VanokaSidebarView> _sidebar;
    vanoka::mac::Owned<VanokaDetailView> _detail;
    vanoka::mac::Owned<NSToolbar> _toolbar;
    vanoka::mac::Owned<NSButton> _resetButton;
}

/// Fills `window` with `content`. Both outlive this object, or its `detach`.
- (instancetype)initWithWindow:(NSWindow*)window content:(vanoka::SettingsView&)content;
/// Draws nothing any more and lets the window go.
- (void)detach;
@end
