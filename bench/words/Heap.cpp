#include "Heap.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::size_t bytes = 0;
std::size_t peak = 0;

} // namespace

std::size_t vanoka::bench::heapBytes() noexcept {
    return bytes;
}
std::size_t vanoka::bench::heapPeak() noexcept {
    return peak;
}
void vanoka::bench::beginHeapPeak() noexcept {
    peak = bytes;
}

void* operator new(std::size_t size) {
    void* memory = std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    bytes += malloc_usable_size(memory);
    peak = std::max(peak, bytes);
    return memory;
}

void operator delete(void* memory) noexcept {
    bytes -= malloc_usable_size(memory);
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
