#import "LinkButton.h"

#import "Memory.h"
#import "Strings.h"
#import "Styles.h"

@implementation VanokaLinkButton

- (instancetype)initWithLink:(const vanoka::Link&)link {
    if ((self = [super initWithFrame:NSZeroRect])) {
        _address = link.address;
        [self setButtonType:NSButtonTypeMomentaryChange];
        [self setBordered:NO];
        [self setAttributedTitle:vanoka::mac::attributedString(link.text)];
        [self setToolTip:vanoka::mac::string(link.address)];
        [self setAccessibilityRole:NSAccessibilityLinkRole];
        [self setTarget:self];
        [self setAction:@selector(openLink:)];
        [self sizeToFit];
    }
    return self;
}

- (void)openLink:(id)sender {
    (void)sender;
    [[NSWorkspace sharedWorkspace] openURL:[NSURL URLWithString:vanoka::mac::string(_address)]];
}

- (void)resetCursorRects {
    [self addCursorRect:[self bounds] cursor:[NSCursor pointingHandCursor]];
}

@end
