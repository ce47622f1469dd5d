#pragma once

#include "Controls.h"
#include "TextStyle.h"

#import <AppKit/AppKit.h>

// Views as the content asks for them. What is made here is handed out autoreleased; the view that it is added
// to keeps it.
namespace vanoka::mac {

/// A text that is only read. It is one line, cut off with an ellipsis.
NSTextField* label(const StyledText& text);
/// The same over as many lines as it needs.
NSTextField* wrappingLabel(const StyledText& text);
/// Gives a label another text and other looks.
void setText(NSTextField* label, const StyledText& text);
/// How high the label is when it is this wide.
CGFloat heightOfLabel(NSTextField* label, CGFloat width);
/// How wide the label is on one line.
CGFloat widthOfLabel(NSTextField* label);

NSButton* button(const Button& button, id target, SEL action);
/// Gives a button what can change about it while it is shown.
void setButton(NSButton* shown, const Button& button);

/// A tooltip; none for an empty text.
void setHelp(NSView* view, const std::string& help);

/// Puts a view of this size at `x`, with its middle at `middle`.
void placeAt(NSView* view, CGFloat x, CGFloat middle, NSSize size);

} // namespace vanoka::mac
