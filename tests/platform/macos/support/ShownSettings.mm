#import "ShownSettings.h"

#import "MainMenu.h"
#import "Memory.h"
#import "RecordingApplication.h"
#import "Strings.h"
#import "Styles.h"

/// Comes after all that was due before it.
@interface EndOfTurn : NSObject {
@public
    bool hasCome;
}
@end

@implementation EndOfTurn
- (void)come {
    hasCome = true;
}
@end

namespace vanoka::test {

namespace {

void collect(NSView* view, Class kind, NSMutableArray* found) {
    if ([view isHidden])
        return;
    if ([view isKindOfClass:kind])
        [found addObject:view];
    for (NSView* inner in [view subviews])
        collect(inner, kind, found);
}

bool looksLike(NSTextField* label, const StyledText& text) {
    NSFont* font = mac::font(text.font);
    return [[[label font] fontName] isEqual:[font fontName]] &&
           [[label font] pointSize] == [font pointSize] &&
           [[label textColor] isEqual:mac::colour(text.colour)];
}

} // namespace

ShownSettings::ShownSettings() {
    (void)[RecordingApplication shared];
    mac::installMainMenu(mac::MainMenuFor::server);
    window.emplace(settings, toolkit);
    window->show(false);
    for (NSWindow* each in [NSApp windows])
        if ([[each title] isEqualToString:@"Vanoka Settings"] && [each isVisible])
            shown = each;
    for (NSInteger row = 0; row < [table() numberOfRows]; ++row) // as if all were in sight
        [table() viewAtColumn:0 row:row makeIfNecessary:YES];
    turn();
}

ShownSettings::~ShownSettings() {
    window.reset();
    [pool drain];
}

void ShownSettings::turn() {
    EndOfTurn* end = mac::autoreleased([[EndOfTurn alloc] init]);
    [end performSelector:@selector(come) withObject:nil afterDelay:0];
    while (!end->hasCome)
        [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode
                                 beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.001]];
}

NSArray* ShownSettings::all(Class kind) {
    NSMutableArray* found = [NSMutableArray array];
    collect([shown contentView], kind, found);
    return found;
}

NSTextField* ShownSettings::label(const std::string& text) {
    for (NSTextField* field in all([NSTextField class]))
        if (![field isEditable] && mac::utf8([field stringValue]) == text)
            return field;
    return nil;
}

NSTextField* ShownSettings::field() {
    for (NSTextField* each in all([NSTextField class]))
        if ([each isEditable])
            return each;
    return nil;
}

NSButton* ShownSettings::button(NSString* title) {
    for (NSButton* each in all([NSButton class]))
        if ([[each title] isEqualToString:title])
            return each;
    return nil;
}

NSControl* ShownSettings::spoken(const std::string& name) {
    for (NSControl* each in all([NSControl class]))
        if (mac::utf8([each accessibilityLabel]) == name)
            return each;
    return nil;
}

NSButton* ShownSettings::resetButton() {
    for (NSToolbarItem* item in [[shown toolbar] items])
        if ([[item view] isKindOfClass:[NSButton class]])
            return (NSButton*)[item view];
    return nil;
}

NSTableView* ShownSettings::table() {
    return [all([NSTableView class]) lastObject];
}

void ShownSettings::send(NSControl* control) {
    [NSApp sendAction:[control action] to:[control target] from:control];
}

void ShownSettings::choose(const std::string& letter) {
    NSInteger row = 0;
    for (const auto& section : SettingsView(settings).sidebar()) {
        ++row;
        for (const auto& each : section.rows) {
            if (each.letter.id == letter)
                [table() selectRowIndexes:[NSIndexSet indexSetWithIndex:static_cast<NSUInteger>(row)]
                     byExtendingSelection:NO];
            ++row;
        }
    }
    turn();
}

void ShownSettings::enter(const std::string& text) {
    [field() setStringValue:mac::string(text)];
    [(id)[field() delegate]
        controlTextDidChange:[NSNotification notificationWithName:NSControlTextDidChangeNotification
                                                           object:field()]];
    turn();
}

void ShownSettings::expectShown(const StyledText& text) {
    for (NSTextField* each in all([NSTextField class]))
        if (mac::utf8([each stringValue]) == text.text && looksLike(each, text))
            return;
    ADD_FAILURE() << text.text << " is not shown, or not with its looks";
}

void ShownSettings::expectEditorShown(const LetterEditor& editor) {
    for (const StyledText& text :
         {editor.letterText(), editor.kind(), editor.example(), editor.message(), editor.footnote()})
        expectShown(text);
    for (const KeyRow& row : editor.keyRows()) {
        expectShown(row.keyText());
        if (row.note())
            expectShown(*row.note());
        ASSERT_NE(spoken(row.spokenControl()), nil) << row.spokenControl();
        EXPECT_NE([spoken(row.spokenControl()) action], static_cast<SEL>(nullptr));
    }
    EXPECT_EQ(mac::utf8([field() stringValue]), editor.draft());
    EXPECT_EQ([button(@"Add") isEnabled], editor.addButton().isEnabled);
}

} // namespace vanoka::test
