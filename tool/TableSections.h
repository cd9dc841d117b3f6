#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velk/image/MemoryImage.h"
#include "velk/tables/HwTableBlock.h"

namespace VelkTool {

/// Creates an empty table of the class of `id`; null if blocks with this id have no text form that can be read back.
std::unique_ptr<Velk::HwTableBlock> makeExchangeTable(int id);

/// Reads a text into a table. Returns the messages of the reader, a line each, including words that are not numbers.
std::string readInto(Velk::HwTableBlock& table, const std::string& text);

/// Returns the bytes of a table that was read from a text. Row labels, which texts omit, are taken from the block that
/// it replaces.
QByteArray replacementOf(const Velk::BlockView& block, Velk::HwTableBlock& table);

/// One table in a text: the id that its ID line names, and its lines.
struct TableSection {
  unsigned short id;
  std::string text;
};

/// Returns the tables in a text in order, each from its ID line to the next. The readers of the library also match
/// their name inside a longer one and may read on into the next table; a section of its own prevents both.
std::vector<TableSection> tableSections(std::string_view text);

}  // namespace VelkTool
