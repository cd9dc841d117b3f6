// Repairs the checksums of mutated lines, since the readers reject all others.
#include "FuzzSupport.h"

extern "C" std::size_t LLVMFuzzerMutate(unsigned char* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(unsigned char* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
  size = LLVMFuzzerMutate(data, size, maxSize);
  if (seed % 4 != 0) VelkFuzz::mendText({data, size});
  return size;
}
