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
    VELK_FIELD(SingleValueRecord, count),
    VELK_FIELD(SingleValueRecord, value).counted("count"),
};

/// The value of some blocks has no sign.
inline constexpr FieldInfo unsignedSingleValueFields[] = {
    singleValueFields[0],
    detail::describeField<unsigned int>("value", offsetof(SingleValueRecord, value)).counted("count"),
};

/// Completes the traits of a single-value class by what they have in common.
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
  /// `failure` is the text of the error signalled when a stored value reads back differently.
  HwSingleValueBlock(const RecordTraits& traits, const char* failure, bool stopConversionOnError = true)
      : HwTypedRecordBlock(traits, stopConversionOnError), failure_(failure) {}

  void storeCount(unsigned int count) { set(&SingleValueRecord::count, count); }
  int value(unsigned char index) const { return index == 0 ? get(&SingleValueRecord::value) : 0; }
  /// Stores the value of index 0 and reads it back: 0 when that worked, -1 and an error signal otherwise. Another index
  /// changes nothing and gives 0.
  int storeValue(int value, unsigned char index);

 private:
  const char* failure_;
};

/// The accessors of the blocks that tune a reference oscillator. Index 0 is the only one.
class VELK_EXPORT HwReferenceOscillatorBlock : public HwSingleValueBlock {
 public:
  void setCount(unsigned char count) { storeCount(count); }
  int getOcxoRefCalValue(unsigned char index) const { return value(index); }
  /// 0, or -1 and an error signal when the stored value reads back differently.
  int setOcxoRefCalValue(int value, unsigned char index) { return storeValue(value, index); }

 protected:
  explicit HwReferenceOscillatorBlock(const RecordTraits& traits, bool stopConversionOnError = true)
      : HwSingleValueBlock(traits, "store new ocxo- value failed", stopConversionOnError) {}
};

}  // namespace Velk
