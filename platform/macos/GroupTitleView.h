#pragma once

#import "Memory.h"
#include "TextStyle.h"

#import <AppKit/AppKit.h>

/// The title of a group of letters in the sidebar, in the middle of its row.
@interface VanokaGroupTitleView : NSTableCellView {
@private
    vanoka::mac::Owned<NSTextField> _title;
}

- (instancetype)initWithTitle:(const vanoka::StyledText&)title;
@end
