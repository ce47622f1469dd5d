#import "DetailView.h"

#import "Widgets.h"

namespace mac = vanoka::mac;

@implementation VanokaDetailView

- (instancetype)initWithFrame:(NSRect)frame content:(vanoka::SettingsView*)content {
    if ((self = [super initWithFrame:frame])) {
        _content = content;
        _scroll = mac::Owned([[NSScrollView alloc] initWithFrame:[self bounds]]);
        [_scroll.get() setHasVerticalScroller:YES];
        [_scroll.get() setAutohidesScrollers:YES];
        [_scroll.get() setBorderType:NSNoBorder];
        [_scroll.get() setDrawsBackground:NO];
        _editor = mac::Owned([[VanokaLetterEditorView alloc] initWithContent:content]);
        [_scroll.get() setDocumentView:_editor.get()];
        _placeholder = mac::retained(mac::label(vanoka::SettingsView::placeholder()));
        [self addSubview:_scroll.get()];
        [self addSubview:_placeholder.get()];
        [self placeSubviews];
        [self showContent];
    }
    return self;
}

- (void)showContent {
    const vanoka::LetterEditor* editor = _content->editor();
    [_scroll.get() setHidden:editor == nullptr];
    [_placeholder.get() setHidden:editor != nullptr];
    if (!editor)
        return;
    [_editor.get() showEditor:*editor];
    if (_shownLetter != editor->letter().id) {
        _shownLetter = editor->letter().id;
        [_editor.get() scrollPoint:NSZeroPoint];
    }
}

- (void)setFrameSize:(NSSize)size {
    [super setFrameSize:size];
    [self placeSubviews];
}

- (void)placeSubviews {
    const NSRect bounds = [self bounds];
    [_scroll.get() setFrame:bounds];
    [_editor.get() fitWidth:[_scroll.get() contentSize].width];
    const CGFloat width = mac::widthOfLabel(_placeholder.get());
    mac::placeAt(_placeholder.get(), (bounds.size.width - width) / 2, bounds.size.height / 2,
                 NSMakeSize(width, mac::heightOfLabel(_placeholder.get(), width)));
}

@end
