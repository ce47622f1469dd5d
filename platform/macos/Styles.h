#pragma once

#include "AttributedText.h"
#include "TextStyle.h"

#import <AppKit/AppKit.h>

namespace vanoka::mac {

NSFont* font(const Font& font);
NSColor* colour(ColourRole role);

/// The text with its font, its colour, and a line through it if it has one.
NSAttributedString* attributedString(const StyledText& text);
/// The pieces in their order, links with their addresses as URLs.
NSAttributedString* attributedString(const AttributedText& text);

} // namespace vanoka::mac
