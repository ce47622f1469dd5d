#import "GroupTitleView.h"

#import "Widgets.h"

namespace mac = vanoka::mac;

@implementation VanokaGroupTitleView

- (instancetype)initWithTitle:(const vanoka::StyledText&)title {
    if ((self = [super initWithFrame:NSZeroRect])) {
        _title = mac::retained(mac::label(title));
        [self addSubview:_title.get()];
    }
    return self;
}

- (void)setFrameSize:(NSSize)size {
    [super setFrameSize:size];
    mac::placeAt(_title.get(), 0, size.height / 2,
                 NSMakeSize(size.width, mac::heightOfLabel(_title.get(), size.width)));
}

@end
