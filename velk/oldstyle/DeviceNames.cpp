#include "velk/oldstyle/DeviceNames.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Velk {
namespace {

constexpr unsigned rowCount = 150;
constexpr std::size_t tagLength = 13;
constexpr unsigned filter13Row = 83;

struct KnownBoard {
  unsigned row;  ///< its place in the table
  std::string_view name;
  std::string_view tag;
};

// Each row has the number of its board, except for two: FILTER13 has the number of FILTER6, and the row after the last
// board repeats board 102.
constexpr KnownBoard knownBoards[] = {
    {0, "DACIF", "DACIF        "},
    {1, "DACB", ""},
    {8, "IQOP3", "IQOP3_LCM    "},
    {18, "IQOP3_RFM", "IQOP3_RFM    "},
    {19, "FMR6", "FRONTMODUL   "},
    {59, "EX_IQ_BOX_IN", "EX_IQ_BOX    "},
    {60, "EX_IQ_BOX_OUT", "EX_IQ_BOX    "},
    {61, "DACB", ""},
    {64, "BABO", ""},
    {71, "BABO", ""},
    {82, "FILTER6", ""},
    {filter13Row, "FILTER13", ""},
    {102, "BBB", "BBB          "},
    {103, "BBB", "BBB          "},
    {104, "BBB", "BBB          "},
    {105, "BBW", ""},
    {106, "BBW", ""},
    {107, "BBW", ""},
    {120, "IQUPCON20", "IQUPCON20"},
    {149, "BTC_CODER", "BBB"},
};

constexpr unsigned boardOfRow(unsigned row) {
  if (row == filter13Row) return _DeviceBoard_FILTER13_;
  return row <= _DeviceBoard_Last_ ? row : _DeviceBoard_BTC_CODER_;
}

/// The rows and the terminator.
constexpr auto boards = [] {
  std::array<DeviceBoardString, rowCount + 1> table{};
  for (unsigned row = 0; row < rowCount; ++row) table[row].board = boardOfRow(row);
  for (const KnownBoard& known : knownBoards) {
    std::copy(known.name.begin(), known.name.end(), table[known.row].name);
    std::copy(known.tag.begin(), known.tag.end(), table[known.row].tag);
  }
  table.back().board = _DeviceBoard_None_;
  return table;
}();

}  // namespace

std::span<const DeviceBoardString> deviceTable() { return std::span(boards).first(rowCount); }

bool checkDeviceName(const QString& text) {
  const QByteArray local = text.toLocal8Bit();
  const std::string_view name(local.constData());
  return std::ranges::any_of(deviceTable(), [&](const DeviceBoardString& board) {
    const std::string_view tag(board.tag);
    return name.substr(0, tagLength) == tag || name == tag.substr(0, tag.find_last_not_of(' ') + 1);
  });
}

}  // namespace Velk
