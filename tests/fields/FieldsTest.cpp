#include "velk/fields/Fields.h"

#include "FieldSupport.h"
#include "TestSupport.h"
#include "velk/records/HwDatablockIdent.h"

namespace Velk {
namespace {

using VelkTest::findField;
using VelkTest::forEachField;

struct VELK_RECORD Entry {
  signed char gain;
  float offset;
};

struct VELK_RECORD Sample {
  HwSDatablockHeader header;
  unsigned int word;
  short cells[2][3];
  Entry entries[2];
  double value;
};

constexpr FieldInfo entryFields[] = {VELK_FIELD(Entry, gain), VELK_FIELD(Entry, offset)};
constexpr FieldInfo sampleFields[] = {
    VELK_FIELD(Sample, word).part("low", {.shift = 0, .width = 4}),
    VELK_FIELD(Sample, word).part("high", {.shift = 21, .width = 11, .isSigned = true}),
    VELK_FIELD(Sample, cells),
    VELK_FIELD(Sample, entries).of(entryFields),
    VELK_FIELD(Sample, value),
};

class FieldsOfASample : public testing::Test {
 protected:
  FieldResult set(std::string_view path, std::string_view text) {
    return setFieldText(bytes_, findField(sampleFields, path).value(), text);
  }
  std::string get(std::string_view path) { return fieldText(bytes_, findField(sampleFields, path).value()); }

