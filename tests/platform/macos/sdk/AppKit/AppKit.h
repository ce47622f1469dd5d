#pragma once

// What the program uses of AppKit, by its public reference, with the version that brought each name where
// that is newer than the oldest macOS that Apple's compilers still know.
#import <Foundation/Foundation.h>

#define APPKIT_EXTERN extern "C"

NS_ASSUME_NONNULL_BEGIN

@class NSAttributedString, NSButton, NSColor, NSCursor, NSEvent, NSFont, NSImage, NSMenu, NSMenuItem;
@class NSTableColumn, NSText, NSToolbar, NSView, NSWindow;
@protocol NSTableViewDataSource
, NSTableViewDelegate, NSTextFieldDelegate, NSToolbarDelegate;
@protocol NSSplitViewDelegate;

// MARK: Attributed text

APPKIT_EXTERN NSAttributedStringKey const NSFontAttributeName;
APPKIT_EXTERN NSAttributedStringKey const NSForegroundColorAttributeName;
APPKIT_EXTERN NSAttributedStringKey const NSLinkAttributeName;
APPKIT_EXTERN NSAttributedStringKey const NSParagraphStyleAttributeName;
APPKIT_EXTERN NSAttributedStringKey const NSStrikethroughStyleAttributeName;
APPKIT_EXTERN NSAttributedStringKey const NSUnderlineStyleAttributeName;

typedef NS_OPTIONS(NSInteger, NSUnderlineStyle) { NSUnderlineStyleSingle = 0x01 };
typedef NS_ENUM(NSUInteger, NSLineBreakMode) {
    NSLineBreakByWordWrapping = 0,
    NSLineBreakByTruncatingTail = 4,
};
// The numbers of the older processor are older than those that all of Apple's systems share.
typedef NS_ENUM(NSInteger, NSTextAlignment) {
#ifdef __arm64__
    NSTextAlignmentCenter = 1,
#else
    NSTextAlignmentCenter = 2,
#endif
    NSTextAlignmentNatural = 4,
};

@interface NSParagraphStyle : NSObject
@end

@interface NSMutableParagraphStyle : NSParagraphStyle
@property NSTextAlignment alignment;
@property CGFloat paragraphSpacing;
@end

typedef NSString* NSFontTextStyle;
typedef NSString* NSFontTextStyleOptionKey;
typedef CGFloat NSFontWeight;
APPKIT_EXTERN NSFontTextStyle const NSFontTextStyleBody API_AVAILABLE(macos(11.0));
APPKIT_EXTERN NSFontTextStyle const NSFontTextStyleCallout API_AVAILABLE(macos(11.0));
APPKIT_EXTERN NSFontTextStyle const NSFontTextStyleCaption1 API_AVAILABLE(macos(11.0));
APPKIT_EXTERN NSFontTextStyle const NSFontTextStyleFootnote API_AVAILABLE(macos(11.0));
APPKIT_EXTERN NSFontTextStyle const NSFontTextStyleHeadline API_AVAILABLE(macos(11.0));
APPKIT_EXTERN NSFontTextStyle const NSFontTextStyleSubheadline API_AVAILABLE(macos(11.0));
APPKIT_EXTERN NSFontTextStyle const NSFontTextStyleTitle2 API_AVAILABLE(macos(11.0));
APPKIT_EXTERN const NSFontWeight NSFontWeightRegular;
APPKIT_EXTERN const NSFontWeight NSFontWeightSemibold;

@interface NSFont : NSObject
@property(readonly) CGFloat pointSize;
@property(class, readonly) CGFloat smallSystemFontSize;
+ (NSFont*)systemFontOfSize:(CGFloat)size;
+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight API_AVAILABLE(macos(10.11));
+ (NSFont*)monospacedSystemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight API_AVAILABLE(macos(10.15));
+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style
                             options:(NSDictionary<NSFontTextStyleOptionKey, id>*)options
    API_AVAILABLE(macos(11.0));
@end

// MARK: Drawing

@interface NSColor : NSObject
@property(class, readonly, strong) NSColor* labelColor API_AVAILABLE(macos(10.10));
@property(class, readonly, strong) NSColor* secondaryLabelColor API_AVAILABLE(macos(10.10));
@property(class, readonly, strong) NSColor* systemRedColor API_AVAILABLE(macos(10.10));
@property(class, readonly, strong) NSColor* systemOrangeColor API_AVAILABLE(macos(10.10));
@property(class, readonly, strong) NSColor* alternateSelectedControlTextColor;
@property(class, readonly, strong) NSColor* controlAccentColor API_AVAILABLE(macos(10.14));
- (void)set;
@end

