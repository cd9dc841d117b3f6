#pragma once

namespace Velk {

/// Block ids of variant EEPROMs. docs/formats.md lists the kinds whose numbers their owners assign.
enum HwEVariantEepromDatablock {
  _DatablockId_Ident_2_ = 2,
  _DatablockId_Ident_3_ = 3,
  _DatablockId_Ident_4_ = 4,
  _DatablockId_Ident_5_ = 5,
  _DatablockId_Ident_6_ = 6,
  _DatablockId_Ident_7_ = 7,
  _DatablockId_Ident_8_ = 8,
  _DatablockId_Ident_9_ = 9,
  _DatablockId_Ident_10_ = 10,
  _DatablockId_Modification_100_ = 100,
  _DatablockId_Modification_110_ = 110,
  _DatablockId_Modification_120_ = 120,
  _DatablockId_Service_200_ = 200,
  _DatablockId_Service_201_ = 201,
  _DatablockId_Service_202_ = 202,
  _DatablockId_Service_203_ = 203,
  _DatablockId_Service_204_ = 204,
  _DatablockId_Service_205_ = 205,
  _DatablockId_Service_206_ = 206,
  _DatablockId_Service_207_ = 207,
  _DatablockId_Service_208_ = 208,
  _DatablockId_Service_209_ = 209,
  _DatablockId_Service_299_ = 299,
  _DatablockId_Statistics_300_ = 300,
  _DatablockId_Stream_Opt_Ident_ = 10503,
  _DatablockId_Stream_Aux_Ident_ = 10504,
  _DatablockId_SAtt3_CalibDataAtt_ = 10602,
  _DatablockId_Common_PowerOn_Count_ = 11310,
  _DatablockId_Common_PowerOn_Count_Backup_ = 11311,
  _DatablockId_Common_Operating_Time_Count_ = 11312,
  _DatablockId_Common_Operating_Time_Count_Backup_ = 11313
};

}  // namespace Velk
