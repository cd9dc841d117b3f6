#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "velk/image/MemoryImage.h"

namespace VelkTool {

/// How a block is printed.
enum class Page {
  Usual,     ///< blocks with tables completely, others in their text form
  Complete,  ///< this and the next three are pages of blocks with tables; others keep their text form
  Detail,
  Summary,
  Heading,
  Hex  ///< the bytes of any block
};

/// Whether a block consists of tables that it describes itself.
bool hasTables(const Velk::BlockView& block);

/// The page of a block with tables.
void writeTablePage(Page page, const Velk::BlockView& block, std::ostream& stream);

/// The bytes of any block, 16 a line, with their offsets in the image and their characters.
void writeHexPage(const Velk::BlockView& block, std::ostream& stream);

/// What the complete or detail page of a block cannot show, and where it can be read: a line for each table concerned.
std::vector<std::string> notOnPage(Page page, const Velk::BlockView& block);

}  // namespace VelkTool