@interface NSBezierPath : NSObject
+ (NSBezierPath*)bezierPathWithOvalInRect:(NSRect)rect;
- (void)fill;
@end

@interface NSImage : NSObject
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)name
                          accessibilityDescription:(nullable NSString*)description API_AVAILABLE(macos(11.0));
@end

@interface NSCursor : NSObject
@property(class, readonly, strong) NSCursor* pointingHandCursor;
@end

// MARK: Events and menus

typedef NS_ENUM(NSUInteger, NSEventType) { NSEventTypeKeyDown = 10 };
typedef NS_OPTIONS(unsigned long long, NSEventMask) { NSEventMaskKeyDown = 1ULL << NSEventTypeKeyDown };
typedef NS_OPTIONS(NSUInteger, NSEventModifierFlags) {
    NSEventModifierFlagShift = 1 << 17,
    NSEventModifierFlagControl = 1 << 18,
    NSEventModifierFlagOption = 1 << 19,
    NSEventModifierFlagCommand = 1 << 20,
};

@interface NSEvent : NSObject
@property(readonly) NSEventType type;
@property(readonly) NSEventModifierFlags modifierFlags;
@property(readonly) unsigned short keyCode;
@property(nullable, readonly, copy) NSString* characters;
@end

@interface NSMenu : NSObject
- (instancetype)initWithTitle:(NSString*)title;
- (void)addItem:(NSMenuItem*)item;
- (NSMenuItem*)addItemWithTitle:(NSString*)title action:(nullable SEL)selector keyEquivalent:(NSString*)key;
@end

@interface NSMenuItem : NSObject
@property NSEventModifierFlags keyEquivalentModifierMask;
@property(nullable, strong) NSMenu* submenu;
+ (NSMenuItem*)separatorItem;
- (instancetype)initWithTitle:(NSString*)title action:(nullable SEL)selector keyEquivalent:(NSString*)key;
@end

// What the items of an Edit menu send along the responder chain.
@protocol NSStandardKeyBindingResponding <NSObject>
@optional
- (void)selectAll:(nullable id)sender;
@end

/// Declared by no framework: windows answer to them for whichever view has the focus.
@protocol UndoActions
- (void)undo:(nullable id)sender;
- (void)redo:(nullable id)sender;
@end

// MARK: The application

@interface NSResponder : NSObject <NSStandardKeyBindingResponding>
@end

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) { NSApplicationActivationPolicyRegular = 0 };
typedef NSString* NSAboutPanelOptionKey;
APPKIT_EXTERN NSAboutPanelOptionKey const NSAboutPanelOptionApplicationName API_AVAILABLE(macos(10.13));
APPKIT_EXTERN NSAboutPanelOptionKey const NSAboutPanelOptionCredits API_AVAILABLE(macos(10.13));
APPKIT_EXTERN NSNotificationName const NSApplicationDidFinishLaunchingNotification;
APPKIT_EXTERN NSRunLoopMode const NSEventTrackingRunLoopMode;
APPKIT_EXTERN NSRunLoopMode const NSModalPanelRunLoopMode;

@interface NSApplication : NSResponder
@property(class, readonly, strong) NSApplication* sharedApplication;
@property(nullable, strong) NSMenu* mainMenu;
@property(nullable, strong) NSMenu* windowsMenu;
@property(strong) NSImage* applicationIconImage;
@property(readonly, copy) NSArray<NSWindow*>* windows;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
- (void)activate API_AVAILABLE(macos(14.0));
- (void)activateIgnoringOtherApps:(BOOL)ignores;
- (void)unhideWithoutActivation;
- (void)orderFrontStandardAboutPanelWithOptions:(NSDictionary<NSAboutPanelOptionKey, id>*)options;
- (void)run;
- (void)terminate:(nullable id)sender;
- (void)hide:(nullable id)sender;
- (void)hideOtherApplications:(nullable id)sender;
- (void)unhideAllApplications:(nullable id)sender;
- (void)arrangeInFront:(nullable id)sender;
@end
APPKIT_EXTERN __kindof NSApplication* _Null_unspecified NSApp;

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
- (BOOL)openURL:(NSURL*)url;
@end

// MARK: Views and windows

typedef NS_OPTIONS(NSUInteger, NSAutoresizingMaskOptions) {
    NSViewWidthSizable = 2,
    NSViewHeightSizable = 16,
};

