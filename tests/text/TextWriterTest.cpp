#include "velk/text/TextWriter.h"

#include <limits>

#include "TestSupport.h"
#include "velk/text/NumberText.h"

namespace Velk {
namespace {

TEST(NumberText, PadsWithZerosAndNeverCuts) {
  EXPECT_EQ(turnInt2String(0, 2), "00");
  EXPECT_EQ(turnInt2String(7, 2), "07");
  EXPECT_EQ(turnInt2String(45, 2), "45");
  EXPECT_EQ(turnInt2String(2024, 6), "002024");
  EXPECT_EQ(turnInt2String(655, 2), "655");
  EXPECT_EQ(turnInt2String(4294967295U, 5), "4294967295");
  EXPECT_EQ(turnInt2String(3, 0), "3");
}

TEST(PackedDate, KeepsItsPartsApart) {
  const PackedDate date = PackedDate::of(0x4A6F);
  EXPECT_EQ(date.year, 2017U);
  EXPECT_EQ(date.month, 3U);
  EXPECT_EQ(date.day, 15U);
  EXPECT_EQ(date.packed(), 0x4A6F);
  EXPECT_EQ(PackedDate::of(0xFFFF).year, PackedDate::lastYear);
  EXPECT_EQ(PackedDate::of(0xFFFF).packed(), 0xFFFF);
}

TEST(TextWriter, WritesNumbersAsPrintfDoes) {
  const double values[] = {0.0,
                           -0.0,
                           1.0 / 3,
                           -2.5,
                           1e6,
                           123456.5,
                           1234567,
                           1e-5,
                           1e300,
                           -1e-300,
                           0.0005,
                           2.0005,
                           std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::max()};
  for (const double value : values) {
    std::ostringstream os;
    detail::TextWriter(os).fixed(value, 3).text("|").fixed(value, 10).text("|").general(value).endLine();
    char expected[1000];
    std::snprintf(expected, sizeof expected, "%.3f|%.10f|%g\n", value, value, value);
    EXPECT_EQ(os.str(), expected);
  }
}

TEST(TextWriter, PadsKeysAndLooksAtNothingOnTheStream) {
  std::ostringstream os = VelkTest::hostileStream();
  detail::TextWriter text(os);
  text.key("ID:").text("X").number(-1234567).endLine();
  text.key("COUNT_OF_A_LONG_KEY:").number(static_cast<unsigned char>(200)).endLine();
  text.key("K:", 4).fixed(1234.5, 2).endLine();
  EXPECT_EQ(os.str(), "ID:              X-1234567\nCOUNT_OF_A_LONG_KEY:200\nK:  1234.50\n");
}

TEST(TextWriter, FlushesEachLineAndNoticesAFailedStream) {
  class CountingBuffer : public std::stringbuf {
   public:
    int flushes = 0;
    int sync() override { return ++flushes < 3 ? 0 : -1; }
  } buffer;
  std::ostream os(&buffer);
  detail::TextWriter text(os);
  text.line("a");
  text.line("b");
  EXPECT_EQ(buffer.flushes, 2);
  EXPECT_TRUE(text.ok());
  text.line("c");
  EXPECT_FALSE(text.ok());
}

}  // namespace
}  // namespace Velk
