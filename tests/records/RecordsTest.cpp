#include "RecordSupport.h"
#include "velk/bytes/PackedDate.h"
#include "velk/datablock/HwDatablockIds.h"
#include "velk/modulecal/IqOp3RfmCalibDataMisc.h"
#include "velk/modulecal/IqOp3RfmCalibration.h"
#include "velk/records/HwDatablockIdent.h"
#include "velk/records/MainboardRecords.h"
#include "velk/records/ServiceRecords.h"

namespace Velk {
namespace {

using VelkTest::checkRecordClass;
using VelkTest::ConsoleCapture;
using VelkTest::hexOf;
using VelkTest::printed;

TEST(Records, EveryClassHasItsIdSizeKeyAndRefusal) {
  const std::string id = "ID:              ";
  checkRecordClass<HwDatablockIdent>({2, 44, id + "IDENT_2", "HwDatablockIdent", true});
  checkRecordClass<HwDatablockMiscIdent>({10503, 44, "ID:           STREAM_OPT_IDENT", "HwDatablockMiscIdent", true},
                                         _DatablockId_Stream_Opt_Ident_);
  checkRecordClass<HwDatablockServiceData>({204, 24, id + "SERVICE_204", "HwDatablockServiceData"},
                                           _DatablockId_Service_204_);
  checkRecordClass<HwDatablockServiceData>({299, 24, id + "SERVICE_299", "HwDatablockServiceData"},
                                           _DatablockId_Service_299_);
  checkRecordClass<HwDatablockServiceData>({0, 24, id, "HwDatablockServiceData"});
  checkRecordClass<HwDatablockModification>({100, 28, id + "MODIFICATION_100", "HwDatablockModification", true});
  checkRecordClass<HwDatablockModification110>({110, 28, id + "MODIFICATION_110", "HwDatablockModification110", true});
  checkRecordClass<HwDatablockStatistic>({300, 12, id + "STATISTICS_300", "HwDatablockStatistic"});
  checkRecordClass<HwDatablockMbrdSerialNumber>({12000, 12, id + "SERIAL_NUMBER", "HwSDatablockMbrdSerialNumber"});
  checkRecordClass<HwDatablockMbrdModel>({12001, 40, id + "GENERATOR_MODEL", "HwDatablockMbrdModel"});
}

TEST(Records, GoldenTexts) {
  ConsoleCapture console;
  std::string text;
  const auto add = [&](auto&& block, std::span<const FieldInfo> fields) {
    VelkTest::fillFields(block, fields);
    text += printed(block);
  };
  add(HwDatablockMiscIdent(_DatablockId_Stream_Opt_Ident_), identFields);
  add(HwDatablockMiscIdent(_DatablockId_Stream_Aux_Ident_), identFields);
  add(HwDatablockMiscIdent(static_cast<HwEVariantEepromDatablock>(7)), identFields);
  add(HwDatablockServiceData(_DatablockId_Service_200_), serviceFields);
  add(HwDatablockModification(), modification110Fields);
  add(HwDatablockModification110(), modification110Fields);
  HwDatablockModification120 modification;
  modification.resizeData(20);
  modification.setBlockSize(20);
  add(modification, modification120Fields);
  add(HwDatablockStatistic(), statisticFields);
  add(HwDatablockMbrdSerialNumber(), mbrdSerialNumberFields);
  add(HwDatablockMbrdModel(), mbrdModelFields);
  EXPECT_TRUE(VelkTest::isGolden("records.txt", text));
}

struct VELK_RECORD FanRecord {
  HwSDatablockHeader header;
  unsigned short speeds;
  unsigned short curves;
  short speed[3];
  struct VELK_RECORD Sensor {
    unsigned char port;
    float offset;

    bool operator==(const Sensor&) const = default;
  } sensors[2];
  char maker[8];
  unsigned char curve[2][3];

