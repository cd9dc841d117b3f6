#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velk/image/MemoryImage.h"
#include "velk/tables/HwTableBlock.h"

namespace VelkTool {

/// An empty table of an id's class, or null where blocks of the id have no text form that is read back.
std::unique_ptr<Velk::HwTableBlock> makeExchangeTable(int id);

/// Reads a text into a table; says in lines what the library's reader has to say of it and what it took for numbers
/// that are none.
std::string readInto(Velk::HwTableBlock& table, const std::string& text);

/// The bytes of a table that was read from a text, with what texts leave out taken from the block that it replaces: the
/// labels of the rows.
QByteArray replacementOf(const Velk::BlockView& block, Velk::HwTableBlock& table);

/// One table in a text: the id of the table that its ID line names, and its lines.
struct TableSection {
  unsigned short id;
  std::string text;
};

/// The tables in a text, in its order, each from its ID line to the next. The library's readers look for their names
/// as parts of others and may read on into the next table; held to a section they cannot take one for another.
std::vector<TableSection> tableSections(std::string_view text);

}  // namespace VelkTool
