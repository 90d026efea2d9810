#include "benchmarks/counted_memory.h"

#include <cstdlib>
#include <new>

#include <malloc.h>

namespace solvanta::benchmarks {
namespace {

MemoryCount counted;

}  // namespace

MemoryCount memory_count() {
    return counted;
}

}  // namespace solvanta::benchmarks

void* operator new(std::size_t size) {
    using solvanta::benchmarks::counted;
    void* memory = std::malloc(size);
    if (!memory) throw std::bad_alloc();
    ++counted.allocations;
    counted.bytes_held += static_cast<std::int64_t>(malloc_usable_size(memory));
    return memory;
}

void operator delete(void* memory) noexcept {
    using solvanta::benchmarks::counted;
    counted.bytes_held -= static_cast<std::int64_t>(malloc_usable_size(memory));
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}
