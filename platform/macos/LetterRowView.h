#pragma once

#import "DotView.h"
#include "LetterRow.h"
#import "Memory.h"

#import <AppKit/AppKit.h>

/// One letter in the sidebar.
@interface VanokaLetterRowView : NSTableCellView {
@private
    vanoka::mac::Owned<NSTextField> _letterLabel; // the view keeps them too; the row does not depend on that
    vanoka::mac::Owned<NSTextField> _keysLabel;
    vanoka::mac::Owned<VanokaDotView> _dot; // none when the letter is not customized
}

- (instancetype)initWithRow:(const vanoka::LetterRow&)row;
/// Shows the row as it is now.
- (void)showRow:(const vanoka::LetterRow&)row;
@end
