#pragma once

#import "Memory.h"

#import <AppKit/AppKit.h>

#include <string>

/// The title of a group of letters in the sidebar, in the middle of its row.
@interface VanokaGroupTitleView : NSTableCellView {
@private
    vanoka::mac::Owned<NSTextField> _title;
}

- (instancetype)initWithTitle:(const std::string&)title;
@end
