#pragma once

#include <iosfwd>
#include <map>

#include "velk/datablock/HwDatablock.h"

namespace Velk {

/// One prototype object for each known block id, owned by the map. Looking up any other id adds a null entry.
class VELK_EXPORT IdHwDatablockOldStyleClassDict : public std::map<int, HwDatablock*> {
 public:
  IdHwDatablockOldStyleClassDict() = default;
  IdHwDatablockOldStyleClassDict(const IdHwDatablockOldStyleClassDict&) = delete;
  IdHwDatablockOldStyleClassDict& operator=(const IdHwDatablockOldStyleClassDict&) = delete;
  ~IdHwDatablockOldStyleClassDict();
};

/// Prints and converts old-style blocks, whose layout depends on their id alone.
///
/// The constructor builds the dictionary; keep one interpreter for as long as blocks are printed. Printing writes into
/// the prototype of the block's id, so only one thread at a time may print.
class VELK_EXPORT HwDatablockOldStyleInterpreter {
 public:
  HwDatablockOldStyleInterpreter();
  HwDatablockOldStyleInterpreter(const HwDatablockOldStyleInterpreter&) = delete;
  HwDatablockOldStyleInterpreter& operator=(const HwDatablockOldStyleInterpreter&) = delete;
  virtual ~HwDatablockOldStyleInterpreter();

  /// Writes the block in the text form of the class registered for its id, whatever its checksum, without changing it.
  /// Returns false and writes nothing if the block is null or its id is unknown.
  bool printHwDatablockOldStyleInfo(HwDatablock* block, std::ostream& os);

  /// Converts a block, laid out as block id `id` says, to the byte order `format`. Returns false and leaves the block
  /// unchanged for an id whose blocks are not converted; these are not the same ids as in the dictionary. Keeps the
  /// stored checksum, and all bytes of a block that is shorter than the layout.
  static bool swapHwDatablock(HwEDataFormatTyp format, int id, HwDatablock* block);

 private:
  IdHwDatablockOldStyleClassDict dictionary_;
};

}  // namespace Velk
