#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "velk/tables/TableExchange.h"

namespace Velk::detail {

/// Builds a table image from a text that may have been edited by hand: finds the line that names the table, then its
/// counts, then reads row after row. Errors do not stop it; they are reported on the Console's output.
///
/// Rows are placed by their order. Values outside the cells are counted but not stored. Time and memory are
/// proportional to the text, whatever counts it gives.
class TableReader {
 public:
  TableReader(const ExchangeForm& form, const TableLayout& layout, std::string_view key, unsigned id, double scale);

  /// Reads a text to its end, from its start or, if it cannot be rewound, from its current position.
  void read(std::istream& is);
  /// Returns the image, whose checksum is still to be computed.
  MutableBytes image() { return image_; }
  /// Returns a sentence for each word that was read as a number but is none, or only in part, and for dropped rows.
  const std::vector<std::string>& doubts() const { return doubts_; }

 private:
  enum class State { SeeksId, SeeksCount, ReadsRows, Full, Done };

  void takeLine(std::string& line);
  void takeId(const std::string& line);
  void takeCount(std::string& line);
  void takeRow(const std::string& line);
  void endRows(const std::string& line);
  std::size_t takeTokens(std::string_view tokens);
  void finish();

  std::uint64_t rows() const { return load<unsigned>(image_, layout_.rowsOffset); }
  std::uint64_t cols() const { return load<unsigned>(image_, layout_.colsOffset); }

  const ExchangeForm& form_;
  const TableLayout& layout_;
  std::string_view key_;
  unsigned short id_;
  double scale_;
  std::vector<unsigned char> image_;
  State state_ = State::SeeksId;
  unsigned linesSinceId_ = 0;
  std::uint64_t rowsRead_ = 0;
  std::vector<std::string> doubts_;
};

}  // namespace Velk::detail