typedef NSString* NSAccessibilityRole;
APPKIT_EXTERN NSAccessibilityRole const NSAccessibilityLinkRole;

@protocol NSAccessibility <NSObject>
@property(nullable, copy) NSString* accessibilityLabel API_AVAILABLE(macos(10.10));
@property(nullable, copy) NSAccessibilityRole accessibilityRole API_AVAILABLE(macos(10.10));
@end

@interface NSView : NSResponder <NSAccessibility>
@property(nullable, readonly, strong) NSWindow* window;
@property NSRect frame;
@property NSRect bounds;
@property(getter=isHidden) BOOL hidden;
@property(getter=isFlipped, readonly) BOOL flipped;
@property NSAutoresizingMaskOptions autoresizingMask;
@property(nullable, copy) NSString* toolTip;
@property BOOL needsDisplay;
- (instancetype)initWithFrame:(NSRect)frame;
- (void)setFrameSize:(NSSize)size;
- (void)addSubview:(NSView*)view;
- (void)removeFromSuperview;
- (void)scrollPoint:(NSPoint)point;
- (void)drawRect:(NSRect)dirtyRect;
- (void)addCursorRect:(NSRect)rect cursor:(NSCursor*)cursor;
- (void)resetCursorRects;
@end

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
    NSWindowStyleMaskTitled = 1 << 0,
    NSWindowStyleMaskClosable = 1 << 1,
    NSWindowStyleMaskMiniaturizable = 1 << 2,
    NSWindowStyleMaskResizable = 1 << 3,
};
typedef NS_OPTIONS(NSUInteger, NSWindowCollectionBehavior) {
    NSWindowCollectionBehaviorMoveToActiveSpace = 1 << 1,
};
typedef NS_ENUM(NSUInteger, NSBackingStoreType) { NSBackingStoreBuffered = 2 };
APPKIT_EXTERN NSNotificationName const NSWindowWillCloseNotification;

@interface NSWindow : NSResponder
@property(copy) NSString* title;
@property(nullable, strong) __kindof NSView* contentView;
@property(nullable, strong) NSToolbar* toolbar;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property NSSize contentMinSize;
@property NSWindowCollectionBehavior collectionBehavior;
@property(getter=isVisible, readonly) BOOL visible;
@property(getter=isSheet, readonly) BOOL sheet;
- (instancetype)initWithContentRect:(NSRect)rect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)isDeferred;
- (void)setContentSize:(NSSize)size;
- (void)center;
- (void)close;
- (void)makeKeyAndOrderFront:(nullable id)sender;
- (void)orderFrontRegardless;
- (BOOL)makeFirstResponder:(nullable NSResponder*)responder;
- (void)performClose:(nullable id)sender;
- (void)performMiniaturize:(nullable id)sender;
- (void)performZoom:(nullable id)sender;
@end

@interface NSPanel : NSWindow
@end

typedef NS_ENUM(NSInteger, NSVisualEffectMaterial) { NSVisualEffectMaterialTitlebar = 3 };
typedef NS_ENUM(NSInteger, NSVisualEffectBlendingMode) { NSVisualEffectBlendingModeWithinWindow = 1 };

API_AVAILABLE(macos(10.10))
@interface NSVisualEffectView : NSView
@property NSVisualEffectMaterial material;
@property NSVisualEffectBlendingMode blendingMode;
@end

typedef NS_ENUM(NSUInteger, NSBoxType) { NSBoxSeparator = 2 };
typedef NS_ENUM(NSUInteger, NSTitlePosition) { NSNoTitle = 0 };
typedef NS_ENUM(NSUInteger, NSBorderType) { NSNoBorder = 0 };

@interface NSBox : NSView
@property NSBoxType boxType;
@property NSTitlePosition titlePosition;
@end

@interface NSScrollView : NSView
@property(readonly) NSSize contentSize;
@property(nullable, strong) __kindof NSView* documentView;
@property BOOL hasVerticalScroller;
@property BOOL autohidesScrollers;
@property BOOL drawsBackground;
@property NSBorderType borderType;
@end

typedef NS_ENUM(NSInteger, NSSplitViewDividerStyle) { NSSplitViewDividerStyleThin = 2 };

@interface NSSplitView : NSView
@property(getter=isVertical) BOOL vertical;
@property NSSplitViewDividerStyle dividerStyle;
@property(readonly) CGFloat dividerThickness;
@property(nullable, weak) id<NSSplitViewDelegate> delegate;
- (void)adjustSubviews;
@end

