#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velk/tables/HwTableBlock.h"

namespace VelkTool {

/// An empty table of an id's class, or null where blocks of the id have no text form that is read back.
std::unique_ptr<Velk::HwTableBlock> makeExchangeTable(int id);

/// One table in a text: the id of the table that its ID line names, and its lines.
struct TableSection {
  unsigned short id;
  std::string text;
};

/// The tables in a text, in its order, each from its ID line to the next. The library's readers look for their names
/// as parts of others and may read on into the next table; held to a section they cannot take one for another.
std::vector<TableSection> tableSections(std::string_view text);

}  // namespace VelkTool
