#pragma once

#include "KeyRow.h"
#import "Memory.h"
#include "SettingsView.h"

#import <AppKit/AppKit.h>

#include <optional>

/// One key of the letter that is edited, with its control.
@interface VanokaKeyRowView : NSView {
@private
    vanoka::SettingsView* _content;
    std::optional<vanoka::KeyRow> _row;
    vanoka::mac::Owned<NSTextField> _keyLabel;
    vanoka::mac::Owned<NSTextField> _noteLabel;
    vanoka::mac::Owned<NSControl> _control;
}

/// Shows the row; its control edits `content`, which outlives the view.
- (instancetype)initWithRow:(const vanoka::KeyRow&)row content:(vanoka::SettingsView*)content;
/// Shows the row as it is now, unless it is one of another key or has another kind of control: then nothing
/// changes and the answer is false.
- (BOOL)takesRow:(const vanoka::KeyRow&)row;
@end
