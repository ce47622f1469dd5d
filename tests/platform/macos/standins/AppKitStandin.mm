#import <AppKit/AppKit.h>

#include <map>

NSFontTextStyle const NSFontTextStyleBody = @"Body";
NSFontTextStyle const NSFontTextStyleTitle2 = @"Title2";
NSFontTextStyle const NSFontTextStyleHeadline = @"Headline";
NSFontTextStyle const NSFontTextStyleSubheadline = @"Subheadline";
NSFontTextStyle const NSFontTextStyleCallout = @"Callout";
NSFontTextStyle const NSFontTextStyleFootnote = @"Footnote";
NSFontTextStyle const NSFontTextStyleCaption1 = @"Caption1";

NSString* const NSAboutPanelOptionApplicationName = @"ApplicationName";
NSString* const NSAboutPanelOptionCredits = @"Credits";

namespace {

/// What the stand-ins remember about objects of GNUstep, by the object and a name. The objects are kept for
/// good, so that no other ever has the address of one that is known.
NSMutableDictionary* notesOn(id object) {
    static auto* all = new std::map<id, NSMutableDictionary*>;
    NSMutableDictionary*& notes = (*all)[object];
    if (!notes) {
        [object retain];
        notes = [[NSMutableDictionary alloc] init];
    }
    return notes;
}

void note(id object, NSString* name, id value) {
    if (value)
        [notesOn(object) setObject:value forKey:name];
    else
        [notesOn(object) removeObjectForKey:name];
}

} // namespace

@implementation NSApplication (Standin)

- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy {
    note(self, @"policy", [NSNumber numberWithInteger:policy]);
    return YES;
}

- (NSApplicationActivationPolicy)activationPolicy {
    NSNumber* policy = [notesOn(self) objectForKey:@"policy"];
    return policy ? (NSApplicationActivationPolicy)[policy integerValue]
                  : NSApplicationActivationPolicyProhibited;
}

@end

namespace {

/// Windows are not kept for good: GNUstep lets the toolbars of all windows that there are have the same
/// items.
struct WindowNotes {
    NSWindowCollectionBehavior collectionBehavior = NSWindowCollectionBehaviorDefault;
    bool isSheet = false;
};
std::map<NSWindow*, WindowNotes> windowNotes;

} // namespace

@implementation NSWindow (Standin)

- (void)setCollectionBehavior:(NSWindowCollectionBehavior)behavior {
    windowNotes[self].collectionBehavior = behavior;
}
- (NSWindowCollectionBehavior)collectionBehavior {
    return windowNotes[self].collectionBehavior;
}
- (void)setSheet:(BOOL)isSheet {
    windowNotes[self].isSheet = isSheet;
}
- (BOOL)isSheet {
    return windowNotes[self].isSheet;
}

@end

@implementation NSFont (Standin)

// The sizes of macOS.
+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style options:(NSDictionary*)options {
    (void)options;
    if ([style isEqualToString:NSFontTextStyleTitle2])
        return [NSFont systemFontOfSize:17];
    if ([style isEqualToString:NSFontTextStyleHeadline])
        return [NSFont boldSystemFontOfSize:13];
    if ([style isEqualToString:NSFontTextStyleSubheadline])
        return [NSFont systemFontOfSize:11];
    if ([style isEqualToString:NSFontTextStyleCallout])
        return [NSFont systemFontOfSize:12];
    if ([style isEqualToString:NSFontTextStyleFootnote] || [style isEqualToString:NSFontTextStyleCaption1])
        return [NSFont systemFontOfSize:10];
    return [NSFont systemFontOfSize:13];
}

+ (NSFont*)monospacedSystemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight {
    NSFont* plain = [NSFont userFixedPitchFontOfSize:size];
    if (weight < NSFontWeightSemibold)
        return plain;
    return [[NSFontManager sharedFontManager] convertFont:plain toHaveTrait:NSBoldFontMask];
}

+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight {
    return weight < NSFontWeightSemibold ? [NSFont systemFontOfSize:size]
                                         : [NSFont boldSystemFontOfSize:size];
}

@end

@implementation NSColor (Standin)

+ (NSColor*)controlAccentColor {
    return [NSColor systemBlueColor];
}

@end

@implementation NSImage (Standin)

+ (NSImage*)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description {
    (void)description;
    if (![name isEqualToString:@"minus.circle.fill"])
        return nil;
    NSImage* image = [[[NSImage alloc] initWithSize:NSMakeSize(16, 16)] autorelease];
    [image setName:name];
    [image lockFocus];
    [[NSColor systemRedColor] set];
    [[NSBezierPath bezierPathWithOvalInRect:NSMakeRect(0, 0, 16, 16)] fill];
    [[NSColor whiteColor] set];
    NSRectFill(NSMakeRect(4, 7, 8, 2));
    [image unlockFocus];
    return image;
}

