#import "LetterRowView.h"

#import "Strings.h"
#import "Widgets.h"

#include <algorithm>

namespace mac = vanoka::mac;

@implementation VanokaLetterRowView

- (instancetype)initWithRow:(const vanoka::LetterRow&)row {
    if ((self = [super initWithFrame:NSZeroRect])) {
        _letterLabel = mac::retained(mac::label(row.letterText()));
        _keysLabel = mac::retained(mac::label(row.keysText()));
        [self addSubview:_letterLabel.get()];
        [self addSubview:_keysLabel.get()];
        [self showRow:row];
    }
    return self;
}

- (void)showRow:(const vanoka::LetterRow&)row {
    mac::setText(_letterLabel.get(), row.letterText());
    mac::setText(_keysLabel.get(), row.keysText());
    [_dot.get() removeFromSuperview];
    _dot = {};
    if (const auto dot = row.dot()) {
        _dot = mac::Owned([[VanokaDotView alloc] initWithDot:*dot]);
        [self showDotOnBackground];
        [self addSubview:_dot.get()];
    }
    [self setAccessibilityLabel:mac::string(row.spokenText())];
    [self placeSubviews];
}

/// The table says so when the row is selected, and texts take their colours by themselves.
- (void)setBackgroundStyle:(NSBackgroundStyle)style {
    [super setBackgroundStyle:style];
    [self showDotOnBackground];
}

- (void)showDotOnBackground {
    [_dot.get() setOnSelection:[self backgroundStyle] == NSBackgroundStyleEmphasized];
}

- (void)setFrameSize:(NSSize)size {
    [super setFrameSize:size];
    [self placeSubviews];
}

- (void)placeSubviews {
    constexpr CGFloat space = 8;
    const NSSize size = [self bounds].size;
    const CGFloat middle = size.height / 2;
    const NSSize dotSize = [_dot.get() frame].size;
    const CGFloat keysStart = vanoka::LetterRow::letterWidth + space;
    const CGFloat keysEnd = size.width - space - (_dot.get() ? dotSize.width + space : 0);
    const CGFloat keysWidth = std::max<CGFloat>(0, keysEnd - keysStart);
    mac::placeAt(_letterLabel.get(), 0, middle,
                 NSMakeSize(vanoka::LetterRow::letterWidth, mac::heightOfLabel(_letterLabel.get(), 1000)));
    mac::placeAt(_keysLabel.get(), keysStart, middle,
                 NSMakeSize(keysWidth, mac::heightOfLabel(_keysLabel.get(), 1000)));
    mac::placeAt(_dot.get(), size.width - space - dotSize.width, middle, dotSize);
}

@end