  std::vector<unsigned char> bytes_ = std::vector<unsigned char>(sizeof(Sample));
};

TEST_F(FieldsOfASample, AreNamedByTheirPaths) {
  std::string paths;
  forEachField(sampleFields, sizeof(Sample), [&](const std::string& path, FieldElement) { paths += path + ' '; });
  EXPECT_EQ(paths,
            "low high cells[0][0] cells[0][1] cells[0][2] cells[1][0] cells[1][1] cells[1][2] entries[0].gain "
            "entries[0].offset entries[1].gain entries[1].offset value ");
  forEachField(sampleFields, sizeof(Sample), [](const std::string& path, FieldElement element) {
    EXPECT_EQ(findField(sampleFields, path).value().offset, element.offset) << path;
  });
}

TEST_F(FieldsOfASample, AreStoredWhereTheRecordHasThem) {
  EXPECT_EQ(set("cells[1][2]", "-300"), FieldResult::Done);
  EXPECT_EQ(set("entries[1].gain", "-128"), FieldResult::Done);
  EXPECT_EQ(set("entries[1].offset", "0.1"), FieldResult::Done);
  EXPECT_EQ(set("value", "1e-300"), FieldResult::Done);
  EXPECT_EQ(set("low", "15"), FieldResult::Done);
  EXPECT_EQ(set("high", "-1024"), FieldResult::Done);
  Sample sample;
  std::memcpy(&sample, bytes_.data(), sizeof sample);
  EXPECT_EQ(sample.cells[1][2] + 0, -300);
  EXPECT_EQ(sample.entries[1].gain, -128);
  EXPECT_EQ(sample.entries[1].offset + 0, 0.1F);
  EXPECT_EQ(sample.value + 0, 1e-300);
  EXPECT_EQ(sample.word + 0, 0x8000000FU);
  EXPECT_EQ(get("entries[1].offset"), "0.1");
  EXPECT_EQ(get("high"), "-1024");
  EXPECT_EQ(get("value"), "1e-300");
}

TEST_F(FieldsOfASample, RefuseWhatTheyCannotHold) {
  const std::vector<unsigned char> before = bytes_;
  for (const char* const path : {"", "lo", "cells", "cells[0]", "cells[2][0]", "cells[0][3]", "cells[-1][0]",
                                 "cells[0][0][0]", "cells[ 0][0]", "cells[0", "entries[0]", "entries[0].none",
                                 "entries.gain", "low[0]", "low.x", "value ", "cells[99999999999999999999][0]"}) {
    EXPECT_FALSE(findField(sampleFields, path)) << path;
  }
  EXPECT_EQ(set("low", "16"), FieldResult::OutOfRange);
  EXPECT_EQ(set("low", "-1"), FieldResult::OutOfRange);
  EXPECT_EQ(set("high", "1024"), FieldResult::OutOfRange);
  EXPECT_EQ(set("cells[0][0]", "32768"), FieldResult::OutOfRange);
  EXPECT_EQ(set("cells[0][0]", "99999999999999999999"), FieldResult::OutOfRange);
  EXPECT_EQ(set("entries[0].offset", "1e39"), FieldResult::OutOfRange);
  for (const char* const text : {"", "x", "1x", " 1", "1.5", "0x10"}) {
    EXPECT_EQ(set("cells[0][0]", text), FieldResult::NotAValue) << text;
  }
  bytes_.resize(20);
  EXPECT_EQ(set("value", "1"), FieldResult::OutsideBlock);
  EXPECT_EQ(get("value"), "0");
  EXPECT_EQ(bytes_, std::vector<unsigned char>(before.begin(), before.begin() + 20));
}

/// Fields of which one says that another counts it; no such record is in the catalogue, whose rows are all checked.
constexpr FieldInfo countedBy(const char* counter) { return sampleFields[2].counted(counter); }
constexpr FieldInfo missingCounter[] = {sampleFields[0], countedBy("lwo")};
constexpr FieldInfo listAsCounter[] = {sampleFields[2], countedBy("cells")};
constexpr FieldInfo fractionAsCounter[] = {VELK_FIELD(Sample, value), countedBy("value")};
constexpr FieldInfo wholeNumberAsCounter[] = {sampleFields[0], countedBy("low")};
constexpr FieldInfo missingColumns[] = {sampleFields[0], sampleFields[2].counted("low", "columns")};
constexpr FieldInfo missingInside[] = {VELK_FIELD(Sample, entries).of(missingCounter)};

TEST(Fields, AreCountedByAWholeNumberOfTheirRecord) {
  static_assert(detail::hasItsCounters(wholeNumberAsCounter));
  static_assert(!detail::hasItsCounters(missingCounter));
  static_assert(!detail::hasItsCounters(listAsCounter));
  static_assert(!detail::hasItsCounters(fractionAsCounter));
  static_assert(!detail::hasItsCounters(missingColumns));
  static_assert(!detail::hasItsCounters(missingInside));
  static_assert(&fieldNamed(sampleFields, "high") == &sampleFields[1]);
}

FieldResult setIn(HwDatablockIdent& ident, std::string_view path, std::string_view text,
                  ValueForm form = ValueForm::Presented) {
  return setFieldText({ident.getData(), 44}, findField(identFields, path).value(), text, form);
}

TEST(FieldsOfTheIdentRecord, ReadAndSetByName) {
  HwDatablockIdent ident;
  const auto set = [&](std::string_view path, std::string_view text) { return setIn(ident, path, text); };
  EXPECT_EQ(set("serialNumber", "4294967295"), FieldResult::Done);
  EXPECT_EQ(set("variant", "2"), FieldResult::Done);
  EXPECT_EQ(set("productDate", "2017-03-15"), FieldResult::Done);
  EXPECT_EQ(set("name", "RF board 4711x"), FieldResult::Done) << "14 bytes fill the name";
  EXPECT_EQ(ident.getSerialNumber(), 4294967295U);
  EXPECT_EQ(ident.getVariant(), 2);
  EXPECT_EQ(ident.getProductDate(), 0x4A6F);
  EXPECT_EQ(ident.getName(), "RF board 4711x");

  EXPECT_EQ(set("variant", "256"), FieldResult::OutOfRange);
  EXPECT_EQ(set("name", "RF board 4711xy"), FieldResult::OutOfRange);

  std::string text;
  forEachField(identFields, 44, [&](const std::string& path, FieldElement element) {
    text += path + '=' + fieldText({ident.getData(), 44}, element) + '\n';
  });
  EXPECT_EQ(text,
            "eepromSize=0\npartNumber=0\nvariant=2\nhardwareCode=0\nproductIndex=0\nserialNumber=4294967295\n"
            "productDate=2017-03-15\nreadCode=0\ntestInstruction=0\nname=RF board 4711x\n");
}

TEST(FieldsOfTheIdentRecord, DatesAreThoseOfACalendar) {
  HwDatablockIdent ident;
  const auto set = [&](std::string_view path, std::string_view text) { return setIn(ident, path, text); };
  const auto setStored = [&](const char* text) { return setIn(ident, "productDate", text, ValueForm::Stored); };
  EXPECT_EQ(set("productDate", "2017-03-15"), FieldResult::Done);
  for (const char* const date : {"1979-01-01", "2108-01-01"}) {
    EXPECT_EQ(set("productDate", date), FieldResult::OutOfRange) << date;
  }
  for (const char* const date : {"2017", "2017-03", "2017-03-", "17.3.2017", "2017-03-15x", "0x4A6F", "2017-02-29",
                                 "2017-13-01", "2017-00-10", "2017-01-32", "2017-257-01", "1980-00-32"}) {
    EXPECT_EQ(set("productDate", date), FieldResult::NotAValue) << date;
  }
  const std::vector<unsigned char> before(ident.getData(), ident.getData() + 44);
  EXPECT_EQ(set("productDate", "1980-00-00"), FieldResult::Done) << "unset, as zeroed records have it";
  EXPECT_EQ(ident.getProductDate(), 0);
  EXPECT_EQ(setStored("65535"), FieldResult::Done) << "no calendar has it, erased records do";
  EXPECT_EQ(ident.getProductDate(), 65535);
  EXPECT_EQ(setStored("65536"), FieldResult::OutOfRange);
  EXPECT_EQ(setStored("2017-03-15"), FieldResult::Done);
  EXPECT_EQ(std::vector<unsigned char>(ident.getData(), ident.getData() + 44), before);
}

}  // namespace
}  // namespace Velk
