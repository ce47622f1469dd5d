#import "InputController.h"

#import "Events.h"
#import "Memory.h"
#import "RecordingClient.h"
#import "Strings.h"

#include "Keys.h"
#include "Scenario.h"
#include "settings/SinglishSettings.h"

#include <gtest/gtest.h>
#include <stdexcept>

/// An object that has a bundle identifier and takes no text.
@interface NoTextClient : NSObject
- (NSString*)bundleIdentifier;
@end

@implementation NoTextClient
- (NSString*)bundleIdentifier {
    ADD_FAILURE() << "it is no client";
    return nil;
}
@end

/// An event without characters.
@interface EventWithoutCharacters : NSEvent
@end

@implementation EventWithoutCharacters
- (NSEventType)type {
    return static_cast<NSEventType>(NSEventTypeKeyDown);
}
- (NSUInteger)modifierFlags {
    return 0;
}
- (unsigned short)keyCode {
    return 10;
}
- (NSString*)characters {
    return nil;
}
@end

/// The platform's; `vanoka` has one of the same name.
typedef VanokaInputController Controller;

namespace vanoka {

namespace {

using mac::Owned;

Owned<RecordingClient> clientNamed(NSString* name) {
    return Owned([[RecordingClient alloc] initWithBundleIdentifier:name]);
}

class InputControllerTest : public testing::Test {
protected:
    InputControllerTest() { SinglishSettings::shared().reset(); }

    bool press(const KeyEvent& key) { return [controller() handleEvent:test::event(key) client:client()]; }

    /// Presses keys as a person does: the client gets what is not consumed.
    void type(std::string_view text) {
        for (const KeyEvent& key : test::keys(text))
            if (!press(key))
                field().apply(key);
    }

