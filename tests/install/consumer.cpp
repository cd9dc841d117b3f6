#include <cstdio>

#include "velk/velk.h"

int main() {
  Velk::HwDatablockIdent ident;
  ident.setSerialNumber(100234);
  Velk::MemoryImage image(ident.getByteArrayData());
  for (const Velk::BlockView& block : image) std::printf("%s: %s\n", blockName(block).c_str(), verdictName(block));
}
