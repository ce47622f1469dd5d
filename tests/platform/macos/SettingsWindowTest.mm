#import "InputController.h"
#import "LinkButton.h"
#import "MainMenu.h"
#import "Memory.h"
#import "RecordingApplication.h"
#import "ShownSettings.h"
#import "Strings.h"

/// The platform's; `vanoka` has one of the same name.
typedef VanokaInputController Controller;

namespace vanoka::test {

namespace {

TEST_F(ShownSettings, HasItsTitleStyleAndSize) {
    EXPECT_EQ(mac::utf8([shown title]), "Vanoka Settings");
    EXPECT_EQ([shown styleMask] & 15U, 15U) << "titled, closable, miniaturizable, resizable";
    EXPECT_FALSE([shown isReleasedWhenClosed]);
    EXPECT_EQ([shown contentMinSize].width, 660);
    EXPECT_EQ([shown contentMinSize].height, 460);
    EXPECT_TRUE([shown isVisible]);
}

TEST_F(ShownSettings, ComesToTheFrontAndToWhereTheUserIsWhetherOrNotTheApplicationIsActivated) {
    EXPECT_EQ([shown collectionBehavior], NSWindowCollectionBehaviorMoveToActiveSpace);
    auto& orders = [RecordingApplication shared]->frontOrders;
    orders.clear();
    window->show(false);
    EXPECT_EQ(orders, (std::vector<std::string>{"unhidden application", "application",
                                                "Vanoka Settings: key and front",
                                                "Vanoka Settings: front regardless"}));
}

TEST_F(ShownSettings, ShowsEveryLetterUnderItsGroup) {
    SettingsView content(settings);
    for (const auto& section : content.sidebar()) {
        EXPECT_NE([table() delegate], nil);
        for (const auto& row : section.rows) {
            expectShown(row.letterText());
            expectShown(row.keysText());
        }
    }
}

TEST_F(ShownSettings, ShowsTheFooterWithItsLinks) {
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

TEST_F(ShownSettings, ShowsTheEditorOfEachLetter) {
    for (const auto& letter : SinglishScheme::letters()) {
        choose(std::string(letter.id));
        expectEditorShown(LetterEditor(letter, settings));
    }
}

TEST_F(ShownSettings, NothingIsCutOffAtTheSides) {
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

TEST_F(ShownSettings, WithoutALetterItAsksForOne) {
    [table() deselectAll:nil];
    turn();
    expectShown(SettingsView::placeholder());
    EXPECT_EQ(field(), nil);
    choose(ka);
    EXPECT_EQ(label(SettingsView::placeholder().text), nil);
    EXPECT_NE(field(), nil);
}

TEST_F(ShownSettings, AddsTheDraftByButtonAndByReturn) {
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

TEST_F(ShownSettings, EachKindOfKeyControlDoesItsEdit) {
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

TEST_F(ShownSettings, ResetsAfterAsking) {
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

TEST_F(ShownSettings, ClosingHidesItAndShowingBringsItBack) {
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
    RecordingApplication* recording = [RecordingApplication shared];
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
    (void)[RecordingApplication shared];
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

} // namespace

} // namespace vanoka::test
