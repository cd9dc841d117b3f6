#include "CommandSupport.h"

namespace {

using VelkTest::Command;
using VelkTest::Outcome;
using VelkTest::run;

class Get : public Command {};

TEST_F(Get, GivesAValuePerLine) {
  struct Case {
    QStringList arguments;
    const char* output;
  };
  const Case cases[] = {
      {{"rf_board.bin", "IDENT_2.SN", "2.partNumber", "HwDatablockIdent.NAME"},
       "100234\n1141.1000.02\nRF-BOARD\nFILTER\n"},
      {{"rf_board.bin", "IDENT_2.productDate", "IDENT_2.PRODUCTINDEX"}, "2017-03-15\n12.34\n"},
      {{"rf_board.bin", "--stored", "IDENT_2.partNumber", "IDENT_2.PRODUCTINDEX"}, "11411000\n1234\n"},
      {{"rf_board.bin", "--nth", "1", "IDENT_*.SN"}, "100234\n4711\n"},
      {{"mainboard.bin", "MBRD_MAC.mac", "MBRD_MAC.mac[1]"}, "02:00:5E:10:20:30\n0\n"},
      {{"synthesizer.bin", "SERVICE_200.OPHOURS", "MODIFICATION_120.SERVICECODE[0:2]"},
       "00000/001234\n100123\n100207\n"},
  };
  for (const Case& each : cases) {
    const Outcome result = run(QStringList{"get"} + each.arguments);
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(result.output, each.output);
  }
}

TEST_F(Get, SaysWhatIsNotThereAndGoesOn) {
  const Outcome result = run({"get", "rf_board.bin", "IDENT_3.SN", "IDENT_2.sn", "IDENT_2.SN"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.output, "100234\n");
  EXPECT_EQ(result.errors,
            "velk: rf_board.bin: has no block IDENT_3\n"
            "velk: rf_board.bin: offset 0x00000000, id 2: no field \"sn\"; the nearest is name\n");
}

TEST_F(Get, DamagedBlocksAreReportedAndTextsKeepTheirLine) {
  QByteArray image = VelkTest::exampleImage("rf_board.bin");
  image.replace(30, 4, "a\nb\x7F");
  const Outcome result = run({"get", file("damaged.bin", image), "IDENT_2.NAME"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.output, "a\\x0Ab\x7FOARD\n");
  EXPECT_NE(result.errors.find("checksum is 0x"), std::string::npos) << result.errors;
}

}  // namespace
