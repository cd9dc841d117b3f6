#pragma once

namespace Velk {

/// Block ids of variant EEPROMs. docs/formats.md lists the kinds whose numbers their owners assign.
enum HwEVariantEepromDatablock : int {
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

/// The kinds of blocks by name, whether they have a number here or not. The values are internal to this library: blocks
/// do not contain them.
enum HwEBlockString : int {
  _BlockString_Unknown_,         ///< of an unknown kind
  _BlockString_CompleteEeprom_,  ///< not a single block but the whole memory
  _BlockString_Ident_2_,
  _BlockString_Ident_3_,
  _BlockString_Ident_4_,
  _BlockString_Ident_5_,
  _BlockString_Ident_6_,
  _BlockString_Ident_7_,
  _BlockString_Ident_8_,
  _BlockString_Ident_9_,
  _BlockString_Ident_10_,
  _BlockString_Modification_100_,
  _BlockString_Modification_110_,
  _BlockString_Modification_120_,
  _BlockString_Service_200_,
  _BlockString_Service_201_,
  _BlockString_Service_202_,
  _BlockString_Service_203_,
  _BlockString_Service_204_,
  _BlockString_Service_205_,
  _BlockString_Service_206_,
  _BlockString_Service_207_,
  _BlockString_Service_208_,
  _BlockString_Service_209_,
  _BlockString_Service_299_,
  _BlockString_Statistics_300_,
  _BlockString_Stream_Opt_Ident_,
  _BlockString_Stream_Aux_Ident_,
  _BlockString_IqOp3_Rfm_CalibData10_,
  _BlockString_SAtt3_CalibDataAtt_,
  _BlockString_Common_PowerOn_Count_,
  _BlockString_Common_PowerOn_Count_Backup_,
  _BlockString_Common_Operating_Time_Count_,
  _BlockString_Common_Operating_Time_Count_Backup_,
  _BlockString_Common_OBEL_PowerOn_Count_,
  _BlockString_Common_OBEL_PowerOn_Count_Backup_,
  _BlockString_Common_OBEL_Operating_Time_Count_,
  _BlockString_Common_OBEL_Operating_Time_Count_Backup_,
  _BlockString_Common_EventCount_0_,
  _BlockString_Common_EventCount_1_,
  _BlockString_Common_EventCount_2_,
  _BlockString_Common_EventCount_3_,
  _BlockString_Common_EventCount_4_,
  _BlockString_Common_EventCount_5_,
  _BlockString_Common_EventCount_6_,
  _BlockString_Common_EventCount_7_,
  _BlockString_Common_EventCount_8_,
  _BlockString_Common_EventCount_9_
};

}  // namespace Velk
