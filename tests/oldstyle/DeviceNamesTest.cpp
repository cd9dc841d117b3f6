#include "velk/oldstyle/DeviceNames.h"

#include "TestSupport.h"

namespace Velk {
namespace {

TEST(DeviceTable, EveryRowIsThatOfItsBoardButForTwo) {
  const auto table = deviceTable();
  ASSERT_EQ(table.size(), 150U);
  for (unsigned row = 0; row < table.size(); ++row) {
    EXPECT_EQ(table[row].board, row == 83 ? 82U : row == 149 ? 102U : row);
  }
  EXPECT_EQ((table.data() + table.size())->board, 149U) << "a terminator follows";
}

TEST(DeviceTable, NamesStandAtTheirBoards) {
  const auto rowsOf = [](std::string_view name) {
    std::vector<unsigned> boards;
    for (const DeviceBoardString& row : deviceTable()) {
      if (row.name == name) boards.push_back(row.board);
    }
    return boards;
  };
  const std::pair<const char*, std::vector<unsigned>> named[] = {
      {"DACIF", {_DeviceBoard_DACIF_}},
      {"DACB", {_DeviceBoard_DACB_, _DeviceBoard_DACB_2_}},
      {"IQOP3", {_DeviceBoard_IQOP3_}},
      {"IQOP3_RFM", {_DeviceBoard_IQOP3_RFM_}},
      {"FMR6", {_DeviceBoard_FMR6_}},
      {"EX_IQ_BOX_IN", {_DeviceBoard_EX_IQ_BOX_IN_}},
      {"EX_IQ_BOX_OUT", {_DeviceBoard_EX_IQ_BOX_OUT_}},
      {"BABO", {_DeviceBoard_BABO_, _DeviceBoard_BABO_2_}},
      {"BBB", {_DeviceBoard_BBB_, _DeviceBoard_BBB_2_, _DeviceBoard_BBB_3_}},
      {"BBW", {_DeviceBoard_BBW_, _DeviceBoard_BBW_2_, _DeviceBoard_BBW_3_}},
      {"FILTER6", {_DeviceBoard_FILTER6_}},
      {"FILTER13", {_DeviceBoard_FILTER13_}},
      {"IQUPCON20", {_DeviceBoard_IQUPCON20_}},
      {"BTC_CODER", {_DeviceBoard_BTC_CODER_}},
  };
  for (const auto& [name, boards] : named) EXPECT_EQ(rowsOf(name), boards) << name;
  using Boards = std::vector<unsigned>;
  EXPECT_EQ(rowsOf("DACB"), (Boards{1, 61})) << "and the enumerators are the boards' numbers";
  EXPECT_EQ(rowsOf("EX_IQ_BOX_OUT"), (Boards{60}));
  EXPECT_EQ(rowsOf("BABO"), (Boards{64, 71}));
  EXPECT_EQ(rowsOf("FILTER13"), (Boards{82}));
  EXPECT_EQ(rowsOf("BBW"), (Boards{105, 106, 107}));
  EXPECT_EQ(rowsOf("IQUPCON20"), (Boards{120}));
  EXPECT_EQ(rowsOf("BTC_CODER"), (Boards{102}));
}

TEST(DeviceNames, CompareThirteenCharacters) {
  EXPECT_TRUE(checkDeviceName("IQOP3_LCM    "));
  EXPECT_TRUE(checkDeviceName("IQOP3_LCM")) << "without the padding";
  EXPECT_TRUE(checkDeviceName("IQOP3_LCM    and more"));
  EXPECT_TRUE(checkDeviceName("IQUPCON20"));
  EXPECT_TRUE(checkDeviceName("BBB")) << "the last row's tag has no blanks";
  EXPECT_FALSE(checkDeviceName("IQOP3"));
  EXPECT_FALSE(checkDeviceName("IQUPCON20 "));
  EXPECT_FALSE(checkDeviceName("NOBODY"));
}

}  // namespace
}  // namespace Velk