  bool operator==(const FanRecord&) const = default;
};

constexpr FieldInfo sensorFields[] = {
    VELK_FIELD(FanRecord::Sensor, port),
    VELK_FIELD(FanRecord::Sensor, offset).in("K"),
};
constexpr FieldInfo fanFields[] = {
    VELK_FIELD(FanRecord, speeds),
    VELK_FIELD(FanRecord, curves),
    VELK_FIELD(FanRecord, speed).in("rpm", 100).counted("speeds"),
    VELK_FIELD(FanRecord, sensors).of(sensorFields),
    VELK_FIELD(FanRecord, maker).asText(),
    VELK_FIELD(FanRecord, curve).counted("", "curves"),
};

/// A class with nothing but its declaration.
class Fan : public HwTypedRecordBlock<FanRecord> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 60000,
      .keys = {"FAN"},
      .fields = fanFields,
      .comments = {"# The fan"},
  });

  Fan() : HwTypedRecordBlock(traits, true) {}
};

TEST(Records, AClassWithoutATextPrintsItsFields) {
  Fan fan;
  FanRecord* const record = fan.getBlock();
  *record = {.header = record->header,
             .speeds = 2,
             .curves = 1,
             .speed = {12, -3, 7},
             .sensors = {{.port = 4, .offset = 0.25F}, {.port = 200, .offset = -1}},
             .maker = {'A', 'C', 'M', 'E'},
             .curve = {{5, 6, 7}, {8, 9, 10}}};
  const std::string whole =
      "# The fan\n"
      "ID:              FAN\n"
      "speeds:          2\n"
      "curves:          1\n"
      "speed[0]:        1200 rpm\n"
      "speed[1]:        -300 rpm\n"
      "sensors[0].port: 4\n"
      "sensors[0].offset: 0.25 K\n"
      "sensors[1].port: 200\n"
      "sensors[1].offset: -1 K\n"
      "maker:           ACME\n"
      "curve[0][0]:     5\n"
      "curve[1][0]:     8\n\n";
  EXPECT_EQ(printed(fan), whole);

  record->speeds = 0xFFFF;
  fan.resizeData(offsetof(FanRecord, speed) + sizeof(short));
  const std::string text = printed(fan);
  EXPECT_NE(text.find("speed[0]:        1200 rpm\nspeed[1]:        0 rpm\nspeed[2]:        0 rpm\nsensors"), text.npos)
      << "no more than the record has, and zeros for what the block lacks: " << text;
}

TEST(ServiceData, PartsOfWordsKeepTheirNeighbours) {
  HwDatablockServiceData block;
  EXPECT_EQ(std::string(block.getDepartment(), 6), "000000");
  EXPECT_EQ(block.getServiceDataId(), 0);
  block.setDepartment("1GS3/x-and-more");
  block.setServiceDate(0x4A6F);
  block.setOpTime(0x00C03039);
  EXPECT_EQ(block.getOpTimeHours(), 12345U);
  EXPECT_EQ(block.getOpTimeTurnOn(), 48U);
  block.setServiceDateYear(2020);
  EXPECT_EQ(block.getServiceDateYear(), 2020);
  EXPECT_EQ(block.getServiceDateMonth(), 3);
  EXPECT_EQ(block.getServiceDateDay(), 15);
  block.setServiceDateDay(32 + 7);
  block.setServiceDateMonth(16 + 12);
  EXPECT_EQ(block.getServiceDate(), PackedDate({2020, 12, 7}).packed());
  EXPECT_EQ(block.getOpTime(), 0x00C03039U);
  block.setOpTimeHours(0x40001);
  EXPECT_EQ(block.getOpTime(), 0x00C00001U);
  block.setOpTimeTurnOn(0x4001);
  EXPECT_EQ(block.getOpTime(), 0x00040001U);
  block.setRepairNumber(0xABCD);
  block.setServiceCode(0x1234);
  block.setDepartment(nullptr);
  EXPECT_EQ(hexOf(block).substr(24), "31 47 53 33 2F 78 87 51 01 00 04 00 CD AB 34 12");
  EXPECT_TRUE(block.verifyChecksum());
  block.setOpTime(0xFFFFFFFF);
  block.setServiceDate(0xFFFF);
  EXPECT_NE(printed(block).find("SERVICEDATE:     2107-15-31\nOPHOURS:         00000/262143\n"), std::string::npos);
}

