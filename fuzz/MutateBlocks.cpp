// Mends the checks of mutated blocks: an input with wrong ones is of no interest beyond the check itself.
#include "FuzzSupport.h"

extern "C" std::size_t LLVMFuzzerMutate(unsigned char* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(unsigned char* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
  size = LLVMFuzzerMutate(data, size, maxSize);
  if (seed % 4 != 0) VelkFuzz::mendImage({data, size}, seed);
  return size;
}
