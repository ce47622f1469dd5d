#pragma once

#import <AppKit/AppKit.h>
