#import "DotView.h"

#import "Styles.h"
#import "Widgets.h"

@implementation VanokaDotView

- (instancetype)initWithDot:(const vanoka::Dot&)dot {
    if ((self = [super initWithFrame:NSMakeRect(0, 0, dot.diameter, dot.diameter)])) {
        _colour = dot.colour;
        vanoka::mac::setHelp(self, dot.help);
    }
    return self;
}

- (void)setOnSelection:(BOOL)isOnSelection {
    _isOnSelection = isOnSelection;
    [self setNeedsDisplay:YES];
}

- (void)drawRect:(NSRect)dirtyRect {
    (void)dirtyRect;
    NSColor* colour =
        _isOnSelection ? [NSColor alternateSelectedControlTextColor] : vanoka::mac::colour(_colour);
    [colour set];
    [[NSBezierPath bezierPathWithOvalInRect:[self bounds]] fill];
}

@end
