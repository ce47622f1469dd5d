#pragma once

// What the program uses of InputMethodKit, by its public reference.
#import <Foundation/Foundation.h>

@class IMKServer, NSEvent, NSMenu;

/// A text-input client. Of its operations, those that the program calls.
@protocol IMKTextInput
- (void)insertText:(id)string replacementRange:(NSRange)replacementRange;
- (void)setMarkedText:(id)string
       selectionRange:(NSRange)selectionRange
     replacementRange:(NSRange)replacementRange;
- (NSString*)bundleIdentifier;
@end

@protocol IMKStateSetting
- (void)activateServer:(id)sender;
- (void)deactivateServer:(id)sender;
- (NSUInteger)recognizedEvents:(id)sender;
@end

@protocol IMKMouseHandling
@end

@interface NSObject (IMKServerInput)
- (BOOL)handleEvent:(NSEvent*)event client:(id)sender;
- (void)commitComposition:(id)sender;
@end

@interface IMKInputController : NSObject <IMKStateSetting, IMKMouseHandling>
- (NSMenu*)menu;
@end

@interface IMKServer : NSObject
- (id)initWithName:(NSString*)name bundleIdentifier:(NSString*)bundleIdentifier;
@end
