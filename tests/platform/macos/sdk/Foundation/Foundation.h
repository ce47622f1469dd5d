#pragma once

// What the program uses of Foundation, by its public reference, with the version that brought each name where
// that is newer than the oldest macOS that Apple's compilers still know.
#include <limits.h>
#import <objc/NSObject.h>
#include <os/availability.h>

#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define NS_ENUM(type, name)                                                                                  \
    enum __attribute__((enum_extensibility(open))) name : type name;                                         \
    enum name : type
// In C++ a set of options is the plain number, so that options can be joined with |.
#define NS_OPTIONS(type, name)                                                                               \
    type name;                                                                                               \
    enum __attribute__((flag_enum, enum_extensibility(open))) : type

#define FOUNDATION_EXPORT extern "C"

NS_ASSUME_NONNULL_BEGIN

@class NSArray<ObjectType>, NSDictionary<KeyType, ObjectType>, NSString, NSURL;

// CoreGraphics' geometry, under Foundation's names.
typedef double CGFloat;
typedef struct CGPoint {
    CGFloat x, y;
} NSPoint;
typedef struct CGSize {
    CGFloat width, height;
} NSSize;
typedef struct CGRect {
    NSPoint origin;
    NSSize size;
} NSRect;
FOUNDATION_EXPORT const NSPoint NSZeroPoint;
FOUNDATION_EXPORT const NSRect NSZeroRect;

inline NSSize NSMakeSize(CGFloat width, CGFloat height) {
    return {width, height};
}
inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return {{x, y}, {width, height}};
}

typedef struct _NSRange {
    NSUInteger location, length;
} NSRange;
inline NSRange NSMakeRange(NSUInteger location, NSUInteger length) {
    return {location, length};
}
static const NSInteger NSNotFound = NSIntegerMax;

typedef double NSTimeInterval;

FOUNDATION_EXPORT Protocol* _Nullable NSProtocolFromString(NSString* name);

@interface NSData : NSObject
@property(readonly) NSUInteger length;
@property(readonly) const void* bytes __attribute__((objc_returns_inner_pointer));
+ (instancetype)dataWithBytes:(nullable const void*)bytes length:(NSUInteger)length;
@end

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };

@interface NSString : NSObject
- (nullable instancetype)initWithBytes:(const void*)bytes
                                length:(NSUInteger)length
                              encoding:(NSStringEncoding)encoding;
- (nullable NSData*)dataUsingEncoding:(NSStringEncoding)encoding allowLossyConversion:(BOOL)lossy;
- (BOOL)isEqualToString:(NSString*)string;
@end

@interface NSNumber : NSObject
+ (NSNumber*)numberWithInteger:(NSInteger)value;
@end

typedef struct {
    unsigned long state;
    id __unsafe_unretained _Nullable* _Nullable itemsPtr;
    unsigned long* _Nullable mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained _Nullable[_Nonnull])buffer
                                    count:(NSUInteger)length;
@end

@interface NSArray<__covariant ObjectType> : NSObject <NSFastEnumeration>
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull[_Nonnull])objects count:(NSUInteger)count;
@end

@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject
+ (instancetype)dictionaryWithObjects:(const ObjectType _Nonnull[_Nullable])objects
                              forKeys:(const KeyType _Nonnull[_Nullable])keys
                                count:(NSUInteger)count;
- (nullable ObjectType)objectForKey:(KeyType)key;
@end

@interface NSMutableDictionary<KeyType, ObjectType> : NSDictionary <KeyType, ObjectType>
+ (instancetype)dictionary;
- (void)setObject:(ObjectType)object forKey:(KeyType)key;
@end

@interface NSIndexSet : NSObject
+ (instancetype)indexSetWithIndex:(NSUInteger)value;
@end

@interface NSURL : NSObject
+ (nullable instancetype)URLWithString:(NSString*)string;
@end

@interface NSBundle : NSObject
@property(class, readonly, strong) NSBundle* mainBundle;
@property(readonly, copy) NSURL* bundleURL;
@property(nullable, readonly, copy) NSString* bundleIdentifier;
@property(nullable, readonly, copy) NSDictionary<NSString*, id>* infoDictionary;
@end

@interface NSUserDefaults : NSObject
@property(class, readonly, strong) NSUserDefaults* standardUserDefaults;
- (nullable NSData*)dataForKey:(NSString*)name;
- (void)setObject:(nullable id)value forKey:(NSString*)name;
- (void)removeObjectForKey:(NSString*)name;
@end

typedef NSString* NSAttributedStringKey;

@interface NSAttributedString : NSObject
- (instancetype)initWithString:(NSString*)string
                    attributes:(nullable NSDictionary<NSAttributedStringKey, id>*)attributes;
@end

@interface NSMutableAttributedString : NSAttributedString
- (void)appendAttributedString:(NSAttributedString*)string;
@end

typedef NSString* NSNotificationName;

@interface NSNotification : NSObject
@end

@interface NSNotificationCenter : NSObject
@property(class, readonly, strong) NSNotificationCenter* defaultCenter;
- (void)addObserver:(id)observer
           selector:(SEL)selector
               name:(nullable NSNotificationName)name
             object:(nullable id)object;
- (void)removeObserver:(id)observer;
@end

typedef NSString* NSRunLoopMode;
FOUNDATION_EXPORT NSRunLoopMode const NSDefaultRunLoopMode;

@interface NSObject (NSDelayedPerforming)
- (void)performSelector:(SEL)selector
             withObject:(nullable id)argument
             afterDelay:(NSTimeInterval)delay
                inModes:(NSArray<NSRunLoopMode>*)modes;
+ (void)cancelPreviousPerformRequestsWithTarget:(id)target;
@end

NS_ASSUME_NONNULL_END
