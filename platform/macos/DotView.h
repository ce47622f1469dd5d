#pragma once

#include "LetterRow.h"

#import <AppKit/AppKit.h>

/// A filled circle as wide as the view.
@interface VanokaDotView : NSView {
@private
    vanoka::ColourRole _colour;
}

- (instancetype)initWithDot:(const vanoka::Dot&)dot;
@end
