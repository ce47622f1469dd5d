#import "RecordingClient.h"

#import "Strings.h"

#include <gtest/gtest.h>

namespace {

vanoka::TextRange textRange(NSRange range) {
    return {static_cast<std::int64_t>(range.location), static_cast<std::int64_t>(range.length)};
}

} // namespace

@implementation RecordingClient

- (instancetype)initWithBundleIdentifier:(NSString*)bundleIdentifier {
    if ((self = [super init]))
        _bundleIdentifier = [bundleIdentifier copy];
    return self;
}

- (void)dealloc {
    [_bundleIdentifier release];
    [super dealloc];
}

- (vanoka::test::TextField&)field {
    return _field;
}

- (void)whenInserted:(std::function<void()>)action {
    _whenInserted = std::move(action);
}

- (void)insertText:(id)string replacementRange:(NSRange)replacementRange {
    ASSERT_TRUE([string isKindOfClass:[NSString class]]);
    _field.insertText(vanoka::mac::utf8(string).value(), textRange(replacementRange));
    if (_whenInserted)
        _whenInserted();
}

- (void)setMarkedText:(id)string
       selectionRange:(NSRange)selectionRange
     replacementRange:(NSRange)replacementRange {
    ASSERT_TRUE([string isKindOfClass:[NSAttributedString class]]);
    NSAttributedString* marked = string;
    vanoka::MarkedText text = {vanoka::mac::utf8([marked string]).value()};
    if ([marked length] > 0) {
        NSRange covered;
        NSDictionary* attributes = [marked attributesAtIndex:0 effectiveRange:&covered];
        EXPECT_EQ([attributes count], 1U) << "the underline is the only attribute";
        EXPECT_TRUE(NSEqualRanges(covered, NSMakeRange(0, [marked length]))) << "over the whole text";
        const id underline = [attributes objectForKey:NSUnderlineStyleAttributeName];
        ASSERT_TRUE([underline isKindOfClass:[NSNumber class]]);
        EXPECT_EQ([underline integerValue], 1);
    }
    EXPECT_EQ(selectionRange.location, [marked length]) << "the caret stands after the text";
    _field.setMarkedText(text, textRange(selectionRange), textRange(replacementRange));
}

- (NSString*)bundleIdentifier {
    return _bundleIdentifier;
}

// A controller has no need of the rest. Some programs crash or wait for ever when they are asked.

- (NSRange)selectedRange {
    ADD_FAILURE();
    return NSMakeRange(NSNotFound, 0);
}
- (NSRange)markedRange {
    ADD_FAILURE();
    return NSMakeRange(NSNotFound, 0);
}
- (NSAttributedString*)attributedSubstringFromRange:(NSRange)range {
    (void)range;
    ADD_FAILURE();
    return nil;
}
- (NSInteger)length {
    ADD_FAILURE();
    return 0;
}
- (NSInteger)characterIndexForPoint:(NSPoint)point
                           tracking:(NSInteger)mappingMode
                      inMarkedRange:(BOOL*)inMarkedRange {
    (void)point;
    (void)mappingMode;
    (void)inMarkedRange;
    ADD_FAILURE();
    return 0;
}
- (NSDictionary*)attributesForCharacterIndex:(NSUInteger)index lineHeightRectangle:(NSRect*)lineRect {
    (void)index;
    (void)lineRect;
    ADD_FAILURE();
    return nil;
}
- (NSArray*)validAttributesForMarkedText {
    ADD_FAILURE();
    return nil;
}
- (void)overrideKeyboardWithKeyboardNamed:(NSString*)keyboardUniqueName {
    ADD_FAILURE() << "the user's keyboard layout stays: " << [keyboardUniqueName UTF8String];
}
- (void)selectInputMode:(NSString*)modeIdentifier {
    (void)modeIdentifier;
    ADD_FAILURE();
}
- (BOOL)supportsUnicode {
    ADD_FAILURE();
    return YES;
}
- (int)windowLevel {
    ADD_FAILURE();
    return 0;
}
- (BOOL)supportsProperty:(unsigned int)property {
    (void)property;
    ADD_FAILURE();
    return NO;
}
- (NSString*)uniqueClientIdentifierString {
    ADD_FAILURE();
    return nil;
}
- (NSString*)stringFromRange:(NSRange)range actualRange:(NSRangePointer)actualRange {
    (void)range;
    (void)actualRange;
    ADD_FAILURE();
    return nil;
}
- (NSRect)firstRectForCharacterRange:(NSRange)range actualRange:(NSRangePointer)actualRange {
    (void)range;
    (void)actualRange;
    ADD_FAILURE();
    return NSZeroRect;
}

@end
