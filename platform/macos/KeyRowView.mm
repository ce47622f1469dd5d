#import "KeyRowView.h"

#import "ExceptionBoundary.h"
#import "Strings.h"
#import "Styles.h"
#import "Widgets.h"

#include <algorithm>

namespace mac = vanoka::mac;

namespace {

/// Makes the control of a row.
struct ControlMaker {
    id target;
    SEL action;

    NSControl* operator()(const vanoka::SymbolButton& symbol) const {
        NSButton* made = mac::autoreleased([[NSButton alloc] initWithFrame:NSZeroRect]);
        [made setButtonType:NSButtonTypeMomentaryChange];
        [made setBordered:NO];
        [made setImagePosition:NSImageOnly];
        [made setTitle:@""];
        [made setImage:[NSImage imageWithSystemSymbolName:mac::string(symbol.symbol)
                                 accessibilityDescription:mac::string(symbol.help)]];
        [made setContentTintColor:mac::colour(symbol.colour)];
        mac::setHelp(made, symbol.help);
        return aimed(made);
    }

    NSControl* operator()(const vanoka::Switch& onOff) const {
        NSSwitch* made = mac::autoreleased([[NSSwitch alloc] initWithFrame:NSZeroRect]);
        mac::setHelp(made, onOff.help);
        aimed(made);
        constexpr CGFloat leastWidth = 38,
                          leastHeight = 21; // of a switch, where it does not know its own size
        const NSSize size = [made frame].size;
        [made setFrameSize:NSMakeSize(std::max(size.width, leastWidth), std::max(size.height, leastHeight))];
        return made;
    }

    NSControl* operator()(const vanoka::Button& button) const { return mac::button(button, target, action); }

    NSControl* aimed(NSControl* made) const {
        [made setTarget:target];
        [made setAction:action];
        [made sizeToFit];
        return made;
    }
};

} // namespace

@implementation VanokaKeyRowView

- (instancetype)initWithRow:(const vanoka::KeyRow&)row content:(vanoka::SettingsView*)content {
    if ((self = [super initWithFrame:NSZeroRect])) {
        _content = content;
        _keyLabel = mac::retained(mac::label(row.keyText()));
        _noteLabel = mac::retained(mac::label({}));
        _control = mac::retained(std::visit(ControlMaker { self, @selector(useControl:) }, row.control()));
        [self addSubview:_keyLabel.get()];
        [self addSubview:_noteLabel.get()];
        [self addSubview:_control.get()];
        [self showRow:row];
    }
    return self;
}

- (BOOL)takesRow:(const vanoka::KeyRow&)row {
    const BOOL isSame = row.state.key == _row->state.key && row.control().index() == _row->control().index();
    if (isSame && row != *_row)
        [self showRow:row];
    return isSame;
}

- (void)showRow:(const vanoka::KeyRow&)row {
    _row = row;
    mac::setText(_keyLabel.get(), row.keyText());
    mac::setText(_noteLabel.get(), row.note().value_or(vanoka::StyledText{}));
    const auto control = row.control();
    if (const auto* onOff = std::get_if<vanoka::Switch>(&control))
        [(NSSwitch*)_control.get() setState:onOff->isOn ? NSControlStateValueOn : NSControlStateValueOff];
    if (const auto* button = std::get_if<vanoka::Button>(&control))
        mac::setButton((NSButton*)_control.get(), *button);
    [_control.get() setAccessibilityLabel:mac::string(row.spokenControl())];
    [self placeSubviews];
}

- (void)useControl:(id)sender {
    (void)sender;
    mac::guarded([&] { _content->perform(_row->edit()); });
}

- (void)setFrameSize:(NSSize)size {
    [super setFrameSize:size];
    [self placeSubviews];
}

- (void)placeSubviews {
    constexpr CGFloat space = 8;
    const NSSize size = [self bounds].size;
    const CGFloat middle = size.height / 2;
    const NSSize controlSize = [_control.get() frame].size;
    const CGFloat controlStart = size.width - controlSize.width;
    const CGFloat keyWidth = std::max<CGFloat>(vanoka::KeyRow::keyWidth, mac::widthOfLabel(_keyLabel.get()));
    const CGFloat noteWidth = std::max<CGFloat>(0, controlStart - keyWidth - 2 * space);
    mac::placeAt(_keyLabel.get(), 0, middle, NSMakeSize(keyWidth, mac::heightOfLabel(_keyLabel.get(), 1000)));
    mac::placeAt(_noteLabel.get(), keyWidth + space, middle,
                 NSMakeSize(noteWidth, mac::heightOfLabel(_noteLabel.get(), 1000)));
    mac::placeAt(_control.get(), controlStart, middle, controlSize);
}

@end
