#include "Fuzz.h"
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t*, std::size_t) {
    return 0;
}
