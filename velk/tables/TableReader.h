#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "velk/tables/TableExchange.h"

namespace Velk::detail {

/// Builds a table image from a text that people have edited: looks for the line that names the table, then for its
/// counts, then takes row after row. Errors do not stop it; they are reported on the Console's output.
///
/// Rows are placed by their order. What falls outside the cells is counted and not stored. Time and memory are in
/// proportion to the text, whatever counts it gives.
class TableReader {
 public:
  TableReader(const ExchangeForm& form, const TableLayout& layout, std::string_view key, unsigned id, double scale);

  /// Reads a text from its start, or from where it stands if it cannot be rewound, to its end.
  void read(std::istream& is);
  /// The image; its checksum is still to be computed.
  MutableBytes image() { return image_; }
  /// What was taken for a number and is none, or not wholly, and what was not taken at all, a sentence each.
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
