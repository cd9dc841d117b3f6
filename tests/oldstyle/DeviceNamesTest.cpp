#include "velk/oldstyle/DeviceNames.h"

#include "TestSupport.h"

namespace Velk {
namespace {

TEST(DeviceTable, BoardsAscendButForThreeRows) {
  const auto table = deviceTable();
  ASSERT_EQ(table.size(), 150U);
  std::vector<unsigned> expected;
  for (unsigned board = 0; board <= 147; ++board) {
    expected.push_back(board);
    if (board == 82) expected.push_back(board);
  }
  expected.push_back(102);
  std::vector<unsigned> boards;
  for (const DeviceBoardString& row : table) boards.push_back(row.board);
  EXPECT_EQ(boards, expected);
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
  using Boards = std::vector<unsigned>;
  EXPECT_EQ(rowsOf("DACB"), (Boards{1, 61}));
  EXPECT_EQ(rowsOf("BABO"), (Boards{64, 71}));
  EXPECT_EQ(rowsOf("BBB"), (Boards{102, 103, 104}));
  EXPECT_EQ(rowsOf("BBW"), (Boards{105, 106, 107}));
  EXPECT_EQ(rowsOf("FILTER6"), (Boards{82}));
  EXPECT_EQ(rowsOf("FILTER13"), (Boards{82}));
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
