#import "Widgets.h"

#import "Memory.h"
#import "Strings.h"
#import "Styles.h"

#include <cmath>

namespace vanoka::mac {

namespace {

NSTextField* label(const StyledText& text, bool wraps) {
    NSTextField* made = autoreleased([[NSTextField alloc] initWithFrame:NSZeroRect]);
    [made setEditable:NO];
    [made setSelectable:NO];
    [made setBezeled:NO];
    [made setBordered:NO];
    [made setDrawsBackground:NO];
    NSCell* cell = [made cell];
    [cell setWraps:wraps];
    [cell setLineBreakMode:wraps ? NSLineBreakByWordWrapping : NSLineBreakByTruncatingTail];
    setText(made, text);
    return made;
}

} // namespace

NSTextField* label(const StyledText& text) {
    return label(text, false);
}

NSTextField* wrappingLabel(const StyledText& text) {
    return label(text, true);
}

void setText(NSTextField* label, const StyledText& text) {
    [label setFont:font(text.font)];
    [label setTextColor:colour(text.colour)];
    if (text.isStruckThrough)
        [label setAttributedStringValue:attributedString(text)];
    else
        [label setStringValue:string(text.text)];
}

CGFloat heightOfLabel(NSTextField* label, CGFloat width) {
    constexpr CGFloat endless = 10000;
    return std::ceil([[label cell] cellSizeForBounds:NSMakeRect(0, 0, width, endless)].height);
}

CGFloat widthOfLabel(NSTextField* label) {
    return std::ceil([[label cell] cellSize].width);
}

NSButton* button(const Button& button, id target, SEL action) {
    NSButton* made = autoreleased([[NSButton alloc] initWithFrame:NSZeroRect]);
    [made setButtonType:NSButtonTypeMomentaryPushIn];
    [made setBezelStyle:NSBezelStyleRounded];
    [made setTitle:string(button.title)];
    [made setTarget:target];
    [made setAction:action];
    if (button.isDefault)
        [made setKeyEquivalent:@"\r"];
    setButton(made, button);
    [made sizeToFit];
    return made;
}

void setButton(NSButton* shown, const Button& button) {
    [shown setEnabled:button.isEnabled];
    setHelp(shown, button.help);
}

void setHelp(NSView* view, const std::string& help) {
    [view setToolTip:help.empty() ? nil : string(help)];
}

void placeAt(NSView* view, CGFloat x, CGFloat middle, NSSize size) {
    [view setFrame:NSMakeRect(std::round(x), std::round(middle - size.height / 2), std::ceil(size.width),
                              std::ceil(size.height))];
}

} // namespace vanoka::mac
