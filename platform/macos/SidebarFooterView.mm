#import "SidebarFooterView.h"

#import "Widgets.h"

namespace mac = vanoka::mac;

namespace {

// In points.
constexpr CGFloat margin = 12;
constexpr CGFloat gap = 8;
constexpr CGFloat linkGap = 4;
constexpr CGFloat iconSize = vanoka::SettingsView::Footer::iconSize;

NSBox* divider() {
    NSBox* made = mac::autoreleased([[NSBox alloc] initWithFrame:NSZeroRect]);
    [made setBoxType:NSBoxSeparator];
    [made setTitlePosition:NSNoTitle];
    return made;
}

} // namespace

@implementation VanokaSidebarFooterView

- (instancetype)initWithFooter:(const vanoka::SettingsView::Footer&)footer {
    if ((self = [super initWithFrame:NSZeroRect])) {
        [self setMaterial:NSVisualEffectMaterialTitlebar];
        [self setBlendingMode:NSVisualEffectBlendingModeWithinWindow];
        _divider = mac::retained(divider());
        _icon = mac::Owned([[NSImageView alloc] initWithFrame:NSZeroRect]);
        [_icon.get() setImage:[NSApp applicationIconImage]];
        [_icon.get() setImageScaling:NSImageScaleProportionallyUpOrDown];
        _name = mac::retained(mac::label(footer.name));
        _sinhalaName = mac::retained(mac::label(footer.sinhalaName));
        NSView* const shown[] = {_divider.get(), _icon.get(), _name.get(), _sinhalaName.get()};
        for (NSView* view : shown)
            [self addSubview:view];
        for (const vanoka::Link& link : footer.links) {
            _links.emplace_back([[VanokaLinkButton alloc] initWithLink:link]);
            [self addSubview:_links.back().get()];
        }
    }
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

- (CGFloat)height {
    return [self placeSubviewsInWidth:[self bounds].size.width];
}

- (void)setFrameSize:(NSSize)size {
    [super setFrameSize:size];
    [self placeSubviewsInWidth:[self bounds].size.width];
}

/// Returns the height that they take.
- (CGFloat)placeSubviewsInWidth:(CGFloat)width {
    [_divider.get() setFrame:NSMakeRect(0, 0, width, 1)];
    [_icon.get() setFrame:NSMakeRect(margin, margin, iconSize, iconSize)];
    const CGFloat namesStart = margin + iconSize + gap;
    const CGFloat namesWidth = width - namesStart - margin;
    const CGFloat nameHeight = mac::heightOfLabel(_name.get(), namesWidth);
    const CGFloat sinhalaHeight = mac::heightOfLabel(_sinhalaName.get(), namesWidth);
    const CGFloat namesTop = margin + (iconSize - nameHeight - sinhalaHeight) / 2;
    [_name.get() setFrame:NSMakeRect(namesStart, namesTop, namesWidth, nameHeight)];
    [_sinhalaName.get() setFrame:NSMakeRect(namesStart, namesTop + nameHeight, namesWidth, sinhalaHeight)];
    CGFloat y = margin + iconSize + gap;
    for (const auto& link : _links) {
        const NSSize size = [link.get() frame].size;
        [link.get() setFrame:NSMakeRect(margin, y, size.width, size.height)];
        y += size.height + linkGap;
    }
    return y - linkGap + margin;
}

@end
