// Values as people write them: in the notation of their field, or in its unit.
#include <gtest/gtest.h>

#include "velk/fields/Notation.h"
#include "velk/fields/Quantity.h"

namespace Velk {
namespace {

/// A record of one field in ten bytes, of which the first `bytes` are its own.
struct Sample {
  FieldInfo field;
  std::vector<unsigned char> bytes = std::vector<unsigned char>(10);

  FieldElement element() const { return {&field, 0}; }
  std::string shown() const { return quantityText(bytes, element()); }
  FieldResult set(std::string_view text) { return setQuantityText(bytes, element(), text); }
};

template <class T>
FieldInfo fieldOf() {
  return detail::describeField<T>("field", 0);
}

struct Case {
  FieldInfo field;
  std::string_view given;
  std::string_view shown;  ///< or what is shown if the value is refused
  FieldResult result = FieldResult::Done;
};

void expect(std::initializer_list<Case> cases) {
  for (const Case& each : cases) {
    Sample sample{each.field};
    EXPECT_EQ(sample.set(each.given), each.result) << each.given;
    EXPECT_EQ(sample.shown(), each.shown) << each.given;
  }
}

TEST(WrittenValues, NotationsAreReadAsTheyAreShown) {
  using enum FieldResult;
  const FieldInfo part = fieldOf<unsigned int>().written(Notation::PartNumber);
  const FieldInfo pairs = fieldOf<unsigned short>().written(Notation::DigitPairs);
  const FieldInfo hours =
      fieldOf<unsigned int>().part("hours", {.shift = 0, .width = 18}).in("h").written(Notation::Hours);
  expect({
      {part, "1141.1000.02", "1141.1000.02"},
      {part, "1.0005.255", "1.0005.255"},
      {part, "1141.1000", "1141.1000.00"},
      {part, "11411000", "1141.1000.00"},
      {part, "1141.1000.256", "0.0000.00", OutOfRange},
      {part, "429497.0000.02", "0.0000.00", OutOfRange},
      {part, "99999999999999999999.0000", "0.0000.00", NotAValue},
      {part, "1141.100.02", "0.0000.00", NotAValue},
      {part, "1141.1000.2", "0.0000.00", NotAValue},
      {part, "1141.1000.02 ", "0.0000.00", NotAValue},
      {part, "-1.1000.02", "0.0000.00", NotAValue},
      {part, "", "0.0000.00", NotAValue},
      {pairs, "13.00", "13.00"},
      {pairs, "655.35", "655.35"},
      {pairs, "1300", "13.00"},
      {pairs, "655.36", "00.00", OutOfRange},
      {pairs, "13.0", "00.00", NotAValue},
      {pairs, "13.", "00.00", NotAValue},
      {hours, "00000/012345", "00000/012345"},
      {hours, "12345", "00000/012345"},
      {hours, "1/000000", "00000/000000", OutOfRange},
  });
}

TEST(WrittenValues, NumbersAreInTheirUnitIfTheySaySo) {
  using enum FieldResult;
  const FieldInfo hundredths = fieldOf<short>().in("1/100 dB");
  const FieldInfo factor = fieldOf<short>().in("1/10000");
  const FieldInfo real = fieldOf<float>().in("1/100 dB");
  const FieldInfo tens = fieldOf<unsigned int>().in("10 Hz");
  const FieldInfo steps = fieldOf<unsigned char>().in("dB", 1.0 / 128, 15);
  expect({
      {hundredths, "24", "0.24 dB"},
      {hundredths, "0.26", "0.26 dB"},
      {hundredths, "-0.26dB", "-0.26 dB"},
      {hundredths, "2 dB", "2 dB"},
      {hundredths, "0.264 dB", "0.26 dB"},
      {hundredths, "3.5e2 dB", "0 dB", OutOfRange},
      {hundredths, "1e300", "0 dB", OutOfRange},
      {hundredths, "nan dB", "0 dB", NotAValue},
      {hundredths, "dB", "0 dB", NotAValue},
      {hundredths, "2 mV", "0 dB", NotAValue},
      {factor, "24", "24 (1/10000)"},
      {factor, "24 (1/10000)", "24 (1/10000)"},
      {factor, "0.24", "0 (1/10000)", NotAValue},
      {real, "24.5", "0.245 dB"},
      {real, "0.245 dB", "0.245 dB"},
      {tens, "35", "350 Hz"},
      {tens, "350 Hz", "350 Hz"},
      {steps, "16", "16 dB"},
      {steps, "15.5dB", "15.5 dB"},
      {fieldOf<unsigned int>().in("Hz", 100), "1000000 Hz", "1000000 Hz"},
      {fieldOf<char[8]>().asText(), "50 dB", "50 dB"},
  });
}

TEST(WrittenValues, AddressesAreHexadecimalPairs) {
  const std::vector<unsigned char> address{0x00, 0x90, 0xB8, 0x12, 0x34, 0x56};
  EXPECT_EQ(addressText(address), "00:90:B8:12:34:56");
  EXPECT_EQ(parseAddress("00:90:b8-12:34:56"), address);
  for (const char* const text : {"0:90", "00:", "00:9", "0090", "00:90:", "00 90", "0x:90", "00:-1", "+1:00"}) {
    EXPECT_EQ(parseAddress(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace Velk
