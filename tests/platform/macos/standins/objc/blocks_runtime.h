#pragma once

// The header by which GNUstep asks for the runtime of blocks.
#include <Block.h>
