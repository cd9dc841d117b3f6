#pragma once

#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// A count and one value.
struct VELK_RECORD SingleValueRecord {
  HwSDatablockHeader header;
  unsigned int count;
  int value;

  bool operator==(const SingleValueRecord&) const = default;
};
static_assert(sizeof(SingleValueRecord) == 16);

inline constexpr FieldInfo singleValueFields[] = {
    VELK_FIELD(SingleValueRecord, count).keyed("COUNT"),
    VELK_FIELD(SingleValueRecord, value).counted("count"),
};

/// In some blocks the value is unsigned.
inline constexpr FieldInfo unsignedSingleValueFields[] = {
    singleValueFields[0],
    detail::describeField<unsigned int>("value", offsetof(SingleValueRecord, value)).counted("count"),
};

/// Completes the traits of a single-value class with what all of them share.
constexpr RecordTraits singleValueTraits(RecordTraits traits, std::span<const FieldInfo> fields = singleValueFields) {
  traits.size = sizeof(SingleValueRecord);
  traits.fields = fields;
  traits.idWidth = 15;
  return traits;
}

/// A block that holds one calibration value, the one with index 0.
class VELK_EXPORT HwSingleValueBlock : public HwTypedRecordBlock<SingleValueRecord> {
 public:
  unsigned int getCount() const { return get(&SingleValueRecord::count); }

  std::ostream& printToStream(std::ostream& os) override;

 protected:
  /// `failure` is the text of the error signalled if a stored value reads back differently.
  HwSingleValueBlock(const RecordTraits& traits, const char* failure, bool stopConversionOnError = true)
      : HwTypedRecordBlock(traits, stopConversionOnError), failure_(failure) {}

  void storeCount(unsigned int count) { set(&SingleValueRecord::count, count); }
  int value(unsigned char index) const { return index == 0 ? get(&SingleValueRecord::value) : 0; }
  /// Stores the value of index 0, reads it back and returns 0; or signals an error and returns -1 if it differs. For
  /// any other index does nothing and returns 0.
  int storeValue(int value, unsigned char index);

 private:
  const char* failure_;
};

/// The accessors of the blocks that tune a reference oscillator. Index 0 is the only one.
class VELK_EXPORT HwReferenceOscillatorBlock : public HwSingleValueBlock {
 public:
  void setCount(unsigned char count) { storeCount(count); }
  int getOcxoRefCalValue(unsigned char index) const { return value(index); }
  /// Returns 0; or -1, after signalling an error, if the stored value reads back differently.
  int setOcxoRefCalValue(int value, unsigned char index) { return storeValue(value, index); }

 protected:
  explicit HwReferenceOscillatorBlock(const RecordTraits& traits, bool stopConversionOnError = true)
      : HwSingleValueBlock(traits, "store new ocxo- value failed", stopConversionOnError) {}
};

}  // namespace Velk
