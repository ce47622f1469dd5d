#pragma once

#import "Memory.h"
#include "SettingsView.h"
#import "SidebarFooterView.h"

#import <AppKit/AppKit.h>

#include <vector>

/// The list of all letters, with the footer below it.
@interface VanokaSidebarView : NSView <NSTableViewDataSource, NSTableViewDelegate> {
@private
    vanoka::SettingsView* _content;
    std::vector<vanoka::SettingsView::SidebarRow> _rows;
    vanoka::mac::Owned<NSScrollView> _scroll;
    vanoka::mac::Owned<NSTableView> _table;
    vanoka::mac::Owned<VanokaSidebarFooterView> _footer;
}

- (instancetype)initWithFrame:(NSRect)frame content:(vanoka::SettingsView*)content;
/// Shows the content as it is now.
- (void)showContent;
@end
