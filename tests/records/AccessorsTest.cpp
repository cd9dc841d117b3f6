#include "AccessorSupport.h"
#include "velk/datablock/HwDatablockIds.h"
#include "velk/records/HwDatablockIdent.h"
#include "velk/records/MainboardRecords.h"
#include "velk/records/ServiceRecords.h"

namespace Velk {
namespace {

using VelkTest::Accessors;

TEST(RecordAccessors, ReachTheirFields) {
  Accessors<HwDatablockIdent>()
      .row("eepromSize", VELK_PAIR(HwDatablockIdent, EepromSize))
      .row("partNumber", VELK_PAIR(HwDatablockIdent, PartNumber))
      .row("variant", VELK_PAIR(HwDatablockIdent, Variant))
      .row("hardwareCode", VELK_PAIR(HwDatablockIdent, HardwareCode))
      .row("productIndex", VELK_PAIR(HwDatablockIdent, ProductIndex))
      .row("serialNumber", VELK_PAIR(HwDatablockIdent, SerialNumber))
      .row("productDate", VELK_PAIR(HwDatablockIdent, ProductDate))
      .row("readCode", VELK_PAIR(HwDatablockIdent, ReadCode))
      .row("testInstruction", VELK_PAIR(HwDatablockIdent, TestInstruction));
  Accessors<HwDatablockServiceData>()
      .row("serviceDate", VELK_PAIR(HwDatablockServiceData, ServiceDate))
      .row("opTimeHours", VELK_PAIR(HwDatablockServiceData, OpTimeHours))
      .row("opTimeTurnOn", VELK_PAIR(HwDatablockServiceData, OpTimeTurnOn))
      .row("repairNumber", VELK_PAIR(HwDatablockServiceData, RepairNumber))
      .row("serviceCode", VELK_PAIR(HwDatablockServiceData, ServiceCode));
  Accessors<HwDatablockModification>()
      .row("serviceCode[i]", VELK_PAIR(HwDatablockModification, ServiceCode), {10})
      .row("circularNr[i]", VELK_PAIR(HwDatablockModification, CircularNr), {10})
      .row("action[i]", VELK_PAIR(HwDatablockModification, Action), {10});
  Accessors<HwDatablockModification110>().row("serviceCode[i]", VELK_PAIR(HwDatablockModification110, ServiceCode),
                                              {10});
  Accessors<HwDatablockStatistic>().row("opHours", VELK_PAIR(HwDatablockStatistic, OpHours));
  Accessors<HwDatablockMbrdSerialNumber>().row("serialNumber", VELK_PAIR(HwDatablockMbrdSerialNumber, SerialNumber));
  EXPECT_EQ(HwDatablockMiscIdent(_DatablockId_Stream_Aux_Ident_).getMiscBlockId(), _DatablockId_Stream_Aux_Ident_);
}

}  // namespace
}  // namespace Velk
