#pragma once

#include "TextField.h"

#import <InputMethodKit/InputMethodKit.h>

#include <functional>

/// A text-input client of the platform over a plain text field. Fails the running test when it is sent a
/// text in a form that the platform's clients do not take.
@interface RecordingClient : NSObject <IMKTextInput> {
@private
    vanoka::test::TextField _field;
    NSString* _bundleIdentifier;
    std::function<void()> _whenInserted;
}

/// Nil for a client without a name.
- (instancetype)initWithBundleIdentifier:(NSString*)bundleIdentifier;
- (vanoka::test::TextField&)field;
/// Called after each insertion, before the client returns.
- (void)whenInserted:(std::function<void()>)action;
@end