/// The presented value of a field, as text.
std::string shown(HwDatablock& block, std::span<const FieldInfo> fields, const char* path) {
  const auto size = static_cast<std::size_t>(block.getByteArrayData().size());
  return fieldText({block.getData(), size}, VelkTest::findField(fields, path).value(), ValueForm::Presented);
}

TEST(PartsOfWords, AreTheSameByFieldAccessorAndText) {
  HwDatablockServiceData service;
  HwDatablockModification modification;
  HwDatablockIqOp3RfmCalibDataMisc misc;
  HwDatablockIqOp3RfmCalibData calibration;
  misc.setNumberOfOperatingStates(1);
  for (unsigned bit = 0; bit < 32; ++bit) {
    const unsigned word = 1U << bit;
    service.setOpTime(word);
    EXPECT_EQ(shown(service, serviceFields, "opTimeHours"), std::to_string(service.getOpTimeHours()));
    EXPECT_EQ(shown(service, serviceFields, "opTimeTurnOn"), std::to_string(service.getOpTimeTurnOn()));
    modification.setServiceCode(static_cast<unsigned short>(word), 0);
    EXPECT_EQ(shown(modification, modificationFields, "circularNr[0]"), std::to_string(modification.getCircularNr(0)));
    EXPECT_EQ(shown(modification, modificationFields, "action[0]"), std::to_string(modification.getAction(0)));
    misc.setPmaxBz(static_cast<unsigned short>(word), 0);
    char line[64];
    std::snprintf(line, sizeof line, "\nPMAX_BZ1:             %.1f\t dBm\n",
                  std::stod(shown(misc, iqOp3MiscFields, "pmaxBz[0]")));
    EXPECT_NE(printed(misc).find(line), std::string::npos) << line;
    calibration.setCalibDatablock({.steps = word, .attenuations = word}, 0);
    std::snprintf(line, sizeof line, "\t%.3f\t%.3f\t%.3f\t",
                  std::stod(shown(calibration, iqOp3CalibFields, "blocks[0].levAtt15")),
                  std::stod(shown(calibration, iqOp3CalibFields, "blocks[0].levAtt30")),
                  std::stod(shown(calibration, iqOp3CalibFields, "blocks[0].levAtt45")));
    EXPECT_NE(printed(calibration).find("[" + shown(calibration, iqOp3CalibFields, "blocks[0].levPre") + line),
              std::string::npos)
        << line;
  }
}

TEST(Modification, EntriesAreTwoParts) {
  HwDatablockModification block;
  block.setServiceCode(0xC005, 9);
  EXPECT_EQ(block.getCircularNr(9), 5);
  EXPECT_EQ(block.getAction(9), 3);
  block.setCircularNr(0xFFFF, 9);
  EXPECT_EQ(block.getServiceCode(9), 0xFFFF);
  block.setAction(1, 9);
  EXPECT_EQ(block.getServiceCode(9), 0x7FFF);
}

TEST(Modification120, ListIsAsLongAsTheBuffer) {
  ConsoleCapture console;
  HwDatablockModification120 block;
  EXPECT_EQ(hexOf(block), "78 00 08 00 00 00 00 00");
  EXPECT_EQ(block.getNumberOfServiceCode(), 0U);
  for (const auto& [length, codes] :
       {std::pair(0U, 0U), {3U, 0U}, {7U, 0U}, {11U, 0U}, {12U, 1U}, {19U, 2U}, {20U, 3U}}) {
    block.resizeData(length);
    EXPECT_EQ(block.getNumberOfServiceCode(), codes) << length;
  }
  block.getData()[8] = 0xFE;
  block.getData()[19] = 0x80;
  EXPECT_EQ(block.getServiceCode(0), 0xFEU);
  EXPECT_EQ(block.getServiceCode(2), 0x80000000U);
  EXPECT_EQ(block.getServiceCode(3), 0U);
  const QByteArray before = block.getByteArrayData();
  block.swapBlock();
  EXPECT_EQ(block.getByteArrayData(), before);
}

}  // namespace
}  // namespace Velk