@protocol NSSplitViewDelegate <NSObject>
@optional
- (CGFloat)splitView:(NSSplitView*)splitView
    constrainMinCoordinate:(CGFloat)proposed
               ofSubviewAt:(NSInteger)index;
- (CGFloat)splitView:(NSSplitView*)splitView
    constrainMaxCoordinate:(CGFloat)proposed
               ofSubviewAt:(NSInteger)index;
- (BOOL)splitView:(NSSplitView*)splitView shouldAdjustSizeOfSubview:(NSView*)view;
@end

// MARK: Controls

@interface NSText : NSView
- (void)cut:(nullable id)sender;
- (void)copy:(nullable id)sender;
- (void)paste:(nullable id)sender;
@end

@interface NSCell : NSObject
@property BOOL wraps;
@property(getter=isScrollable) BOOL scrollable;
@property NSLineBreakMode lineBreakMode;
@property BOOL sendsActionOnEndEditing;
@property(readonly) NSSize cellSize;
- (NSSize)cellSizeForBounds:(NSRect)bounds;
@end

@interface NSControl : NSView
@property(nullable, weak) id target;
@property(nullable) SEL action;
@property(getter=isEnabled) BOOL enabled;
@property(nullable, strong) NSFont* font;
@property(copy) NSString* stringValue;
@property(copy) NSAttributedString* attributedStringValue;
@property(nullable, strong) __kindof NSCell* cell;
- (void)sizeToFit;
- (nullable NSText*)currentEditor;
@end

@protocol NSControlTextEditingDelegate <NSObject>
@optional
- (void)controlTextDidChange:(NSNotification*)notification;
@end

@protocol NSTextFieldDelegate <NSControlTextEditingDelegate>
@end

typedef NS_ENUM(NSUInteger, NSTextFieldBezelStyle) { NSTextFieldRoundedBezel = 1 };

@interface NSTextField : NSControl
@property(nullable, copy) NSColor* textColor;
@property(getter=isEditable) BOOL editable;
@property(getter=isSelectable) BOOL selectable;
@property(getter=isBordered) BOOL bordered;
@property(getter=isBezeled) BOOL bezeled;
@property BOOL drawsBackground;
@property NSTextFieldBezelStyle bezelStyle;
@property(nullable, weak) id<NSTextFieldDelegate> delegate;
@end

@interface NSTextFieldCell : NSCell
@property(nullable, copy) NSString* placeholderString;
@end

typedef NSInteger NSControlStateValue;
static const NSControlStateValue NSControlStateValueOff = 0;
static const NSControlStateValue NSControlStateValueOn = 1;
typedef NS_ENUM(NSUInteger, NSButtonType) {
    NSButtonTypeMomentaryChange = 5,
    NSButtonTypeMomentaryPushIn = 7,
};
typedef NS_ENUM(NSUInteger, NSBezelStyle) { NSBezelStyleRounded = 1 };
typedef NS_ENUM(NSUInteger, NSCellImagePosition) { NSImageOnly = 1 };
typedef NS_ENUM(NSUInteger, NSImageScaling) { NSImageScaleProportionallyUpOrDown = 3 };

@interface NSButton : NSControl
@property(copy) NSString* title;
@property(copy) NSAttributedString* attributedTitle;
@property(getter=isBordered) BOOL bordered;
@property NSBezelStyle bezelStyle;
@property(nullable, strong) NSImage* image;
@property NSCellImagePosition imagePosition;
@property(copy) NSString* keyEquivalent;
@property(nullable, copy) NSColor* contentTintColor API_AVAILABLE(macos(10.14));
@property BOOL hasDestructiveAction API_AVAILABLE(macos(11.0));
- (void)setButtonType:(NSButtonType)type;
@end

API_AVAILABLE(macos(10.15))
@interface NSSwitch : NSControl
@property NSControlStateValue state;
@end

@interface NSImageView : NSControl
@property(nullable, strong) NSImage* image;
@property NSImageScaling imageScaling;
@end

// MARK: Tables

typedef NS_OPTIONS(NSUInteger, NSTableColumnResizingOptions) { NSTableColumnAutoresizingMask = 1 << 0 };
typedef NS_ENUM(NSUInteger, NSTableViewColumnAutoresizingStyle) {
    NSTableViewLastColumnOnlyAutoresizingStyle = 4,
};
typedef NS_ENUM(NSInteger, NSTableViewStyle) {
    NSTableViewStyleSourceList = 3,
} API_AVAILABLE(macos(11.0));
typedef NSString* NSUserInterfaceItemIdentifier;

