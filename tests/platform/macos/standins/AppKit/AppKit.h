#pragma once

// AppKit as GNUstep has it, and what Vanoka uses of macOS that it lacks or calls by an older name.
#include_next <AppKit/AppKit.h>
#include <GNUstepGUI/GSVersion.h>

enum : NSUInteger { NSEventMaskKeyDown = NSKeyDownMask };

// What GNUstep has by itself from version 0.32 on.
#if GNUSTEP_GUI_MINOR_VERSION < 32

enum : NSUInteger { NSEventTypeKeyDown = NSKeyDown };
typedef NSUInteger NSEventModifierFlags;
enum : NSUInteger {
    NSEventModifierFlagCapsLock = NSAlphaShiftKeyMask,
    NSEventModifierFlagShift = NSShiftKeyMask,
    NSEventModifierFlagControl = NSControlKeyMask,
    NSEventModifierFlagOption = NSAlternateKeyMask,
    NSEventModifierFlagCommand = NSCommandKeyMask,
    NSEventModifierFlagNumericPad = NSNumericPadKeyMask,
    NSEventModifierFlagFunction = NSFunctionKeyMask,
};

enum : NSInteger { NSBackgroundStyleNormal = 0, NSBackgroundStyleEmphasized = 1 };

@interface NSTableCellView : NSView {
@private
    NSBackgroundStyle _backgroundStyle;
}
- (void)setBackgroundStyle:(NSBackgroundStyle)style;
- (NSBackgroundStyle)backgroundStyle;
@end

#endif

#define NSButtonTypeMomentaryPushIn NSMomentaryPushInButton
#define NSButtonTypeMomentaryChange NSMomentaryChangeButton
#define NSBezelStyleRounded NSRoundedBezelStyle

typedef NSUInteger NSWindowStyleMask;
typedef NSString* NSFontTextStyle;
extern NSFontTextStyle const NSFontTextStyleBody;
extern NSFontTextStyle const NSFontTextStyleTitle2;
extern NSFontTextStyle const NSFontTextStyleHeadline;
extern NSFontTextStyle const NSFontTextStyleSubheadline;
extern NSFontTextStyle const NSFontTextStyleCallout;
extern NSFontTextStyle const NSFontTextStyleFootnote;
extern NSFontTextStyle const NSFontTextStyleCaption1;

extern NSString* const NSAboutPanelOptionApplicationName;
extern NSString* const NSAboutPanelOptionCredits;

@protocol NSSplitViewDelegate
@end
@protocol NSToolbarDelegate
@end

@interface NSApplication (Standin)
/// Kept for `activationPolicy`, and nothing else happens.
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
- (NSApplicationActivationPolicy)activationPolicy;
@end

@interface NSWindow (Standin)
- (void)setCollectionBehavior:(NSWindowCollectionBehavior)behavior;
- (NSWindowCollectionBehavior)collectionBehavior;
/// What a test says of it.
- (void)setSheet:(BOOL)isSheet;
- (BOOL)isSheet;
@end

@interface NSFont (Standin)
+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style options:(NSDictionary*)options;
+ (NSFont*)monospacedSystemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight;
+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight;
@end

@interface NSColor (Standin)
+ (NSColor*)controlAccentColor;
@end

@interface NSImage (Standin)
/// A drawing of its own for "minus.circle.fill"; nil for any other name, as for a symbol that does not exist.
+ (NSImage*)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description;
@end

@interface NSView (Standin)
- (void)setAccessibilityLabel:(NSString*)label;
- (NSString*)accessibilityLabel;
- (void)setAccessibilityRole:(NSString*)role;
- (NSString*)accessibilityRole;
@end

@interface NSSwitch (Standin)
- (void)setAccessibilityLabel:(NSString*)label;
- (NSString*)accessibilityLabel;
@end

@interface NSButton (Standin)
- (void)setContentTintColor:(NSColor*)colour;
- (NSColor*)contentTintColor;
- (void)setHasDestructiveAction:(BOOL)isDestructive;
- (BOOL)hasDestructiveAction;
@end

/// The alert is not shown: it is kept, and answered by a test.
@interface NSAlert (Standin)
- (void)beginSheetModalForWindow:(NSWindow*)window
               completionHandler:(void (^)(NSModalResponse answer))handler;
/// The alert that is up; nil when there is none.
+ (NSAlert*)shown;
+ (NSWindow*)windowOfShown;
+ (void)answerShown:(NSModalResponse)answer;
@end

typedef NS_ENUM(NSInteger, NSTableViewStyle) { NSTableViewStyleAutomatic, NSTableViewStyleSourceList = 3 };

/// Views as cells: `reloadData` makes one for every row and puts it into the table.
@interface NSTableView (Standin)
- (void)setStyle:(NSTableViewStyle)style;
- (void)setFloatsGroupRows:(BOOL)floats;
- (NSView*)viewAtColumn:(NSInteger)column row:(NSInteger)row makeIfNecessary:(BOOL)makes;
@end
