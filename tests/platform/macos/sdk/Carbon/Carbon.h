#pragma once

// Text Input Sources, as far as an input method registers itself.
#include <MacTypes.h>

typedef const struct __CFURL* CFURLRef;

extern "C" OSStatus TISRegisterInputSource(CFURLRef location);
