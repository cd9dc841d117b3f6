#pragma once

#include <array>

#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// How often a step attenuator was overloaded.
struct VELK_RECORD HwSDatablockSAtt3OWLDCounter {
  HwSDatablockHeader header;
  unsigned int counterValue;

  bool operator==(const HwSDatablockSAtt3OWLDCounter&) const = default;
};
static_assert(sizeof(HwSDatablockSAtt3OWLDCounter) == 12);
using HwSDatablockSAtt6OWLDCounter = HwSDatablockSAtt3OWLDCounter;

inline constexpr FieldInfo overloadCounterFields[] = {
    VELK_FIELD(HwSDatablockSAtt3OWLDCounter, counterValue).keyed("COUNT_VALUE")};

/// Two counters under two ids; the second id's text serves every other id as well.
class VELK_EXPORT HwOverloadCounterBlock : public HwTypedRecordBlock<HwSDatablockSAtt3OWLDCounter> {
 public:
  unsigned int getCounterValue() const { return get(&HwSDatablockSAtt3OWLDCounter::counterValue); }
  void setCounterValue(unsigned int value) { set(&HwSDatablockSAtt3OWLDCounter::counterValue, value); }

  /// Copies counter and checksum of a record if its checksum is right; id and size stay. 0, or 1 for a refusal.
  int setBlock(const HwSDatablockSAtt3OWLDCounter* record);

  std::ostream& printToStream(std::ostream& os) override;

 protected:
  using Comments = std::array<const char*, 2>;

  HwOverloadCounterBlock(const RecordTraits& traits, const Comments& comments, int which)
      : HwTypedRecordBlock(traits, true, static_cast<unsigned short>(traits.id + (which != 0 ? 1 : 0))),
        comments_(&comments) {}

 private:
  const Comments* comments_;
};

class VELK_EXPORT HwDatablockSAtt3OWLDCounter : public HwOverloadCounterBlock {
 public:
  static constexpr Comments comments{"#Das ist der OWLD-Z�hler", "#Das ist der zweite OWLD-Z�hler"};
  static constexpr RecordTraits traits = recordTraits({
      .id = 10604,
      .refusal = "HwSDatablockSAtt3OWLDCounter",
      .keys = {"SATT3_OWLD_COUNTER_1", "SATT3_OWLD_COUNTER_2"},
      .fields = overloadCounterFields,
  });

  /// The first counter for 0, else the second.
  explicit HwDatablockSAtt3OWLDCounter(int which) : HwOverloadCounterBlock(traits, comments, which) {}
};

class VELK_EXPORT HwDatablockSAtt6OWLDCounter : public HwOverloadCounterBlock {
 public:
  static constexpr Comments comments{"# Das ist der OWLD-Z�hler_1", "# Das ist der OWLD-Z�hler_2"};
  static constexpr RecordTraits traits = recordTraits({
      .id = 11203,
      .refusal = "HwSDatablockSAtt6OWLDCounter",
      .keys = {"SATT6_OWLD_COUNTER_1", "SATT6_OWLD_COUNTER_2"},
      .fields = overloadCounterFields,
  });

  /// The first counter for 0, else the second.
  explicit HwDatablockSAtt6OWLDCounter(int which) : HwOverloadCounterBlock(traits, comments, which) {}
};

/// Two counter values.
struct VELK_RECORD HwSDatablockSAttCCounter {
  HwSDatablockHeader header;
  unsigned int counterValue[2];

  bool operator==(const HwSDatablockSAttCCounter&) const = default;
};
static_assert(sizeof(HwSDatablockSAttCCounter) == 16);

inline constexpr FieldInfo satCounterFields[] = {
    VELK_FIELD(HwSDatablockSAttCCounter, counterValue).keyed("COUNT_VALUE")};

/// Overload and high-power counters of a step attenuator and their backups, under four ids.
class VELK_EXPORT HwDatablockSAttCCounter : public HwTypedRecordBlock<HwSDatablockSAttCCounter> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 11300,
      .refusal = "HwSDatablockSAttCCounter",
      .keys = {"SATTC_OVLDCOUNTER", "SATTC_OVLDCOUNTER_BACKUP", "SATTC_HPCOUNTER", "SATTC_HPCOUNTER_BACKUP"},
      .fields = satCounterFields,
      .idWidth = 18,
  });

  explicit HwDatablockSAttCCounter(int id)
      : HwTypedRecordBlock(traits, true, static_cast<unsigned short>(id)), instance_(id) {}

  /// The id that the block was made with.
  int getInstance() const { return instance_; }
  unsigned int getCounterValue(unsigned short index) const {
    return get(&HwSDatablockSAttCCounter::counterValue, index);
  }
  void setCounterValue(unsigned int value, unsigned short index) {
    set(&HwSDatablockSAttCCounter::counterValue, value, index);
  }

  /// Copies the two values of any record and stores a fresh checksum; 0, or 1 for null.
  int setBlock(const HwSDatablockSAttCCounter* record);

  std::ostream& printToStream(std::ostream& os) override;

 private:
  int instance_;
};

}  // namespace Velk
