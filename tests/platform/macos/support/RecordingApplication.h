#pragma once

#import <AppKit/AppKit.h>

#include <string>
#include <vector>

/// The shared application of a test. It writes down what is asked of it and of its windows; it is never
/// activated, as an application is whose request the system denies.
@interface RecordingApplication : NSApplication {
@public
    NSMutableArray* aboutOptions;         // each time's
    std::vector<std::string> frontOrders; // what was to come to the front, in this order
}

/// Makes it when it is first asked for.
+ (RecordingApplication*)shared;
@end