@interface NSTableHeaderView : NSView
@end

@interface NSTableColumn : NSObject
@property(getter=isEditable) BOOL editable;
@property NSTableColumnResizingOptions resizingMask;
- (instancetype)initWithIdentifier:(NSUserInterfaceItemIdentifier)identifier;
@end

@interface NSTableView : NSControl
@property(nullable, weak) id<NSTableViewDataSource> dataSource;
@property(nullable, weak) id<NSTableViewDelegate> delegate;
@property(nullable, strong) NSTableHeaderView* headerView;
@property CGFloat rowHeight;
@property NSTableViewStyle style API_AVAILABLE(macos(11.0));
@property NSTableViewColumnAutoresizingStyle columnAutoresizingStyle;
@property BOOL allowsMultipleSelection;
@property BOOL allowsEmptySelection;
@property BOOL floatsGroupRows;
@property(readonly) NSInteger selectedRow;
- (void)addTableColumn:(NSTableColumn*)column;
- (void)reloadData;
- (void)sizeLastColumnToFit;
- (void)deselectAll:(nullable id)sender;
- (void)selectRowIndexes:(NSIndexSet*)indexes byExtendingSelection:(BOOL)extends;
- (void)scrollRowToVisible:(NSInteger)row;
- (nullable __kindof NSView*)viewAtColumn:(NSInteger)column row:(NSInteger)row makeIfNecessary:(BOOL)makes;
@end

@protocol NSTableViewDataSource <NSObject>
@optional
- (NSInteger)numberOfRowsInTableView:(NSTableView*)tableView;
@end

@protocol NSTableViewDelegate <NSControlTextEditingDelegate>
@optional
- (nullable NSView*)tableView:(NSTableView*)tableView
           viewForTableColumn:(nullable NSTableColumn*)tableColumn
                          row:(NSInteger)row;
- (BOOL)tableView:(NSTableView*)tableView isGroupRow:(NSInteger)row;
- (BOOL)tableView:(NSTableView*)tableView shouldSelectRow:(NSInteger)row;
- (void)tableViewSelectionDidChange:(NSNotification*)notification;
@end

// What a row's views stand on: the second is a selection in the selection's own colour.
typedef NS_ENUM(NSInteger, NSBackgroundStyle) {
    NSBackgroundStyleNormal = 0,
    NSBackgroundStyleEmphasized = 1,
};

@interface NSTableCellView : NSView
@property NSBackgroundStyle backgroundStyle;
@end

// MARK: Toolbars and alerts

typedef NSString* NSToolbarIdentifier;
typedef NSString* NSToolbarItemIdentifier;
typedef NS_ENUM(NSUInteger, NSToolbarDisplayMode) { NSToolbarDisplayModeIconOnly = 2 };
APPKIT_EXTERN NSToolbarItemIdentifier const NSToolbarFlexibleSpaceItemIdentifier;

@interface NSToolbar : NSObject
@property(nullable, weak) id<NSToolbarDelegate> delegate;
@property BOOL allowsUserCustomization;
@property NSToolbarDisplayMode displayMode;
- (instancetype)initWithIdentifier:(NSToolbarIdentifier)identifier;
@end

@interface NSToolbarItem : NSObject
@property(copy) NSString* label;
@property(nullable, strong) NSView* view;
- (instancetype)initWithItemIdentifier:(NSToolbarItemIdentifier)identifier;
@end

@protocol NSToolbarDelegate <NSObject>
@optional
- (nullable NSToolbarItem*)toolbar:(NSToolbar*)toolbar
             itemForItemIdentifier:(NSToolbarItemIdentifier)identifier
         willBeInsertedIntoToolbar:(BOOL)isInserted;
- (NSArray<NSToolbarItemIdentifier>*)toolbarDefaultItemIdentifiers:(NSToolbar*)toolbar;
- (NSArray<NSToolbarItemIdentifier>*)toolbarAllowedItemIdentifiers:(NSToolbar*)toolbar;
@end

typedef NSInteger NSModalResponse;
static const NSModalResponse NSAlertFirstButtonReturn = 1000;

@interface NSAlert : NSObject
@property(copy) NSString* messageText;
- (NSButton*)addButtonWithTitle:(NSString*)title;
- (void)beginSheetModalForWindow:(NSWindow*)window
               completionHandler:(void (^_Nullable)(NSModalResponse answer))handler;
@end

NS_ASSUME_NONNULL_END
