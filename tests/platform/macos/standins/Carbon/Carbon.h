#pragma once

// Text Input Sources, as far as an input method registers itself. The system is a test: it answers with the
// status in the environment variable VANOKA_TEST_REGISTRATION_STATUS, or 0, and keeps what it was asked for.
#import <Foundation/Foundation.h>

typedef int OSStatus;
typedef const struct __CFURL* CFURLRef;

#ifdef __cplusplus
extern "C" {
#endif

OSStatus TISRegisterInputSource(CFURLRef location);

#ifdef __cplusplus
}
#endif
