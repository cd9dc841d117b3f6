#include "velk/tables/TableExchange.h"

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>

#include "velk/text/TextWriter.h"

namespace Velk::detail {
namespace {

/// Returns the number at the start of `text`, or 0. The locale must not matter: it may have a decimal comma.
double number(const char* text) {
  static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(text, nullptr, classic);
}

// Each of these writes the four blanks before its cell.

template <int width, int decimals>
void writeFixed(TextWriter& text, double value) {
  text.text("    ").fixed(value, decimals, width);
}

void writePaddedWord(TextWriter& text, double value) {
  constexpr std::size_t digits = 8;
  text.text("    0x").hex(toInteger<unsigned>(value), digits, true);
}

/// Writes as a stream with showbase does: a zero has no prefix.
void writeWord(TextWriter& text, double value) {
  const auto word = toInteger<unsigned>(value);
  text.text(word == 0 ? "" : "0x").hex(word);
}

void readWord(MutableBytes image, std::size_t cell, const char* text, double /*scale*/) {
  constexpr int hexadecimal = 16;
  store(image, cell, static_cast<unsigned>(std::strtol(text, nullptr, hexadecimal)));
}

void readScaled(MutableBytes image, std::size_t cell, const char* text, double scale) {
  store(image, cell, number(text) / scale);
}

void readWhole(MutableBytes image, std::size_t cell, const char* text, double scale) {
  store(image, cell, toInteger<int>(toInteger<int>(number(text)) / scale));
}

void readHundredths(MutableBytes image, std::size_t cell, const char* text, double /*scale*/) {
  store(image, cell, static_cast<float>(std::floor(number(text) * 100 + 0.5) * 0.01));
}

/// Returns whether a token is a register word, with or without its prefix.
bool isWord(std::string_view token) {
  constexpr int hexadecimal = 16;
  if (token.starts_with("0x") || token.starts_with("0X")) token.remove_prefix(2);
  unsigned word = 0;
  const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), word, hexadecimal);
  return error == std::errc{} && end == token.data() + token.size();
}

/// Returns the value of a token, or NaN if it is not a decimal number.
double decimal(std::string_view token) {
  const std::string whole(token);
  if (token.starts_with('+')) token.remove_prefix(1);
  const bool isSignedTwice = token.size() < whole.size() && token.starts_with('-');
  double value = 0;
  const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), value);
  const bool isNumber = error != std::errc::invalid_argument && end == token.data() + token.size();
  return isNumber && !isSignedTwice ? number(whole.c_str()) : std::numeric_limits<double>::quiet_NaN();
}

/// Returns whether a token is a decimal number that a cell of the type can hold; for integers, one without a fraction.
template <class Cell>
bool isDecimal(std::string_view token) {
  const double value = decimal(token);
  const bool fits = value >= static_cast<double>(std::numeric_limits<Cell>::lowest()) &&
                    value <= static_cast<double>(std::numeric_limits<Cell>::max());
  return fits && (!std::is_integral_v<Cell> || value == std::trunc(value));
}

constexpr const char* wrongColumns = ": Number of columns read inadequate!";

constexpr ExchangeMessages registerMessages = {
    .tooManyLines = "Number of lines between ID and Count to large",
    .wrongColumns = wrongColumns,
    .wrongRows = "Row value (COUNT) don't not equal with number of rows",
};

constexpr ExchangeMessages columnMessages(const char* tooManyLines) {
  return {.tooManyLines = tooManyLines, .wrongColumns = wrongColumns, .wrongRows = "Number of rows read inadequate!"};
}

constexpr ExchangeMessages compensationMessages = columnMessages("Number of lines between ID: and COUNT: too large!");

constexpr auto writeLong = writeFixed<21, 10>;

}  // namespace

const ExchangeForm qelAttRegDataForm = {
    .title = nullptr,
    .isPrint = false,
    .writeCell = writeWord,
    .readCell = readWord,
    .isNumber = isWord,
    .toleratedLines = 5,
    .messages = {.tooManyLines = registerMessages.tooManyLines,
                 .wrongColumns = " correspondent the number of columns not with the given value",
                 .wrongRows = registerMessages.wrongRows},
    .surplusRows = SurplusRows::Taken,
};

const ExchangeForm lornAttCalFreqForm = {
    .title = "ATT-CAL-FREQ",
    .isPrint = true,
    .writeCell = writeLong,
    .readCell = readScaled,
    .isNumber = isDecimal<double>,
    .toleratedLines = 2,
    .messages = columnMessages("Number of lines between ID: and COUNT: to large!"),
    .surplusRows = SurplusRows::Ignored,
};

const ExchangeForm lornAttRegAttenuationForm = {
    .title = "ATT-REG-ATTENUATION",
    .isPrint = true,
    .writeCell = writeFixed<12, 2>,
    .readCell = readHundredths,
    .isNumber = isDecimal<float>,
    .toleratedLines = 5,
    .messages = registerMessages,
    .surplusRows = SurplusRows::TakenIfNoneAnnounced,
};

const ExchangeForm lornAttRegDataForm = {
    .title = "ATT-REG-DATA",
    .isPrint = false,
    .writeCell = writePaddedWord,
    .readCell = readWord,
    .isNumber = isWord,
    .toleratedLines = 5,
    .messages = registerMessages,
    .surplusRows = SurplusRows::TakenIfNoneAnnounced,
};

const ExchangeForm lornTempCompDataForm = {
    .title = "TEMP-COMP-DATA",
    .isPrint = true,
    .writeCell = writeLong,
    .readCell = readWhole,
    .isNumber = isDecimal<int>,
    .toleratedLines = 51,
    .messages = compensationMessages,
    .surplusRows = SurplusRows::Ignored,
};

const ExchangeForm lornTempCompFreqForm = {
    .title = "TEMP-COMP-FREQ",
    .isPrint = true,
    .writeCell = writeLong,
    .readCell = readScaled,
    .isNumber = isDecimal<double>,
    .toleratedLines = 2,
    .messages = compensationMessages,
    .surplusRows = SurplusRows::Ignored,
};

}  // namespace Velk::detail