@end

@implementation NSView (Standin)

/// As on macOS, a new frame is an origin and a size, whoever overrides one of them.
- (void)setFrame:(NSRect)frame {
    [self setFrameOrigin:frame.origin];
    [self setFrameSize:frame.size];
}

- (void)setAccessibilityLabel:(NSString*)label {
    note(self, @"accessibilityLabel", label);
}
- (NSString*)accessibilityLabel {
    return [notesOn(self) objectForKey:@"accessibilityLabel"];
}
- (void)setAccessibilityRole:(NSString*)role {
    note(self, @"accessibilityRole", role);
}
- (NSString*)accessibilityRole {
    return [notesOn(self) objectForKey:@"accessibilityRole"];
}

@end

/// The switch has a label of its own, which it forgets.
@implementation NSSwitch (Standin)

- (void)setAccessibilityLabel:(NSString*)label {
    [super setAccessibilityLabel:label];
}
- (NSString*)accessibilityLabel {
    return [super accessibilityLabel];
}

@end

@implementation NSButton (Standin)

- (void)setContentTintColor:(NSColor*)colour {
    note(self, @"contentTintColor", colour);
}
- (NSColor*)contentTintColor {
    return [notesOn(self) objectForKey:@"contentTintColor"];
}
- (void)setHasDestructiveAction:(BOOL)isDestructive {
    note(self, @"hasDestructiveAction", [NSNumber numberWithBool:isDestructive]);
}
- (BOOL)hasDestructiveAction {
    return [[notesOn(self) objectForKey:@"hasDestructiveAction"] boolValue];
}

@end

namespace {

struct ShownAlert {
    NSAlert* alert = nil;
    NSWindow* window = nil;
    void (^handler)(NSModalResponse) = nil;
};
ShownAlert shownAlert;

} // namespace

@implementation NSAlert (Standin)

- (void)beginSheetModalForWindow:(NSWindow*)window completionHandler:(void (^)(NSModalResponse))handler {
    shownAlert = {[self retain], window, (void (^)(NSModalResponse))_Block_copy(handler)};
}

+ (NSAlert*)shown {
    return shownAlert.alert;
}
+ (NSWindow*)windowOfShown {
    return shownAlert.window;
}

+ (void)answerShown:(NSModalResponse)answer {
    const ShownAlert answered = shownAlert;
    shownAlert = {};
    answered.handler(answer);
    _Block_release(answered.handler);
    [answered.alert release];
}

@end

#if GNUSTEP_GUI_MINOR_VERSION < 32

@implementation NSTableCellView

- (void)setBackgroundStyle:(NSBackgroundStyle)style {
    _backgroundStyle = style;
}
- (NSBackgroundStyle)backgroundStyle {
    return _backgroundStyle;
}

@end

#endif

/// GNUstep asks for values and draws cells; these cells are empty.
@interface NSObject (TableValues)
@end

@implementation NSObject (TableValues)
- (id)tableView:(NSTableView*)table objectValueForTableColumn:(NSTableColumn*)column row:(NSInteger)row {
    (void)table;
    (void)column;
    (void)row;
    return @"";
}
@end

@protocol RowViews
- (NSView*)tableView:(NSTableView*)table viewForTableColumn:(NSTableColumn*)column row:(NSInteger)row;
@end

@implementation NSTableView (Standin)

- (void)setStyle:(NSTableViewStyle)style {
    note(self, @"style", [NSNumber numberWithInteger:style]);
}
- (void)setFloatsGroupRows:(BOOL)floats {
    note(self, @"floatsGroupRows", [NSNumber numberWithBool:floats]);
}

- (NSView*)viewAtColumn:(NSInteger)column row:(NSInteger)row makeIfNecessary:(BOOL)makes {
    NSMutableDictionary* views = [notesOn(self) objectForKey:@"views"];
    if (!views) {
        views = [NSMutableDictionary dictionary];
        note(self, @"views", views);
    }
    NSNumber* key = [NSNumber numberWithInteger:row];
    NSView* view = [views objectForKey:key];
    if (!view && makes) {
        NSTableColumn* shown = [[self tableColumns] objectAtIndex:(NSUInteger)column];
        view = [(id<RowViews>)[self delegate] tableView:self viewForTableColumn:shown row:row];
        [view setFrame:[self frameOfCellAtColumn:column row:row]];
        [view setAutoresizingMask:NSViewWidthSizable];
        [self addSubview:view];
        [views setObject:view forKey:key];
    }
    return view;
}

@end
