#import "LetterEditorView.h"

#import "ExceptionBoundary.h"
#import "Strings.h"
#import "Styles.h"
#import "Widgets.h"

#include <algorithm>

namespace mac = vanoka::mac;

namespace {

// In points.
constexpr CGFloat margin = 20;
constexpr CGFloat gap = 8;
constexpr CGFloat boxPadding = 10;
constexpr CGFloat rowHeight = 34;
constexpr CGFloat fieldWidth = 180;

/// The frame of a section, behind what is in it.
NSBox* box() {
    NSBox* made = mac::autoreleased([[NSBox alloc] initWithFrame:NSZeroRect]);
    [made setTitlePosition:NSNoTitle];
    return made;
}

NSTextField* keyField(const vanoka::TextField& field) {
    NSTextField* made = mac::autoreleased([[NSTextField alloc] initWithFrame:NSZeroRect]);
    [made setBezeled:YES];
    [made setBezelStyle:NSTextFieldRoundedBezel];
    [made setFont:mac::font(field.font)];
    [[made cell] setPlaceholderString:mac::string(field.prompt)];
    [[made cell] setScrollable:YES];
    // Return sends the action; leaving the field must not.
    [[made cell] setSendsActionOnEndEditing:NO];
    [made setAccessibilityLabel:mac::string(field.label)];
    return made;
}

} // namespace

@implementation VanokaLetterEditorView

