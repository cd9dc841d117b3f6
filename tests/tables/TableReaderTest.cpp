#include <streambuf>

#include "tables/ExchangeTables.h"

namespace Velk {
namespace {

using VelkTest::Attenuations;
using VelkTest::Compensation;
using VelkTest::CompensationPoints;
using VelkTest::fromText;
using VelkTest::messagesOf;
using VelkTest::Points;
using VelkTest::QelRegisters;
using VelkTest::Registers;

struct CountCase {
  const char* text;
  unsigned rows;
  unsigned cols;
};

TEST(TableReader, CountNeedsABlankBeforeItsStar) {
  for (const CountCase& count : {CountCase{"COUNT:  12 * 3", 12, 3},
                                 {"COUNT:  12*3", 1, 3},
                                 {"  COUNT:7 *9 x", 7, 9},
                                 {"COUNT: 5", 5, 5},
                                 {"COUNT:* 3", 0, 3},
                                 {"COUNT:9* 3", 0, 3},
                                 {"5 COUNT: * 3", 5, 3},
                                 {"COUNT: -1 * 4294967298", 4294967295U, 2},
                                 {"COUNT: x * y", 0, 0},
                                 {"COUNT: 3 * 4 # * 5", 3, 4},
                                 {"COUNT: 3 * 4\r", 3, 4}}) {
    Registers table(false);
    messagesOf(table, std::string("ID: LORN_RFBO_ATTREG_DATA\n") + count.text);
    EXPECT_EQ(table.getRowCount(), count.rows) << count.text;
    EXPECT_EQ(table.getColCount(), count.cols) << count.text;
  }
}

std::string manyLines(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += "stray\n";
  return text;
}

template <class Table>
std::string messagesAfterStrayLines(int lines) {
  Table table(false);
  const std::string row = table.getRowCapacity() != 0 ? "1: 1\n" : "";
  return messagesOf(table, "ID: " + table.getBlockString() + '\n' + manyLines(lines) + "COUNT: 1 * 1\n" + row);
}

TEST(TableReader, ToleratesSomeLinesBetweenIdAndCount) {
  const std::string plain = "ERROR: Number of lines between ID and Count to large\n";
  const std::string to = "ERROR: Number of lines between ID: and COUNT: to large!\n";
  const std::string too = "ERROR: Number of lines between ID: and COUNT: too large!\n";
  EXPECT_EQ(messagesAfterStrayLines<QelRegisters>(5), "");
  EXPECT_EQ(messagesAfterStrayLines<QelRegisters>(7), plain + plain);
  EXPECT_EQ(messagesAfterStrayLines<Attenuations>(5), "");
  EXPECT_EQ(messagesAfterStrayLines<Attenuations>(6), plain);
  EXPECT_EQ(messagesAfterStrayLines<Registers>(5), "");
  EXPECT_EQ(messagesAfterStrayLines<Registers>(6), plain);
  EXPECT_EQ(messagesAfterStrayLines<Points>(2), "");
  EXPECT_EQ(messagesAfterStrayLines<Points>(3), to);
  EXPECT_EQ(messagesAfterStrayLines<CompensationPoints>(2), "");
  EXPECT_EQ(messagesAfterStrayLines<CompensationPoints>(3), too);
  EXPECT_EQ(messagesAfterStrayLines<Compensation>(51), "");
  EXPECT_EQ(messagesAfterStrayLines<Compensation>(52), too);
}

TEST(TableReader, CountsColumnsAndRows) {
  const std::string columns = ": Number of columns read inadequate!\n";
  const std::string registerRows = "ERROR: Row value (COUNT) don't not equal with number of rows\n";
  const std::string otherRows = "ERROR: Number of rows read inadequate!\n";
  fromText<QelRegisters>("ID: RFBO_ATTREG_DATA\nCOUNT: 1 * 1\n1: 1 2\n2:\n",
                         "ERROR: In Row =1 correspondent the number of columns not with the given value\n"
                         "ERROR: In Row =2 correspondent the number of columns not with the given value\n" +
                             registerRows);
  const std::string rest = "\nCOUNT: 3 * 2\n1: 1 2\n2: 1\nend\n3: 1 2\n";
  fromText<Registers>("ID: LORN_RFBO_ATTREG_DATA" + rest, "ERROR: In Row =2" + columns + registerRows);
  fromText<Attenuations>("ID: LORN_RFBO_ATTREG_ATTENUATION" + rest, "ERROR: In Row =2" + columns + registerRows);
  fromText<Points>("ID: BLOCK_LORN_RFBO_ATT_CAL_FREQ" + rest, "ERROR: In Row =2" + columns + otherRows);
  fromText<CompensationPoints>("ID: BLOCK_LORN_RFBO_TEMP_COMP_FREQ" + rest, "ERROR: In Row =2" + columns + otherRows);
  fromText<Compensation>("ID: BLOCK_LORN_RFBO_TEMP_COMP_DATA" + rest, "ERROR: In Row =2" + columns + otherRows);
}

TEST(TableReader, RowsThatWereNotAnnouncedAreTakenBySomeOnly) {
  const std::string rest = "\nCOUNT: 0 * 1\n1: 7\n2: 8\n";
  const std::string rows = "ERROR: Row value (COUNT) don't not equal with number of rows\n";
  EXPECT_EQ(fromText<Registers>("ID: LORN_RFBO_ATTREG_DATA" + rest, rows).getStoredValue(1, 0), 8U);
  EXPECT_EQ(fromText<Points>("ID: BLOCK_LORN_RFBO_ATT_CAL_FREQ" + rest).getStoredValue(0, 0), 0.0);
  EXPECT_EQ(fromText<Compensation>("ID: BLOCK_LORN_RFBO_TEMP_COMP_DATA" + rest).getStoredValue(0, 0), 0);
  EXPECT_EQ(fromText<CompensationPoints>("ID: BLOCK_LORN_RFBO_TEMP_COMP_FREQ" + rest).getStoredValue(0, 0), 0.0);
  // The Lorn readers end at the announced row, the Qel reader at a line without a colon.
  const std::string three = "\nCOUNT: 1 * 1\n1: 7\n2: 8\n\n3: 9\nend\n4: 10\n";
  EXPECT_EQ(fromText<Registers>("ID: LORN_RFBO_ATTREG_DATA" + three).getStoredValue(1, 0), 0U);
  EXPECT_EQ(fromText<Attenuations>("ID: LORN_RFBO_ATTREG_ATTENUATION" + three).getStoredValue(1, 0), 0.0F);
  const auto qel = fromText<QelRegisters>("ID: RFBO_ATTREG_DATA" + three, rows);
  EXPECT_EQ(qel.getStoredValue(2, 0), 9U);
  EXPECT_EQ(qel.getStoredValue(3, 0), 0U);
}

TEST(TableReader, PlacesNumbersByTheirOrder) {
  const auto table = fromText<Registers>(
      "ID: LORN_RFBO_ATTREG_DATA\nCOUNT: 3 * 4\n5: a b C 0xD\n1:\t1\t2 \t3  4\r\n\r\n9:5 6 7 8 9 A\nx: 1\n",
      "ERROR: In Row =3: Number of columns read inadequate!\n");
  EXPECT_EQ(table.getStoredValue(0, 3), 13U);
  EXPECT_EQ(table.getStoredValue(1, 0), 1U);
  EXPECT_EQ(table.getStoredValue(1, 3), 4U);
  EXPECT_EQ(table.getStoredValue(2, 0), 5U);
  EXPECT_EQ(table.getStoredValue(3, 1), 10U) << "what a row has too many of goes on in the next";
  EXPECT_EQ(table.getStoredValue(4, 0), 0U);
  EXPECT_EQ(table.getRowCount(), 3U);
}

TEST(TableReader, CommentsAreCutAndBlankLinesEndTheRows) {
  const auto table = fromText<QelRegisters>(
      "# ID: RFBO_ATTREG_DATA\nCOUNT: 9 * 9\n\nx ID: is RFBO_ATTREG_DATA # here\n# COUNT: 7 * 7\nCOUNT: 2 * 1 # two\n"
      "1: 1 # 5\n#2: 2\n3: 3\n  # a line of blanks once the comment is cut\n4: 4\n");
  EXPECT_EQ(table.getStoredValue(0, 0), 1U);
  EXPECT_EQ(table.getStoredValue(1, 0), 3U);
  EXPECT_EQ(table.getStoredValue(2, 0), 0U);
}

TEST(TableReader, TakesTheFirstLineThatContainsItsName) {
  const std::string lorn = "ID: LORN_RFBO_ATTREG_DATA\nCOUNT: 1 * 1\n1: 1\nend\n";
  const std::string qel = "ID: RFBO_ATTREG_DATA\nCOUNT: 1 * 1\n1: 2\nend\n";
  EXPECT_EQ(fromText<QelRegisters>(lorn + qel).getStoredValue(0, 0), 1U);
  EXPECT_EQ(fromText<QelRegisters>(qel + lorn).getStoredValue(0, 0), 2U);
  EXPECT_EQ(fromText<QelRegisters>(lorn + qel).getId(), 15750);
  EXPECT_EQ(fromText<Registers>(qel + lorn).getStoredValue(0, 0), 1U);
  EXPECT_EQ(fromText<Registers>(lorn + lorn).getStoredValue(0, 0), 1U);
}

TEST(TableReader, ReadsNumbersAsItsTableKeepsThem) {
  const std::string rest = "\nCOUNT: 1 * 4\n1: 1000000000 0x10 -2.5e1 word\n";
  const auto points = fromText<Points>("ID: BLOCK_LORN_RFBO_ATT_CAL_FREQ" + rest);
  EXPECT_EQ(points.getStoredValue(0, 0), 10000000.0);
  EXPECT_EQ(points.getStoredValue(1, 0), 0.16) << "hexadecimal";
  EXPECT_EQ(points.getStoredValue(2, 0), -0.25);
  const auto whole = fromText<Compensation>(
      "ID: BLOCK_LORN_RFBO_TEMP_COMP_DATA\nCOUNT: 1 * 6\n1: -3.9 3.9 1e99 nan -2147483648 word\n");
  const int expected[] = {-3, 3, 0, 0, -2147483647 - 1, 0};
  for (int col = 0; col < 6; ++col) EXPECT_EQ(whole.getStoredValue(0, col), expected[col]) << col;
  const auto hundredths =
      fromText<Attenuations>("ID: LORN_RFBO_ATTREG_ATTENUATION\nCOUNT: 1 * 4\n1: 1.005 -1.005 0.129 -0.001\n");
  EXPECT_EQ(hundredths.getStoredValue(0, 0), 1.0F) << "1.005 is a little less in binary";
  EXPECT_EQ(hundredths.getStoredValue(0, 1), -1.0F);
  EXPECT_EQ(hundredths.getStoredValue(0, 2), 0.13F);
  EXPECT_EQ(hundredths.getStoredValue(0, 3), 0.0F);
  const auto words =
      fromText<Registers>("ID: LORN_RFBO_ATTREG_DATA\nCOUNT: 1 * 4\n1: FFFFFFFF -1 0x80000000 12345678G\n");
  EXPECT_EQ(words.getStoredValue(0, 0), 0xFFFFFFFFU);
  EXPECT_EQ(words.getStoredValue(0, 1), 0xFFFFFFFFU);
  EXPECT_EQ(words.getStoredValue(0, 2), 0x80000000U);
  EXPECT_EQ(words.getStoredValue(0, 3), 0x12345678U);
}

TEST(TableReader, ZeroesTheIndexColumn) {
  Compensation table(false);
  table.setIndex(5, 79);
  EXPECT_EQ(messagesOf(table, "ID: BLOCK_LORN_RFBO_TEMP_COMP_DATA\nCOUNT: 0 * 0\n"), "");
  EXPECT_EQ(table.getIndex(79), 0);
}

TEST(TableReader, ReadsFromTheStartWhateverTheStreamWentThrough) {
  Registers table(false);
  std::istringstream is("ID: LORN_RFBO_ATTREG_DATA\nCOUNT: 1 * 1\n1: 2A\n");
  std::string line;
  while (std::getline(is, line)) {
  }
  for (int times = 0; times < 2; ++times) {
    Registers::searchascii(is, table);
    EXPECT_EQ(table.getStoredValue(0, 0), 0x2AU);
  }

  class Pipe : public std::streambuf {
   public:
    explicit Pipe(std::string text) : text_(std::move(text)) {
      setg(text_.data(), text_.data(), text_.data() + text_.size());
    }

   private:
    std::string text_;
  } pipe("ID: LORN_RFBO_ATTREG_DATA\nID: LORN_RFBO_ATTREG_DATA\nCOUNT: 1 * 1\n1: 2B\n");
  std::istream stream(&pipe);
  std::getline(stream, line);
  Registers::searchascii(stream, table);
  EXPECT_EQ(table.getStoredValue(0, 0), 0x2BU) << "from where it stands";
}

TEST(TableReader, HasNothingToReadForOtherTables) {
  HwDatablockLornRfboAttCalData table(false);
  const QByteArray before = table.getByteArrayData();
  EXPECT_FALSE(table.hasExchangeText());
  std::istringstream is("ID: BLOCK_LORN_RFBO_ATT_CAL_DATA\nCOUNT: 1 * 1\n1: 1\n");
  table.readExchangeText(is);
  EXPECT_EQ(table.getByteArrayData(), before);
  std::ostringstream os;
  table.writeExchangeText(os);
  EXPECT_EQ(os.str(), "");
}

}  // namespace
}  // namespace Velk
