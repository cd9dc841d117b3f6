#pragma once

#include <iosfwd>
#include <map>

#include "velk/datablock/HwDatablock.h"

namespace Velk {

/// One prototype object for each known block id, which the map owns. A look-up of another id leaves a null entry.
class VELK_EXPORT IdHwDatablockOldStyleClassDict : public std::map<int, HwDatablock*> {
 public:
  IdHwDatablockOldStyleClassDict() = default;
  IdHwDatablockOldStyleClassDict(const IdHwDatablockOldStyleClassDict&) = delete;
  IdHwDatablockOldStyleClassDict& operator=(const IdHwDatablockOldStyleClassDict&) = delete;
  ~IdHwDatablockOldStyleClassDict();
};

/// Prints and converts old-style blocks, whose layout depends on their id alone.
///
/// The dictionary is built once, by the constructor; make one interpreter and keep it while blocks are printed.
/// Printing writes into the prototype of the block's id: one thread at a time.
class VELK_EXPORT HwDatablockOldStyleInterpreter {
 public:
  HwDatablockOldStyleInterpreter();
  HwDatablockOldStyleInterpreter(const HwDatablockOldStyleInterpreter&) = delete;
  HwDatablockOldStyleInterpreter& operator=(const HwDatablockOldStyleInterpreter&) = delete;
  virtual ~HwDatablockOldStyleInterpreter();

  /// Writes the block in the text form of the class registered for its id, whatever its checksum; the block stays as it
  /// is. False, and nothing written, for null and for an unknown id.
  bool printHwDatablockOldStyleInfo(HwDatablock* block, std::ostream& os);

  /// Brings a block, laid out as block id `id` says, into the byte order `format`. False, and the block untouched, for
  /// an id whose blocks are not converted; their list is not that of the dictionary. The stored checksum is kept, and a
  /// block that is shorter than the layout keeps all its bytes.
  static bool swapHwDatablock(HwEDataFormatTyp format, int id, HwDatablock* block);

 private:
  IdHwDatablockOldStyleClassDict dictionary_;
};

}  // namespace Velk