    Controller* controller() { return controller_.get(); }
    RecordingClient* client() { return client_.get(); }
    test::TextField& field() { return [client() field]; }

private:
    Owned<Controller> controller_{[[Controller alloc] init]};
    Owned<RecordingClient> client_ = clientNamed(@"com.example.editor");
};

TEST_F(InputControllerTest, ConsumesExactlyWhatTheTableSays) {
    struct Row {
        const char* key;
        bool idle, composing;     // consumed
        const char* idleText;     // what the input method puts in
        const char* composedText; // the same after k
    };
    const std::vector<Row> rows = {
        {"a", true, true, "", ""},
        {"Z", true, true, "", ""},
        {"<space>", false, true, "", "\u0D9A\u0DCA "},
        {"<escape>", false, true, "", "k"},
        {"<delete>", false, true, "", ""},
        {"1", false, true, "", "\u0D9A\u0DCA1"},
        {".", false, true, "", "\u0D9A\u0DCA."},
        {"\u00E9", false, true, "", "\u0D9A\u0DCA\u00E9"},
        {"\u0D9A", false, true, "", "\u0D9A\u0DCA\u0D9A"},
        {"<return>", false, false, "", "\u0D9A\u0DCA"},
        {"<enter>", false, false, "", "\u0D9A\u0DCA"},
        {"<tab>", false, false, "", "\u0D9A\u0DCA"},
        {"<up>", false, false, "", "\u0D9A\u0DCA"},
        {"<down>", false, false, "", "\u0D9A\u0DCA"},
        {"<left>", false, false, "", "\u0D9A\u0DCA"},
        {"<right>", false, false, "", "\u0D9A\u0DCA"},
        {"<home>", false, false, "", "\u0D9A\u0DCA"},
        {"<end>", false, false, "", "\u0D9A\u0DCA"},
        {"<pageup>", false, false, "", "\u0D9A\u0DCA"},
        {"<pagedown>", false, false, "", "\u0D9A\u0DCA"},
        {"<forwarddelete>", false, false, "", "\u0D9A\u0DCA"},
        {"<f1>", false, false, "", "\u0D9A\u0DCA"},
        {"<dead>", false, false, "", "\u0D9A\u0DCA"},
        {"<C-c>", false, false, "", "\u0D9A\u0DCA"},
        {"<A-a>", false, false, "", "\u0D9A\u0DCA"},
        {"<D-c>", false, false, "", "\u0D9A\u0DCA"},
        {"<C-space>", false, false, "", "\u0D9A\u0DCA"},
        {"<D-delete>", false, false, "", "\u0D9A\u0DCA"},
        {"<A-escape>", false, false, "", "\u0D9A\u0DCA"},
    };
    for (const Row& row : rows) {
        const KeyEvent key = *test::keyNamed(row.key);
        Owned<Controller> fresh([[Controller alloc] init]);
        Owned<RecordingClient> idle = clientNamed(@"com.example.idle");
        EXPECT_EQ([fresh.get() handleEvent:test::event(key) client:idle.get()], row.idle) << row.key;
        EXPECT_EQ([idle.get() field].text(), row.idleText) << row.key;

        Owned<Controller> composing([[Controller alloc] init]);
        Owned<RecordingClient> editor = clientNamed(@"com.example.editor");
        [composing.get() handleEvent:test::event({.characters = "k"}) client:editor.get()];
        EXPECT_EQ([composing.get() handleEvent:test::event(key) client:editor.get()], row.composing)
            << row.key;
        EXPECT_EQ([editor.get() field].text(), row.composedText) << row.key;
        EXPECT_EQ([editor.get() field].insertions(), row.composedText[0] == '\0' ? 0U : 1U) << row.key;
    }
}

TEST_F(InputControllerTest, PlaysEveryScenario) {
    for (const test::Scenario& scenario : test::allScenarios()) {
        SinglishSettings& settings = SinglishSettings::shared();
        settings.reset();
        Owned<Controller> played([[Controller alloc] init]);
        Owned<RecordingClient> editor = clientNamed(@"com.example.editor");
        for (const test::ScenarioStep& step : scenario.steps) {
            const auto& words = step.operation;
            const std::string operation = words.empty() ? "" : words[0];
            if (operation == "commit")
                [played.get() commitComposition:editor.get()];
            else if (operation == "leave")
                [played.get() deactivateServer:editor.get()];
            else if (operation == "add")
                EXPECT_EQ(settings.add(words.at(1), words.at(2)), std::nullopt);
            else if (operation == "remove")
                settings.remove(words.at(1));
            else if (operation == "on" || operation == "off")
                settings.setBuiltIn(words.at(1), operation == "on");
            else if (operation == "reset")
                settings.reset();
            else
                ASSERT_EQ(operation, "");
            for (const KeyEvent& key : step.events)
                if (![played.get() handleEvent:test::event(key) client:editor.get()])
                    [editor.get() field].apply(key);
            EXPECT_EQ([editor.get() field].screen(), step.screen)
                << scenario.name << ".scenario, line " << step.lineNumber;
        }
    }
    SinglishSettings::shared().reset();
}

TEST_F(InputControllerTest, TheCaretIsCountedInUtf16Units) {
    type("shrii"); // the client checks the caret
    EXPECT_EQ(field().marked(), "\u0DC1\u0DCA\u200D\u0DBB\u0DD3");
    EXPECT_EQ([mac::string(field().marked()) length], 5U);
}

TEST_F(InputControllerTest, AnEmptiedCompositionIsShownAsEmpty) {
    type("a");
    EXPECT_NE(field().marked(), "");
    EXPECT_TRUE(press(*test::keyNamed("<delete>")));
    EXPECT_EQ(field().marked(), "");
    EXPECT_FALSE(press(*test::keyNamed("<delete>")));
}

TEST_F(InputControllerTest, DeclinesWhatIsNoKeyOfATextClient) {
    Owned<NoTextClient> stranger([[NoTextClient alloc] init]);
    NSEvent* letter = test::event({.characters = "a"});
    EXPECT_FALSE([controller() handleEvent:nil client:client()]);
    EXPECT_FALSE([controller() handleEvent:letter client:nil]);
    EXPECT_FALSE([controller() handleEvent:nil client:nil]);
    EXPECT_FALSE([controller() handleEvent:letter client:stranger.get()]);
    EXPECT_FALSE([controller() handleEvent:letter client:@"a string"]);
    EXPECT_FALSE([controller() handleEvent:test::click() client:client()]) << "it has no characters";
    EXPECT_FALSE(press({.type = 11, .characters = "a"})) << "key up";
    EXPECT_FALSE(press({.type = 12, .characters = ""})) << "flags changed";
    type("k");
    [controller() handleEvent:nil client:client()];
    [controller() handleEvent:test::click() client:client()];
    [controller() handleEvent:letter client:stranger.get()];
    [controller() commitComposition:nil];
    [controller() commitComposition:stranger.get()];
    [controller() deactivateServer:nil];
    EXPECT_EQ(field().screen(), "[\u0D9A\u0DCA]") << "and leaves the composition alone";
    type("a");
    EXPECT_EQ(field().screen(), "[\u0D9A]");
}

TEST_F(InputControllerTest, AKeyWithoutCharactersEndsTheWordAndPasses) {
    Owned<EventWithoutCharacters> none([[EventWithoutCharacters alloc] init]);
    EXPECT_FALSE([controller() handleEvent:none.get() client:client()]);
    EXPECT_EQ(field().insertions(), 0U);
    type("k");
    EXPECT_FALSE([controller() handleEvent:none.get() client:client()]);
    EXPECT_EQ(field().screen(), "\u0D9A\u0DCA");
}

TEST_F(InputControllerTest, HalfASurrogatePairEndsTheWordAndPasses) {
    const unichar half = 0xD83D;
    NSString* broken = [NSString stringWithCharacters:&half length:1];
    type("k");
    NSEvent* key = [NSEvent keyEventWithType:static_cast<NSEventType>(NSEventTypeKeyDown)
                                    location:NSZeroPoint
                               modifierFlags:0
                                   timestamp:0
                                windowNumber:0
                                     context:nil
                                  characters:broken
                 charactersIgnoringModifiers:broken
                                   isARepeat:NO
                                     keyCode:0];
    EXPECT_FALSE([controller() handleEvent:key client:client()]) << "the client gets the key as it was";
    EXPECT_EQ(field().screen(), "\u0D9A\u0DCA");
}

TEST_F(InputControllerTest, TypesPlainLatinIntoItsOwnWindows) {
    type("k");
    Owned<RecordingClient> own = clientNamed([[NSBundle mainBundle] bundleIdentifier]);
    for (const char* key : {"a", "<space>", "<D-c>", "<delete>", "<escape>"})
        EXPECT_FALSE([controller() handleEvent:test::event(*test::keyNamed(key)) client:own.get()]) << key;
    EXPECT_EQ([own.get() field].insertions(), 0U);
    EXPECT_EQ(field().screen(), "[\u0D9A\u0DCA]") << "and the composition stays";
}

TEST_F(InputControllerTest, ShiftCapsLockAndTheKeypadOnlyChangeTheCharacters) {
    for (const NSUInteger flags : {NSEventModifierFlagShift, NSEventModifierFlagCapsLock,
                                   NSEventModifierFlagNumericPad, NSEventModifierFlagFunction}) {
        EXPECT_TRUE(press({.modifierFlags = flags, .characters = "A"}));
        press(*test::keyNamed("<escape>"));
    }
    EXPECT_EQ(field().text(), "AAAA");
}

TEST_F(InputControllerTest, ATextIsPutInOnceWhateverThePlatformAsks) {
    type("amma");
    [controller() commitComposition:client()];
    [controller() deactivateServer:client()];
    [controller() deactivateServer:client()];
    [controller() commitComposition:client()];
    EXPECT_EQ(field().insertions(), 1U);
    EXPECT_EQ(field().screen(), "\u0D85\u0DB8\u0DCA\u0DB8");
}

TEST_F(InputControllerTest, AClientThatCallsBackGetsItOnce) {
    [client() whenInserted:[this] {
        [controller() commitComposition:client()];
        [controller() deactivateServer:client()];
    }];
    type("ka<space>ka.ka<escape>ka<D-s>");
    EXPECT_EQ(field().text(), "\u0D9A \u0D9A.ka\u0D9A");
    [client() whenInserted:{}];
}

TEST_F(InputControllerTest, ServesInAnyOrderOfActivation) {
    type("ka"); // before any activation
    EXPECT_EQ(field().screen(), "[\u0D9A]");
    [controller() activateServer:client()];
    EXPECT_EQ(field().screen(), "[\u0D9A]") << "the composition is not touched";
    [controller() activateServer:client()];
    type("<space>");
    [controller() deactivateServer:client()];
    type("ka");                                // after it
    [controller() commitComposition:client()]; // and its deactivation never comes
    EXPECT_EQ(field().screen(), "\u0D9A \u0D9A");
    [controller() activateServer:nil];
    EXPECT_EQ(field().insertions(), 2U);
}

TEST_F(InputControllerTest, TheBaseClassIsToldOfEachActivation) {
    [controller() activateServer:client()];
    [controller() deactivateServer:client()];
    [controller() activateServer:nil];
    [controller() deactivateServer:nil];
    NSArray* expected = @[ @"activate", @"deactivate", @"activate", @"deactivate" ];
    EXPECT_TRUE([[controller() baseCalls] isEqualToArray:expected]);
}

TEST_F(InputControllerTest, TheTextIsInBeforeTheBaseClassIsTold) {
    NSUInteger callsThen = 99;
    [client() whenInserted:[&] { callsThen = [[controller() baseCalls] count]; }];
    type("k");
    [controller() deactivateServer:client()];
    EXPECT_EQ(callsThen, 0U);
    [client() whenInserted:{}];
}

TEST_F(InputControllerTest, ActivationAdoptsKeysThatAnotherProcessHasStored) {
    constexpr const char* document =
        "{\"addedKeys\":[{\"key\":\"q\",\"letter\":\"\u0D9A\"}],\"disabledKeys\":[]}";
    type("q");
    EXPECT_EQ(field().screen(), "[q]");
    UserDefaults::standard().setData(SinglishSettings::storedName, document);
    type("a");
    EXPECT_EQ(field().screen(), "[q\u0D85]") << "not before";
    [controller() activateServer:client()];
    EXPECT_EQ(field().screen(), "[q\u0D85]");
    type("a");
    EXPECT_EQ(field().screen(), "[\u0D9A\u0DCF]") << "the next key";
    SinglishSettings::shared().reset();
}

TEST_F(InputControllerTest, CompositionsAreNotShared) {
    Owned<Controller> other([[Controller alloc] initWithServer:nil delegate:nil client:nil]);
    Owned<RecordingClient> otherClient = clientNamed(@"com.example.other");
    type("k");
    [other.get() handleEvent:test::event({.characters = "a"}) client:otherClient.get()];
    type("a");
    [other.get() deactivateServer:otherClient.get()];
    EXPECT_EQ(field().screen(), "[\u0D9A]");
    EXPECT_EQ([otherClient.get() field].screen(), "\u0D85");
}

TEST_F(InputControllerTest, AsksForKeyDownEventsOnly) {
    EXPECT_EQ([controller() recognizedEvents:client()], 1024U);
    EXPECT_EQ([controller() recognizedEvents:nil], 1024U);
}

TEST_F(InputControllerTest, TakesEventsInOneWayOnly) {
    EXPECT_TRUE([controller() respondsToSelector:@selector(handleEvent:client:)]);
    EXPECT_FALSE([controller() respondsToSelector:@selector(inputText:client:)]);
    EXPECT_FALSE([controller() respondsToSelector:@selector(inputText:key:modifiers:client:)]);
    EXPECT_FALSE([controller() respondsToSelector:@selector(didCommandBySelector:client:)]);
}

TEST_F(InputControllerTest, IsFoundByTheNameInTheBundle) {
    EXPECT_EQ(NSClassFromString(@"VanokaInputController"), [Controller class]);
    EXPECT_TRUE([Controller isSubclassOfClass:[IMKInputController class]]);
}

TEST_F(InputControllerTest, SurvivesAClientThatRaises) {
    type("k");
    [client() whenInserted:[] { [NSException raise:@"Gone" format:@"The client has died"]; }];
    EXPECT_FALSE(press(*test::keyNamed("<space>"))) << "the neutral reply";
    [client() whenInserted:[] { throw std::runtime_error("no memory"); }];
    type("k");
    [controller() deactivateServer:client()];
    [client() whenInserted:{}];
    type("a");
    EXPECT_EQ(field().marked(), "\u0D85") << "typing goes on";
}

TEST_F(InputControllerTest, KeepsNeitherClientsNorEvents) {
    @autoreleasepool {
        Owned<RecordingClient> gone = clientNamed(@"com.example.gone");
        const NSUInteger before = [gone.get() retainCount];
        @autoreleasepool {
            [controller() activateServer:gone.get()];
            [controller() handleEvent:test::event({.characters = "k"}) client:gone.get()];
            [controller() commitComposition:gone.get()];
            [controller() deactivateServer:gone.get()];
        }
        EXPECT_EQ([gone.get() retainCount], before);
    }
    type("a");
    EXPECT_EQ(field().screen(), "[\u0D85]");
}

} // namespace

} // namespace vanoka
