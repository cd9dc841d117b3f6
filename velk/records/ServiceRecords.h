#pragma once

#include <vector>

#include "velk/bytes/PackedDate.h"
#include "velk/datablock/HwDatablockIds.h"
#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// One service of a module.
struct VELK_RECORD HwSDatablockServiceData {
  HwSDatablockHeader header;
  char department[6];          ///< no terminating zero
  unsigned short serviceDate;  ///< packed, see PackedDate
  unsigned int opTime;         ///< bits 0 to 17 operating hours, 18 to 31 number of turn-ons
  unsigned short repairNumber;
  unsigned short serviceCode;

  bool operator==(const HwSDatablockServiceData&) const = default;
};
static_assert(sizeof(HwSDatablockServiceData) == 24);

inline constexpr FieldInfo serviceFields[] = {
    VELK_FIELD(HwSDatablockServiceData, department).asText().keyed("DEPARTMENT").personal(),
    VELK_FIELD(HwSDatablockServiceData, serviceDate).asDate().keyed("SERVICEDATE"),
    VELK_FIELD(HwSDatablockServiceData, opTime)
        .part("opTimeHours", {.shift = 0, .width = 18})
        .in("h")
        .keyed("OPHOURS", Notation::Hours),
    VELK_FIELD(HwSDatablockServiceData, opTime).part("opTimeTurnOn", {.shift = 18, .width = 14}),
    VELK_FIELD(HwSDatablockServiceData, repairNumber).keyed("REPAIRNUMBER").personal(),
    VELK_FIELD(HwSDatablockServiceData, serviceCode).keyed("SERVICECODE"),
};

/// Who serviced the module, when, after how many operating hours and why; a block for each service.
class VELK_EXPORT HwDatablockServiceData : public HwTypedRecordBlock<HwSDatablockServiceData> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = _DatablockId_Service_200_,
      .refusal = "HwDatablockServiceData",
      .keys = {"SERVICE_200", "SERVICE_201", "SERVICE_202", "SERVICE_203", "SERVICE_204", "SERVICE_205", "SERVICE_206",
               "SERVICE_207", "SERVICE_208", "SERVICE_209"},
      .alsoKeys = {.firstId = _DatablockId_Service_299_, .keys = {"SERVICE_299"}},
      .fields = serviceFields,
      .comments = {"# Das sind die Servicedaten Service 200"},
  });

  /// Makes a block without an id.
  HwDatablockServiceData();
  explicit HwDatablockServiceData(HwEVariantEepromDatablock id);

  unsigned short getServiceDataId() { return getId(); }
  /// Returns the six characters inside the block, which have no terminating zero.
  char* getDepartment() { return getBlock()->department; }
  unsigned short getServiceDate() const { return get(&HwSDatablockServiceData::serviceDate); }
  unsigned short getServiceDateDay() const { return static_cast<unsigned short>(date().day); }
  unsigned short getServiceDateMonth() const { return static_cast<unsigned short>(date().month); }
  unsigned short getServiceDateYear() const { return static_cast<unsigned short>(date().year); }
  unsigned int getOpTime() const { return get(&HwSDatablockServiceData::opTime); }
  unsigned int getOpTimeHours() const { return opTimePart(hours); }
  unsigned int getOpTimeTurnOn() const { return opTimePart(turnOns); }
  unsigned short getRepairNumber() const { return get(&HwSDatablockServiceData::repairNumber); }
  unsigned short getServiceCode() const { return get(&HwSDatablockServiceData::serviceCode); }

  /// Copies six characters; does nothing if `department` is null.
  void setDepartment(const char* department);
  void setServiceDate(unsigned short date) { set(&HwSDatablockServiceData::serviceDate, date); }
  void setServiceDateDay(unsigned short day);
  void setServiceDateMonth(unsigned short month);
  void setServiceDateYear(unsigned short year);
  void setOpTime(unsigned int time) { set(&HwSDatablockServiceData::opTime, time); }
  void setOpTimeHours(unsigned int count) { setOpTime(detail::withPart(getOpTime(), hours, count)); }
  void setOpTimeTurnOn(unsigned int count) { setOpTime(detail::withPart(getOpTime(), turnOns, count)); }
  void setRepairNumber(unsigned short number) { set(&HwSDatablockServiceData::repairNumber, number); }
  void setServiceCode(unsigned short code) { set(&HwSDatablockServiceData::serviceCode, code); }

  std::ostream& printToStream(std::ostream& os) override;

 private:
  static constexpr Bits hours = fieldNamed(serviceFields, "opTimeHours").bits;
  static constexpr Bits turnOns = fieldNamed(serviceFields, "opTimeTurnOn").bits;

  HwDatablockServiceData(unsigned short id, std::nullptr_t);

  PackedDate date() const { return PackedDate::of(getServiceDate()); }
  unsigned int opTimePart(Bits bits) const { return static_cast<unsigned int>(detail::partOf(getOpTime(), bits)); }
};

/// Ten modifications that were applied to a module, each a service code.
struct VELK_RECORD HwSDatablockModification {
  HwSDatablockHeader header;
  unsigned short serviceCode[10];

  bool operator==(const HwSDatablockModification&) const = default;
};
static_assert(sizeof(HwSDatablockModification) == 28);
using HwSDatablockModification110 = HwSDatablockModification;

