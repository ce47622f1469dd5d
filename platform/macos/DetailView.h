#pragma once

#import "LetterEditorView.h"
#import "Memory.h"
#include "SettingsView.h"

#import <AppKit/AppKit.h>

#include <string>

/// The detail pane: the editor of the chosen letter, which scrolls when it is higher than the pane, or a text
/// that asks for a letter.
@interface VanokaDetailView : NSView {
@private
    vanoka::SettingsView* _content;
    vanoka::mac::Owned<NSScrollView> _scroll;
    vanoka::mac::Owned<VanokaLetterEditorView> _editor;
    vanoka::mac::Owned<NSTextField> _placeholder;
    std::string _shownLetter; // its id
}

- (instancetype)initWithFrame:(NSRect)frame content:(vanoka::SettingsView*)content;
/// Shows the content as it is now.
- (void)showContent;
@end
