#pragma once

#include "Controls.h"

#import <AppKit/AppKit.h>

#include <string>

/// A text that opens a web address when it is clicked.
@interface VanokaLinkButton : NSButton {
@private
    std::string _address;
}

- (instancetype)initWithLink:(const vanoka::Link&)link;
@end
