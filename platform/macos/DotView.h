#pragma once

#include "LetterRow.h"

#import <AppKit/AppKit.h>

/// A filled circle as wide as the view.
@interface VanokaDotView : NSView {
@private
    vanoka::ColourRole _colour;
    bool _isOnSelection;
}

- (instancetype)initWithDot:(const vanoka::Dot&)dot;
/// On a selection it has the colour of text there: the selection may have its own.
- (void)setOnSelection:(BOOL)isOnSelection;
@end