- (instancetype)initWithContent:(vanoka::SettingsView*)content {
    if ((self = [super initWithFrame:NSMakeRect(0, 0, 400, 400)])) {
        _content = content;
        _letterLabel = mac::retained(mac::label({}));
        _kindLabel = mac::retained(mac::label({}));
        _exampleLabel = mac::retained(mac::wrappingLabel({}));
        _keysTitle = mac::retained(mac::label(vanoka::LetterEditor::keysTitle()));
        _keysBox = mac::retained(box());
        _addTitle = mac::retained(mac::label(vanoka::LetterEditor::addTitle()));
        _addBox = mac::retained(box());
        _messageLabel = mac::retained(mac::wrappingLabel({}));
        _footnoteLabel = mac::retained(mac::wrappingLabel({}));
        NSView* const shown[] = {_letterLabel.get(), _kindLabel.get(),    _exampleLabel.get(),
                                 _keysTitle.get(),   _keysBox.get(),      _addTitle.get(),
                                 _addBox.get(),      _messageLabel.get(), _footnoteLabel.get()};
        for (NSView* view : shown)
            [self addSubview:view];
    }
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

- (void)showEditor:(const vanoka::LetterEditor&)editor {
    mac::setText(_letterLabel.get(), editor.letterText());
    mac::setText(_kindLabel.get(), editor.kind());
    mac::setText(_exampleLabel.get(), editor.example());
    [self showKeyRows:editor.keyRows()];
    [self showField:editor.field()];
    [self showAddButton:editor.addButton()];
    mac::setText(_messageLabel.get(), editor.message());
    mac::setText(_footnoteLabel.get(), editor.footnote());
    [self fitWidth:[self frame].size.width];
}

/// Keeps the rows that are there as long as they can show what is asked for: a control in use keeps the
/// keyboard's focus.
- (void)showKeyRows:(const std::vector<vanoka::KeyRow>&)rows {
    bool isKept = rows.size() == _keyRows.size();
    for (std::size_t i = 0; isKept && i < rows.size(); ++i)
        isKept = [_keyRows[i].get() takesRow:rows[i]];
    if (isKept)
        return;
    for (const auto& old : _keyRows)
        [old.get() removeFromSuperview];
    _keyRows.clear();
    for (const vanoka::KeyRow& row : rows) {
        _keyRows.emplace_back([[VanokaKeyRowView alloc] initWithRow:row content:_content]);
        [self addSubview:_keyRows.back().get()];
    }
}

- (void)showField:(const vanoka::TextField&)field {
    if (!_field.get()) {
        _field = mac::retained(keyField(field));
        [_field.get() setDelegate:self];
        [_field.get() setTarget:self];
        [_field.get() setAction:@selector(addDraft:)];
        [self addSubview:_field.get()];
    }
    if (mac::utf8([_field.get() stringValue]) == field.text)
        return;
    const bool hadFocus = [_field.get() currentEditor] != nil;
    [_field.get() setStringValue:mac::string(field.text)];
    if (hadFocus && ![_field.get() currentEditor])
        [[self window] makeFirstResponder:_field.get()];
}

- (void)showAddButton:(const vanoka::Button&)button {
    if (_addButton.get()) {
        mac::setButton(_addButton.get(), button);
        return;
    }
    _addButton = mac::retained(mac::button(button, self, @selector(addDraft:)));
    [self addSubview:_addButton.get()];
}

- (void)controlTextDidChange:(NSNotification*)notification {
    (void)notification;
    mac::guarded([&] { _content->setDraft(mac::utf8([_field.get() stringValue]).value_or("")); });
}

/// Both the field and the button send this, and Return may send it twice: the second finds nothing to add.
- (void)addDraft:(id)sender {
    (void)sender;
    mac::guarded([&] { _content->addDraft(); });
}

- (void)fitWidth:(CGFloat)width {
    const CGFloat height = [self placeSubviewsInWidth:width];
    [self setFrameSize:NSMakeSize(width, height)];
}

/// Returns the height that they take.
- (CGFloat)placeSubviewsInWidth:(CGFloat)width {
    if (!_field.get()) // no letter has been shown
        return 0;
    CGFloat y = [self placeHeaderInWidth:width] + margin;
    y = [self placeKeysAt:y width:width] + margin;
    return [self placeAddingAt:y width:width] + margin;
}

- (CGFloat)placeHeaderInWidth:(CGFloat)width {
    const CGFloat letterWidth = mac::widthOfLabel(_letterLabel.get());
    const CGFloat letterHeight = mac::heightOfLabel(_letterLabel.get(), letterWidth);
    const CGFloat columnStart = margin + letterWidth + 2 * gap;
    const CGFloat columnWidth = std::max<CGFloat>(0, width - columnStart - margin);
    const CGFloat kindHeight = mac::heightOfLabel(_kindLabel.get(), columnWidth);
    const CGFloat exampleHeight = mac::heightOfLabel(_exampleLabel.get(), columnWidth);
    const CGFloat columnHeight = kindHeight + 4 + exampleHeight;
    const CGFloat height = std::max(letterHeight, columnHeight);
    const CGFloat columnTop = margin + (height - columnHeight) / 2;
    [_letterLabel.get() setFrame:NSMakeRect(margin, margin, letterWidth, letterHeight)];
    [_kindLabel.get() setFrame:NSMakeRect(columnStart, columnTop, columnWidth, kindHeight)];
    [_exampleLabel.get()
        setFrame:NSMakeRect(columnStart, columnTop + kindHeight + 4, columnWidth, exampleHeight)];
    return margin + height;
}

- (CGFloat)placeKeysAt:(CGFloat)top width:(CGFloat)width {
    const CGFloat innerWidth = width - 2 * margin;
    const CGFloat titleHeight = mac::heightOfLabel(_keysTitle.get(), innerWidth);
    [_keysTitle.get() setFrame:NSMakeRect(margin, top, innerWidth, titleHeight)];
    const CGFloat boxTop = top + titleHeight + gap / 2;
    CGFloat y = boxTop + boxPadding / 2;
    for (const auto& row : _keyRows) {
        [row.get() setFrame:NSMakeRect(margin + boxPadding, y, innerWidth - 2 * boxPadding, rowHeight)];
        y += rowHeight;
    }
    y += boxPadding / 2;
    [_keysBox.get() setFrame:NSMakeRect(margin, boxTop, innerWidth, y - boxTop)];
    return y;
}

- (CGFloat)placeAddingAt:(CGFloat)top width:(CGFloat)width {
    const CGFloat innerWidth = width - 2 * margin;
    const CGFloat left = margin + boxPadding;
    const CGFloat lineWidth = innerWidth - 2 * boxPadding;
    const CGFloat titleHeight = mac::heightOfLabel(_addTitle.get(), innerWidth);
    [_addTitle.get() setFrame:NSMakeRect(margin, top, innerWidth, titleHeight)];
    const CGFloat boxTop = top + titleHeight + gap / 2;

    const NSSize buttonSize = [_addButton.get() frame].size;
    const CGFloat fieldHeight = std::max<CGFloat>(22, mac::heightOfLabel(_field.get(), fieldWidth));
    const CGFloat lineHeight = std::max(fieldHeight, buttonSize.height);
    const CGFloat middle = boxTop + boxPadding + lineHeight / 2;
    mac::placeAt(_field.get(), left, middle, NSMakeSize(fieldWidth, fieldHeight));
    mac::placeAt(_addButton.get(), left + fieldWidth + gap, middle, buttonSize);

    const CGFloat messageTop = boxTop + boxPadding + lineHeight + gap;
    const CGFloat messageHeight = mac::heightOfLabel(_messageLabel.get(), lineWidth);
    [_messageLabel.get() setFrame:NSMakeRect(left, messageTop, lineWidth, messageHeight)];
    const CGFloat boxBottom = messageTop + messageHeight + boxPadding;
    [_addBox.get() setFrame:NSMakeRect(margin, boxTop, innerWidth, boxBottom - boxTop)];

    const CGFloat footnoteHeight = mac::heightOfLabel(_footnoteLabel.get(), innerWidth);
    [_footnoteLabel.get() setFrame:NSMakeRect(margin, boxBottom + gap / 2, innerWidth, footnoteHeight)];
    return boxBottom + gap / 2 + footnoteHeight;
}

@end
