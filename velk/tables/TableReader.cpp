#include "velk/tables/TableReader.h"

#include <charconv>
#include <cstdlib>
#include <istream>

#include "velk/platform/Console.h"

namespace Velk::detail {
namespace {

void report(const std::string& message) { Console::write(Console::Stream::Output, "ERROR: " + message + '\n'); }

constexpr bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// Returns the number at the start of `text`, as a count field stores it.
unsigned countOf(const std::string& text) {
  constexpr int decimal = 10;
  return static_cast<unsigned>(std::strtol(text.c_str(), nullptr, decimal));
}

/// Returns whether the text is a number and nothing else.
bool isCount(std::string_view text) {
  const auto begin = std::find_if_not(text.begin(), text.end(), isBlank);
  const auto end = std::find_if(begin, text.end(), isBlank);
  unsigned count = 0;
  const auto [read, error] = std::from_chars(begin, end, count);
  return error == std::errc{} && read == end && std::all_of(end, text.end(), isBlank);
}

}  // namespace

TableReader::TableReader(const ExchangeForm& form, const TableLayout& layout, std::string_view key, unsigned id,
                         double scale)
    : form_(form),
      layout_(layout),
      key_(key),
      id_(static_cast<unsigned short>(id)),
      scale_(scale),
      image_(layout.record.size) {
  store(image(), offsetof(HwSDatablockHeader, blockSize), layout.record.size);
}

void TableReader::read(std::istream& is) {
  is.clear();
  is.seekg(0);
  is.clear();
  for (std::string line; std::getline(is, line);) takeLine(line);
  finish();
}

void TableReader::takeLine(std::string& line) {
  while (line.ends_with('\r')) line.pop_back();  // from editors that write CRLF
  if (line.empty() || line.front() == '#') return;
  if (const std::size_t comment = line.find('#'); comment != line.npos) line.erase(comment);
  switch (state_) {
    case State::SeeksId:
      return takeId(line);
    case State::SeeksCount:
      return takeCount(line);
    case State::ReadsRows:
      return takeRow(line);
    case State::Full:
      return endRows(line);
    case State::Done:
      return;
  }
}

void TableReader::takeId(const std::string& line) {
  if (line.find(key_) == line.npos || line.find("ID:") == line.npos) return;
  store(image(), offsetof(HwSDatablockHeader, id), id_);
  state_ = State::SeeksCount;
}

void TableReader::takeCount(std::string& line) {
  constexpr std::string_view key = "COUNT:";
  const std::size_t at = line.find(key);
  if (at == line.npos) {
    if (++linesSinceId_ > form_.toleratedLines) report(form_.messages.tooManyLines);
    return;
  }
  line.erase(at, key.size());
  // The writer puts a blank before the star, so the character there is never part of the number. Without a star, both
  // counts are that one number.
  const std::size_t star = line.find('*');
  const std::string rows = line.substr(0, star == 0 || star == line.npos ? star : star - 1);
  const std::string cols = star == line.npos ? line : line.substr(star + 1);
  store(image(), layout_.rowsOffset, countOf(rows));
  store(image(), layout_.colsOffset, countOf(cols));
  if (!isCount(rows) || !isCount(cols)) doubts_.emplace_back("COUNT is not of the form \"rows * columns\"");
  state_ = State::ReadsRows;
}

void TableReader::takeRow(const std::string& line) {
  const std::size_t colon = line.find(':');
  if (colon == line.npos || (form_.surplusRows == SurplusRows::Ignored && rowsRead_ >= rows())) return endRows(line);
  const std::size_t tokens = takeTokens(std::string_view(line).substr(colon + 1));
  ++rowsRead_;
  if (tokens != cols()) report("In Row =" + std::to_string(rowsRead_) + form_.messages.wrongColumns);
  if (form_.surplusRows == SurplusRows::TakenIfNoneAnnounced && rowsRead_ == rows()) state_ = State::Full;
}

/// Reads the line after the last row.
void TableReader::endRows(const std::string& line) {
  if (line.find(':') != line.npos) doubts_.emplace_back("there are more rows than COUNT announces");
  state_ = State::Done;
}

/// Stores the numbers of one row, continuing into the next row if there are too many. Returns how many there are.
std::size_t TableReader::takeTokens(std::string_view tokens) {
  std::size_t count = 0;
  std::uint64_t cell = rowsRead_ * layout_.colCapacity;
  // The zero byte after the line ends its last number.
  for (auto token = std::find_if_not(tokens.begin(), tokens.end(), isBlank); token != tokens.end(); ++count, ++cell) {
    if (cell < layout_.cellCount())
      form_.readCell(image(), layout_.cellsOffset + cell * layout_.cellSize, token, scale_);
    const auto end = std::find_if(token, tokens.end(), isBlank);
    if (const std::string_view text(token, end); !form_.isNumber(text)) {
      doubts_.push_back("row " + std::to_string(rowsRead_ + 1) + ": \"" + std::string(text) + "\" is no such number");
    }
    token = std::find_if_not(end, tokens.end(), isBlank);
  }
  return count;
}

void TableReader::finish() {
  if (state_ == State::SeeksId) report("FOUND NO ID !");
  if (state_ == State::SeeksCount) {
    report("FOUND NO COUNT VALUES !");
  } else if (rowsRead_ != rows()) {
    report(form_.messages.wrongRows);
  }
}

}  // namespace Velk::detail
