#include "vanoka.h"

#include <cstdint>
#include <cstdlib>

std::uint32_t vanoka_abi(void) {
    return VANOKA_ABI;
}

void* vanoka_alloc(std::size_t size) {
    return size > PTRDIFF_MAX ? nullptr : std::malloc(size);
}

void vanoka_free(void* memory) {
    std::free(memory);
}
