#pragma once

#include <string_view>

#include "velk/containers/ContainerText.h"
#include "velk/containers/TextLines.h"

namespace Velk::detail {

/// A record as its digits give it.
struct Record {
  static constexpr std::size_t longest = 260;

  unsigned char bytes[longest];
  std::size_t count = 0;
  std::size_t digits = 0;  ///< offset in the text of its first digit
  char type = '\0';        ///< the second character of the mark, if it has one

  ConstBytes view() const { return {bytes, count}; }
  /// Returns the offset in the text of the digits of a byte.
  std::size_t digitsOf(std::size_t byte) const { return digits + 2 * byte; }
};

/// What Intel HEX and S-record have in common: lines with a mark and hexadecimal digits that put bytes at addresses.
///
/// A record may stand anywhere in a line, since files come with prompts, time stamps and comments around the records,
/// and a line may hold several, since line ends get lost. What surrounds them is skipped. A line that was meant to be
/// a record but is not valid is reported and its bytes are lost.
class RecordReader {
 public:
  explicit RecordReader(std::string_view text) : text_(text) {}
  virtual ~RecordReader() = default;

  ContainerText read();
  /// Returns whether there is a valid record.
  bool hasRecord() const;

 protected:
  /// Returns the offset of the next mark, or npos.
  virtual std::size_t findMark(std::string_view line, std::size_t from) const = 0;
  virtual std::size_t markLength() const = 0;
  /// Returns the mark as messages call it.
  virtual std::string markName() const = 0;
  /// Returns what is wrong with a record, or an empty text.
  virtual std::string problemOf(const Record& record) const = 0;
  virtual void take(const Record& record) = 0;
  /// Returns where a record that is not valid puts its bytes as far as its digits say, a size of 0 if it has none.
  virtual std::optional<AddressRange> claimOf(const Record& record) const = 0;

  static std::string checksumProblem(unsigned stored, unsigned right);
  /// Adds a finding about the current line.
  void report(std::string text) { findings_.add(line_, std::move(text)); }
  /// Adds bytes of a record, which begin at its byte `first`.
  void place(std::uint64_t address, ConstBytes data, const Record& record, std::size_t first);
  void noteLength(std::size_t dataBytes);

  ContainerText result_{.details = {.recordLength = 0}};
  bool isEnded_ = false;    ///< by an end record
  bool isCounted_ = false;  ///< by a count record, which shows as well that no line is missing

 private:
  void takeLine(const TextLine& place);
  /// Takes the record after a mark. Returns the end of its digits, or nothing if it is not valid.
  std::optional<std::size_t> takeRecord(std::string_view line, std::size_t mark, const TextLine& place);
  std::optional<std::size_t> decodeValid(std::string_view line, std::size_t mark, Record& record) const;
  std::size_t decode(std::string_view line, std::size_t mark, Record& record) const;
  std::string problemAt(std::string_view line, std::size_t end, const Record& record) const;
  bool isMeant(std::string_view line, std::size_t mark) const;
  bool isMeantWhole(std::string_view line, std::size_t mark) const;
  bool isMeantWithoutMark(std::string_view line) const;
  void reportWrong(std::string_view line, std::size_t mark);

  std::string_view text_;
  std::uint32_t line_ = 0;
  TextLines lines_{text_};
  FindingList findings_{result_.findings};
};

/// Returns the sum of the bytes modulo 256.
unsigned char sumOfBytes(ConstBytes bytes);

/// Returns the number whose bytes these are, the highest first.
std::uint32_t bigEndian(ConstBytes bytes);

}  // namespace Velk::detail