inline constexpr FieldInfo modification110Fields[] = {
    VELK_FIELD(HwSDatablockModification, serviceCode).keyed("SERVICECODE")};
inline constexpr FieldInfo modificationFields[] = {
    modification110Fields[0],
    VELK_FIELD(HwSDatablockModification, serviceCode).part("circularNr", {.shift = 0, .width = 14}),
    VELK_FIELD(HwSDatablockModification, serviceCode).part("action", {.shift = 14, .width = 2}),
};

/// The common base of the two modification blocks of ten entries. An index above 9 reads as 0 and is not written.
class VELK_EXPORT HwModificationBlock : public HwTypedRecordBlock<HwSDatablockModification> {
 public:
  unsigned short getServiceCode(unsigned char index) const {
    return get(&HwSDatablockModification::serviceCode, index);
  }
  void setServiceCode(unsigned short code, unsigned char index) {
    set(&HwSDatablockModification::serviceCode, code, index);
  }

  std::ostream& printToStream(std::ostream& os) override;

 protected:
  using HwTypedRecordBlock::HwTypedRecordBlock;
};

/// Modifications whose entries are a circular number and an action.
class VELK_EXPORT HwDatablockModification : public HwModificationBlock {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = _DatablockId_Modification_100_,
      .refusal = "HwDatablockModification",
      .keys = {"MODIFICATION_100"},
      .fields = modificationFields,
      .onSet = AlignmentRule::Take,
      .comments = {"# Das sind die Servicedaten Modification"},
  });

  HwDatablockModification() : HwModificationBlock(traits, true) {}

  unsigned short getCircularNr(unsigned char index) const { return codePart(circularNr, index); }
  unsigned short getAction(unsigned char index) const { return codePart(action, index); }
  void setCircularNr(unsigned short number, unsigned char index) { setCodePart(circularNr, number, index); }
  void setAction(unsigned short number, unsigned char index) { setCodePart(action, number, index); }

 private:
  static constexpr Bits circularNr = fieldNamed(modificationFields, "circularNr").bits;
  static constexpr Bits action = fieldNamed(modificationFields, "action").bits;

  unsigned short codePart(Bits bits, unsigned char index) const {
    return static_cast<unsigned short>(detail::partOf(getServiceCode(index), bits));
  }
  void setCodePart(Bits bits, unsigned short part, unsigned char index) {
    setServiceCode(detail::withPart(getServiceCode(index), bits, part), index);
  }
};

class VELK_EXPORT HwDatablockModification110 : public HwModificationBlock {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = _DatablockId_Modification_110_,
      .refusal = "HwDatablockModification110",
      .keys = {"MODIFICATION_110"},
      .fields = modification110Fields,
      .onSet = AlignmentRule::Take,
      .comments = {"# Das sind die Servicedaten Modification"},
  });

  HwDatablockModification110() : HwModificationBlock(traits, true) {}
};

inline constexpr FieldInfo modification120Fields[] = {
    detail::describeField<unsigned int>("serviceCode", sizeof(HwSDatablockHeader)).openList().keyed("SERVICECODE"),
};

/// Modifications as a list of 32-bit service codes that fills the block. Header and codes are also kept outside the
/// buffer, as they were at the last reInterpretData.
class VELK_EXPORT HwDatablockModification120 : public HwDatablock {
 public:
  static constexpr RecordTraits traits{
      .id = _DatablockId_Modification_120_,
      .size = sizeof(HwSDatablockHeader),
      .keys = {"MODIFICATION_120"},
      .fields = modification120Fields,
      .comments = {"# Das sind die Servicedaten Modification120"},
  };

  HwDatablockModification120();

  /// Reads header and codes from the buffer again.
  void reInterpretData();
  unsigned int getNumberOfServiceCode();
  /// Returns 0 for an index past the last code.
  unsigned int getServiceCode(unsigned int index);

  using HwDatablock::swapBlock;
  void swapBlock();

  std::ostream& printToStream(std::ostream& os) override;

 private:
  HwSDatablockHeader header_{};
  std::vector<unsigned int> serviceCodes_;
};

/// Operating hours of a module.
struct VELK_RECORD HwSDatablockStatistic {
  HwSDatablockHeader header;
  unsigned int opHours;

  bool operator==(const HwSDatablockStatistic&) const = default;
};
static_assert(sizeof(HwSDatablockStatistic) == 12);

inline constexpr FieldInfo statisticFields[] = {VELK_FIELD(HwSDatablockStatistic, opHours).in("h").keyed("OPHOURS")};

class VELK_EXPORT HwDatablockStatistic : public HwTypedRecordBlock<HwSDatablockStatistic> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = _DatablockId_Statistics_300_,
      .refusal = "HwDatablockStatistic",
      .keys = {"STATISTICS_300"},
      .fields = statisticFields,
      .comments = {"# Das sind die Statisticdaten Statistics 300"},
  });

  HwDatablockStatistic() : HwTypedRecordBlock(traits, true) {}

  unsigned int getOpHours() const { return get(&HwSDatablockStatistic::opHours); }
  void setOpHours(unsigned int hours) { set(&HwSDatablockStatistic::opHours, hours); }

  std::ostream& printToStream(std::ostream& os) override;
};

}  // namespace Velk
