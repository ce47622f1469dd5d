#pragma once

#import "Memory.h"
#include "SettingsView.h"
#import "SidebarFooterView.h"

#import <AppKit/AppKit.h>

#include <string>
#include <variant>
#include <vector>

namespace vanoka::mac {

/// The list is flat: a section's title stands above its letters.
using SidebarRow = std::variant<std::string, LetterRow>;

} // namespace vanoka::mac

/// The list of all letters, with the footer below it.
@interface VanokaSidebarView : NSView <NSTableViewDataSource, NSTableViewDelegate> {
@private
    vanoka::SettingsView* _content;
    std::vector<vanoka::mac::SidebarRow> _rows;
    vanoka::mac::Owned<NSScrollView> _scroll;
    vanoka::mac::Owned<NSTableView> _table;
    vanoka::mac::Owned<VanokaSidebarFooterView> _footer;
}

- (instancetype)initWithFrame:(NSRect)frame content:(vanoka::SettingsView*)content;
/// Shows the content as it is now.
- (void)showContent;
@end
