#pragma once

// What an input method's controller meets of InputMethodKit, with the system played by a test.
#import <AppKit/AppKit.h>

@class IMKServer;

@protocol IMKTextInput
- (void)insertText:(id)string replacementRange:(NSRange)replacementRange;
- (void)setMarkedText:(id)string
       selectionRange:(NSRange)selectionRange
     replacementRange:(NSRange)replacementRange;
- (NSRange)selectedRange;
- (NSRange)markedRange;
- (NSAttributedString*)attributedSubstringFromRange:(NSRange)range;
- (NSInteger)length;
- (NSInteger)characterIndexForPoint:(NSPoint)point
                           tracking:(NSInteger)mappingMode
                      inMarkedRange:(BOOL*)inMarkedRange;
- (NSDictionary*)attributesForCharacterIndex:(NSUInteger)index lineHeightRectangle:(NSRect*)lineRect;
- (NSArray*)validAttributesForMarkedText;
- (void)overrideKeyboardWithKeyboardNamed:(NSString*)keyboardUniqueName;
- (void)selectInputMode:(NSString*)modeIdentifier;
- (BOOL)supportsUnicode;
- (NSString*)bundleIdentifier;
- (int)windowLevel;
- (BOOL)supportsProperty:(unsigned int)property;
- (NSString*)uniqueClientIdentifierString;
- (NSString*)stringFromRange:(NSRange)range actualRange:(NSRangePointer)actualRange;
- (NSRect)firstRectForCharacterRange:(NSRange)range actualRange:(NSRangePointer)actualRange;
@end

@protocol IMKStateSetting
- (void)activateServer:(id)sender;
- (void)deactivateServer:(id)sender;
- (id)valueForTag:(long)tag client:(id)sender;
- (void)setValue:(id)value forTag:(long)tag client:(id)sender;
- (NSDictionary*)modes:(id)sender;
- (NSUInteger)recognizedEvents:(id)sender;
- (void)showPreferences:(id)sender;
@end

/// Three ways to take events, of which a controller implements one.
@interface NSObject (IMKServerInput)
- (BOOL)handleEvent:(NSEvent*)event client:(id)sender;
- (BOOL)inputText:(NSString*)string client:(id)sender;
- (BOOL)inputText:(NSString*)string key:(NSInteger)keyCode modifiers:(NSUInteger)flags client:(id)sender;
- (BOOL)didCommandBySelector:(SEL)selector client:(id)sender;
- (void)commitComposition:(id)sender;
@end

@interface IMKInputController : NSObject <IMKStateSetting> {
@private
    IMKServer* _server;
    id _client;
    NSMutableArray* _baseCalls;
}
- (id)initWithServer:(IMKServer*)server delegate:(id)delegate client:(id)inputClient;
- (id<IMKTextInput, NSObject>)client;
- (IMKServer*)server;
- (NSMenu*)menu;
- (void)doCommandBySelector:(SEL)selector commandDictionary:(NSDictionary*)infoDictionary;
/// What the base class has been told, in order: "activate", "deactivate".
- (NSArray*)baseCalls;
@end

/// Cannot be made while the environment variable VANOKA_TEST_NO_SERVER is set.
@interface IMKServer : NSObject
- (id)initWithName:(NSString*)name bundleIdentifier:(NSString*)bundleIdentifier;
- (NSBundle*)bundle;
@end
