#include "vanoka.h"

#include <cstdlib>

std::uint32_t vanoka_abi(void) {
    return VANOKA_ABI;
}

void* vanoka_alloc(std::size_t size) {
    return std::malloc(size);
}

void vanoka_free(void* memory) {
    std::free(memory);
}
