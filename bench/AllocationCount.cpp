#include "AllocationCount.h"

namespace {
std::size_t count = 0;
}

// The allocator of the C library under its internal names, since `malloc` in this program is the counting one below.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_realloc(void* memory, std::size_t size);
extern "C" void* __libc_calloc(std::size_t number, std::size_t size);

extern "C" void* malloc(std::size_t size) {
  ++count;
  return __libc_malloc(size);
}

extern "C" void* realloc(void* memory, std::size_t size) {
  ++count;
  return __libc_realloc(memory, size);
}

extern "C" void* calloc(std::size_t number, std::size_t size) {
  ++count;
  return __libc_calloc(number, size);
}

std::size_t VelkBench::allocationCount() { return count; }
