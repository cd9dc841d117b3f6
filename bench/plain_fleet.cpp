// Reads the files of its arguments, walks their blocks and computes the checksums. Loads the same libraries as the velk
// command: what that takes is compared by itself.
#include <cstdio>

#include "PlainFleet.h"
#include "velk/oldstyle/BlockCatalogue.h"

int main(int argc, char** argv) {
  VelkBench::PlainFleet fleet;
  std::size_t sound = 0;
  for (int i = 1; i < argc; ++i) sound += fleet.countSound(fleet.read(argv[i]));
  std::printf("%zu sound blocks\n", sound);
  return Velk::dictionaryRows().empty() || sound == 0 ? 1 : 0;
}
