#import "AppKitToolkit.h"
#import "InputController.h"
#import "LinkButton.h"
#import "MainMenu.h"
#import "Memory.h"
#import "Strings.h"
#import "Styles.h"

#include "AboutPanel.h"
#include "SettingsWindow.h"

#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

/// Writes down what the panel is asked for.
@interface RecordingApplication : NSApplication {
@public
    NSMutableArray* aboutOptions;
    NSInteger activations;
}
@end

@implementation RecordingApplication
- (void)orderFrontStandardAboutPanelWithOptions:(NSDictionary*)options {
    if (!aboutOptions)
        aboutOptions = [[NSMutableArray alloc] init];
    [aboutOptions addObject:options];
}
- (void)activateIgnoringOtherApps:(BOOL)flag {
    (void)flag;
    ++activations;
}
@end

/// The platform's; `vanoka` has one of the same name.
typedef VanokaInputController Controller;

namespace vanoka {

namespace {

constexpr const char* ka = "\u0D9A";

RecordingApplication* application() {
    return (RecordingApplication*)[RecordingApplication sharedApplication];
}

void collect(NSView* view, Class kind, NSMutableArray* found) {
    if ([view isHidden])
        return;
    if ([view isKindOfClass:kind])
        [found addObject:view];
    for (NSView* inner in [view subviews])
        collect(inner, kind, found);
}

class SettingsWindowMacTest : public testing::Test {
protected:
    SettingsWindowMacTest() {
        (void)application();
        mac::installMainMenu(mac::MainMenuFor::server);
        window.emplace(settings, toolkit);
        window->show(false);
        shown = [[NSApp windows] lastObject];
        for (NSWindow* each in [NSApp windows])
            if ([[each title] isEqualToString:@"Vanoka Settings"] && [each isVisible])
                shown = each;
        for (NSInteger row = 0; row < [table() numberOfRows]; ++row) // as if all were in sight
            [table() viewAtColumn:0 row:row makeIfNecessary:YES];
        turn();
    }
    ~SettingsWindowMacTest() override {
        window.reset();
        [pool drain];
    }

    /// Lets the event loop turn, so that what is due is drawn.
    void turn() { [[NSRunLoop currentRunLoop] runUntilDate:[NSDate dateWithTimeIntervalSinceNow:0.02]]; }

