#pragma once

#include "support/CopiedEmpty.h"

namespace vanoka {

class SwipeOutlines;

/// What a decoder's words look like on the layout that was swiped over last, so that the next stroke over it
/// is decoded in a fraction of the time: see `SwipeDecoder::wordsFor`. Keeps the decoder's words, and takes
/// 16 bytes for each. Its copies know nothing. Not to be shared between threads.
class SwipeMemory {
    friend class SwipeDecoder;

    CopiedEmpty<SwipeOutlines> outlines_;
};

} // namespace vanoka
