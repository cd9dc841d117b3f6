#pragma once

#include <array>

#include "velk/containers/ContainerText.h"
#include "velk/containers/DumpLine.h"
#include "velk/containers/TextLines.h"

namespace Velk::detail {

/// A base in which dumps print offsets.
inline constexpr std::array<unsigned, 3> offsetBases = {16, 8, 10};

/// What the lines of a dump have in common.
struct DumpTraits {
  DumpForm form{};
  unsigned base = offsetBases[0];
  bool isCertain = false;  ///< there are lines that confirm each other or themselves
};

/// Returns what the lines of a text have in common as a dump, or nothing if none of them is one of a dump. With
/// `untilCertain` it reads no further than it has to.
std::optional<DumpTraits> dumpTraitsOf(std::string_view text, bool untilCertain);

/// Returns the value of an offset, or nothing if it is none in this base or beyond all memories.
std::optional<std::uint64_t> offsetValue(std::string_view digits, unsigned base);

/// Reads a dump line by line.
class DumpReader {
 public:
  DumpReader(std::string_view text, const DumpTraits& traits) : text_(text), traits_(traits) {}

  ContainerText read();

 private:
  void takeBytes(const DumpLine& line, std::string_view characters);
  void takeWrong(const DumpLine& line);
  void takeRepeat();
  void takeOffset(const DumpLine& line);
  void finish();

  /// Whether a line belongs to the dump, though it may look like prose.
  bool isMeant(const DumpLine& line, std::optional<std::uint64_t> address) const;
  /// Fills up to `address` with what an asterisk repeats.
  void repeatUpTo(std::uint64_t address);
  /// Checks the last line against the address of the one after it.
  void checkLast(std::uint64_t address);
  bool isLastLineWrong() const;
  void report(std::string text) { findings_.add(line_, std::move(text)); }

  std::string_view text_;
  DumpTraits traits_;
  ContainerText result_{};
  FindingList findings_{result_.findings};
  std::uint32_t line_ = 0;
  std::uint32_t asterisk_ = 0;  ///< line of the one whose end is not known yet; 0: there is none
  std::uint64_t next_ = 0;      ///< address after the last line, wrong or not
  std::size_t longest_ = 0;     ///< bytes of a line
  std::size_t agreeing_ = 0;    ///< lines with text that shows their bytes
  std::size_t differing_ = 0;   ///< lines with text that does not
  bool isEnded_ = false;
};

}  // namespace Velk::detail
