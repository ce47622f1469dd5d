#pragma once

#import "KeyRowView.h"
#import "Memory.h"
#include "SettingsView.h"

#import <AppKit/AppKit.h>

#include <vector>

/// The keys of one letter: the header, the section of its keys, and the section that adds one.
@interface VanokaLetterEditorView : NSView <NSTextFieldDelegate> {
@private
    vanoka::SettingsView* _content;
    vanoka::mac::Owned<NSTextField> _letterLabel;
    vanoka::mac::Owned<NSTextField> _kindLabel;
    vanoka::mac::Owned<NSTextField> _exampleLabel;
    vanoka::mac::Owned<NSTextField> _keysTitle;
    vanoka::mac::Owned<NSBox> _keysBox;
    std::vector<vanoka::mac::Owned<VanokaKeyRowView>> _keyRows;
    vanoka::mac::Owned<NSTextField> _addTitle;
    vanoka::mac::Owned<NSBox> _addBox;
    vanoka::mac::Owned<NSTextField> _field; // made with the first letter, like the button
    vanoka::mac::Owned<NSButton> _addButton;
    vanoka::mac::Owned<NSTextField> _messageLabel;
    vanoka::mac::Owned<NSTextField> _footnoteLabel;
}

/// An editor that edits `content`, which outlives it. It is empty until it is shown a letter.
- (instancetype)initWithContent:(vanoka::SettingsView*)content;
/// Shows the editor as it is now and takes the height that this needs.
- (void)showEditor:(const vanoka::LetterEditor&)editor;
/// Takes this width and the height that it needs then.
- (void)fitWidth:(CGFloat)width;
@end