    NSArray* all(Class kind) {
        NSMutableArray* found = [NSMutableArray array];
        collect([shown contentView], kind, found);
        return found;
    }
    NSTextField* label(const std::string& text) {
        for (NSTextField* field in all([NSTextField class]))
            if (![field isEditable] && mac::utf8([field stringValue]) == text)
                return field;
        return nil;
    }
    NSTextField* field() {
        for (NSTextField* each in all([NSTextField class]))
            if ([each isEditable])
                return each;
        return nil;
    }
    NSButton* button(NSString* title) {
        for (NSButton* each in all([NSButton class]))
            if ([[each title] isEqualToString:title])
                return each;
        return nil;
    }
    NSControl* spoken(const std::string& name) {
        for (NSControl* each in all([NSControl class]))
            if (mac::utf8([each accessibilityLabel]) == name)
                return each;
        return nil;
    }
    NSButton* resetButton() {
        for (NSToolbarItem* item in [[shown toolbar] items])
            if ([[item view] isKindOfClass:[NSButton class]])
                return (NSButton*)[item view];
        return nil;
    }
    NSTableView* table() { return [all([NSTableView class]) lastObject]; }
    void send(NSControl* control) { [NSApp sendAction:[control action] to:[control target] from:control]; }
    void choose(const std::string& letter) {
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
    void enter(const std::string& text) {
        [field() setStringValue:mac::string(text)];
        [(id)[field() delegate]
            controlTextDidChange:[NSNotification notificationWithName:NSControlTextDidChangeNotification
                                                               object:field()]];
        turn();
    }
    void expectShown(const StyledText& text) {
        for (NSTextField* each in all([NSTextField class]))
            if (mac::utf8([each stringValue]) == text.text && looksLike(each, text))
                return;
        ADD_FAILURE() << text.text << " is not shown, or not with its looks";
    }
    static bool looksLike(NSTextField* label, const StyledText& text) {
        NSFont* font = mac::font(text.font);
        return [[[label font] fontName] isEqual:[font fontName]] &&
               [[label font] pointSize] == [font pointSize] &&
               [[label textColor] isEqual:mac::colour(text.colour)];
    }
    /// Everything that the editor of the content says is on the screen.
    void expectEditorShown(const LetterEditor& editor) {
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

    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    MemoryUserDefaults defaults;
    SinglishSettings settings{defaults};
    mac::AppKitToolkit toolkit;
    std::optional<SettingsWindow> window;
    NSWindow* shown = nil;
};

TEST_F(SettingsWindowMacTest, HasItsTitleStyleAndSize) {
    EXPECT_EQ(mac::utf8([shown title]), "Vanoka Settings");
    EXPECT_EQ([shown styleMask] & 15U, 15U) << "titled, closable, miniaturizable, resizable";
    EXPECT_FALSE([shown isReleasedWhenClosed]);
    EXPECT_EQ([shown contentMinSize].width, 660);
    EXPECT_EQ([shown contentMinSize].height, 460);
    EXPECT_TRUE([shown isVisible]);
}

TEST_F(SettingsWindowMacTest, ShowsEveryLetterUnderItsGroup) {
    SettingsView content(settings);
    for (const auto& section : content.sidebar()) {
        EXPECT_NE([table() delegate], nil);
        for (const auto& row : section.rows) {
            expectShown(row.letterText());
            expectShown(row.keysText());
        }
    }
}

TEST_F(SettingsWindowMacTest, ShowsTheFooterWithItsLinks) {
    const auto footer = SettingsView(settings).footer();
    expectShown(footer.name);
    expectShown(footer.sinhalaName);
    NSArray* links = all([VanokaLinkButton class]);
    ASSERT_EQ([links count], footer.links.size());
    for (std::size_t i = 0; i < footer.links.size(); ++i) {
        NSButton* link = [links objectAtIndex:i];
        EXPECT_EQ(mac::utf8([[link attributedTitle] string]), footer.links[i].text.text);
        EXPECT_EQ(mac::utf8([link toolTip]), footer.links[i].address);
        EXPECT_TRUE([[link target] respondsToSelector:[link action]]);
    }
}

TEST_F(SettingsWindowMacTest, ShowsTheEditorOfEachLetter) {
    for (const auto& letter : SinglishScheme::letters()) {
        choose(std::string(letter.id));
        expectEditorShown(LetterEditor(letter, settings));
    }
}

TEST_F(SettingsWindowMacTest, NothingIsCutOffAtTheSides) {
    NSRect pane = [[shown contentView] bounds];
    for (NSTextField* each in all([NSTextField class])) {
        const NSRect frame = [each convertRect:[each bounds] toView:[shown contentView]];
        EXPECT_GE(NSMinX(frame), 0) << [[each stringValue] UTF8String];
        EXPECT_LE(NSMaxX(frame), pane.size.width) << [[each stringValue] UTF8String];
        EXPECT_EQ([each isBezeled], [each isEditable]) << [[each stringValue] UTF8String];
    }
    NSControl* control = spoken("On, a");
    EXPECT_GE([control frame].size.width, 38);
    const NSRect frame = [control convertRect:[control bounds] toView:[shown contentView]];
    EXPECT_GT(NSMaxX(frame), pane.size.width - 60) << "the pane is as wide as the window leaves it";
}

TEST_F(SettingsWindowMacTest, WithoutALetterItAsksForOne) {
    [table() deselectAll:nil];
    turn();
    expectShown(SettingsView::placeholder());
    EXPECT_EQ(field(), nil);
    choose(ka);
    EXPECT_EQ(label(SettingsView::placeholder().text), nil);
    EXPECT_NE(field(), nil);
}

TEST_F(SettingsWindowMacTest, AddsTheDraftByButtonAndByReturn) {
    choose(ka);
    enter("zq");
    EXPECT_TRUE([button(@"Add") isEnabled]);
    EXPECT_EQ(mac::utf8([button(@"Add") keyEquivalent]), "\r");
    send(button(@"Add"));
    turn();
    EXPECT_EQ(mac::utf8([field() stringValue]), "");
    EXPECT_NE(label("zq"), nil);
    enter("zw");
    send(field()); // Return
    EXPECT_EQ(settings.customization().addedKeys.size(), 2U);
    send(button(@"Add"));
    turn();
    EXPECT_EQ(settings.customization().addedKeys.size(), 2U) << "twice is once";
    enter("1");
    send(field());
    turn();
    EXPECT_EQ(mac::utf8([field() stringValue]), "1") << "what is refused stays";
    EXPECT_FALSE([button(@"Add") isEnabled]);
    expectShown(LetterEditor(*SinglishScheme::letter(ka), settings, "1").message());
}

TEST_F(SettingsWindowMacTest, EachKindOfKeyControlDoesItsEdit) {
    choose(ka);
    settings.add("zq", ka);
    turn();
    send(spoken("Remove this key, zq"));
    turn();
    EXPECT_TRUE(settings.customization().isEmpty());
    EXPECT_EQ(spoken("Remove this key, zq"), nil);

    NSSwitch* onOff = (NSSwitch*)spoken("On, k");
    ASSERT_TRUE([onOff isKindOfClass:[NSSwitch class]]);
    EXPECT_EQ([onOff state], NSControlStateValueOn);
    [onOff setState:NSControlStateValueOff];
    send(onOff);
    turn();
    EXPECT_EQ(settings.customization().disabledKeys.count("k"), 1U);
    EXPECT_EQ(spoken("On, k"), onOff) << "it is still the same control, with the focus";

    settings.reset();
    settings.add("k", "\u0DB8");
    turn();
    expectEditorShown(LetterEditor(*SinglishScheme::letter(ka), settings));
    send(spoken("Take back, k"));
    turn();
    EXPECT_NE(spoken("On, k"), nil);
}

TEST_F(SettingsWindowMacTest, ResetsAfterAsking) {
    EXPECT_FALSE([resetButton() isEnabled]);
    settings.add("zq", ka);
    turn();
    ASSERT_TRUE([resetButton() isEnabled]);
    for (const bool confirms : {false, true}) {
        send(resetButton());
        turn();
        NSAlert* alert = [NSAlert shown];
        ASSERT_NE(alert, nil);
        EXPECT_EQ([NSAlert windowOfShown], shown);
        EXPECT_EQ(mac::utf8([alert messageText]), SettingsView::resetDialog().title);
        NSButton* confirm = [[alert buttons] objectAtIndex:0];
        EXPECT_EQ(mac::utf8([confirm title]), "Reset to Defaults");
        EXPECT_TRUE([confirm hasDestructiveAction]);
        [NSAlert answerShown:confirms ? NSAlertFirstButtonReturn : NSAlertSecondButtonReturn];
        turn();
        EXPECT_EQ(settings.customization().isEmpty(), confirms);
        EXPECT_EQ([resetButton() isEnabled], !confirms);
    }
}

TEST_F(SettingsWindowMacTest, ClosingHidesItAndShowingBringsItBack) {
    choose(ka);
    enter("zq");
    [shown close];
    EXPECT_FALSE([shown isVisible]);
    window->show(false);
    turn();
    EXPECT_TRUE([shown isVisible]);
    EXPECT_EQ(mac::utf8([field() stringValue]), "zq");
}

TEST(InputMenu, HasTwoItemsWhoseActionsReachTheController) {
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    RecordingApplication* recording = application();
    mac::Owned<Controller> controller([[Controller alloc] init]);
    NSMenu* menu = [controller.get() menu];
    EXPECT_NE([controller.get() menu], menu) << "a new one each time";
    ASSERT_EQ([menu numberOfItems], 2);
    struct Row {
        const char* title;
        SEL action;
    };
    const Row rows[] = {{"Vanoka Settings\u2026", @selector(showSettings:)},
                        {"About Vanoka", @selector(showAbout:)}};
    for (NSInteger i = 0; i < 2; ++i) {
        NSMenuItem* item = (NSMenuItem*)[menu itemAtIndex:i];
        EXPECT_EQ(mac::utf8([item title]), rows[i].title);
        EXPECT_TRUE(sel_isEqual([item action], rows[i].action));
        EXPECT_EQ(mac::utf8([item keyEquivalent]), "");
        EXPECT_EQ([item target], nil);
    }
    [recording->aboutOptions removeAllObjects];
    [controller.get() doCommandBySelector:[(NSMenuItem*)[menu itemAtIndex:1] action] commandDictionary:@{}];
    EXPECT_EQ([recording->aboutOptions count], 1U);
    const auto visible = [] {
        int count = 0;
        for (NSWindow* each in [NSApp windows])
            count += [each isVisible] && [[each title] isEqualToString:@"Vanoka Settings"];
        return count;
    };
    EXPECT_EQ(visible(), 0);
    for (int time = 0; time < 2; ++time) {
        [controller.get() doCommandBySelector:[(NSMenuItem*)[menu itemAtIndex:0] action]
                            commandDictionary:@{}];
        EXPECT_EQ(visible(), 1) << "one window, however often";
    }
    for (NSWindow* each in [NSApp windows])
        if ([each isVisible] && [[each title] isEqualToString:@"Vanoka Settings"])
            [each close]; // and the process goes on
    EXPECT_EQ(visible(), 0);
    [pool drain];
}

TEST(MainMenu, HasEditAndWindowItemsAndQuitsOnlyAnApplication) {
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    (void)application();
    for (const bool quits : {true, false}) {
        mac::installMainMenu(quits ? mac::MainMenuFor::application : mac::MainMenuFor::server);
        NSMenu* bar = [NSApp mainMenu];
        NSMenu* edit = [(NSMenuItem*)[bar itemWithTitle:@"Edit"] submenu];
        NSMenu* windows = [(NSMenuItem*)[bar itemWithTitle:@"Window"] submenu];
        for (NSString* title in @[ @"Undo", @"Redo", @"Cut", @"Copy", @"Paste", @"Select All" ])
            EXPECT_NE([edit itemWithTitle:title], nil) << [title UTF8String];
        EXPECT_TRUE(sel_isEqual([(NSMenuItem*)[edit itemWithTitle:@"Paste"] action], @selector(paste:)));
        EXPECT_TRUE(
            sel_isEqual([(NSMenuItem*)[windows itemWithTitle:@"Close"] action], @selector(performClose:)));
        EXPECT_TRUE([[(NSMenuItem*)[windows itemWithTitle:@"Close"] keyEquivalent] isEqualToString:@"w"]);
        NSMenu* first = [(NSMenuItem*)[bar itemWithTitle:@"Vanoka"] submenu];
        EXPECT_EQ([first itemWithTitle:@"Quit Vanoka"] != nil, quits);
    }
    [pool drain];
}

TEST(StandardAboutPanel, GetsTheNameAndTheCreditsAndNothingElse) {
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    RecordingApplication* recording = application();
    [recording->aboutOptions removeAllObjects];
    const NSInteger before = recording->activations;
    mac::AppKitToolkit toolkit;
    AboutPanel::show(toolkit);
    EXPECT_EQ(recording->activations, before + 1);
    ASSERT_EQ([recording->aboutOptions count], 1U);
    NSDictionary* options = [recording->aboutOptions objectAtIndex:0];
    ASSERT_EQ([options count], 2U);
    EXPECT_EQ(mac::utf8([options objectForKey:@"ApplicationName"]), AboutPanel::applicationName());
    NSAttributedString* credits = [options objectForKey:@"Credits"];
    const AttributedText expected = AboutPanel::credits();
    std::string whole;
    NSUInteger at = 0;
    for (const AttributedPiece& piece : expected) {
        NSDictionary* attributes = [credits attributesAtIndex:at effectiveRange:nullptr];
        NSURL* link = [attributes objectForKey:NSLinkAttributeName];
        EXPECT_EQ(mac::utf8([link absoluteString]), piece.attributes.link) << piece.text;
        EXPECT_EQ([(NSFont*)[attributes objectForKey:NSFontAttributeName] pointSize],
                  [NSFont smallSystemFontSize]);
        EXPECT_TRUE(
            [[attributes objectForKey:NSForegroundColorAttributeName] isEqual:[NSColor secondaryLabelColor]]);
        NSParagraphStyle* style = [attributes objectForKey:NSParagraphStyleAttributeName];
        EXPECT_EQ([style alignment], NSTextAlignmentCenter);
        EXPECT_EQ([style paragraphSpacing], 4);
        at += [mac::string(piece.text) length];
        whole += piece.text;
    }
    EXPECT_EQ(mac::utf8([credits string]), whole);
    [pool drain];
}

} // namespace

} // namespace vanoka
