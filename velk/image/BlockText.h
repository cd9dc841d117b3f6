#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "velk/image/BlockView.h"

namespace Velk {

/// How a block is printed.
enum class Page : unsigned char {
  Usual,     ///< blocks with tables on the complete page, others in their text form
  Complete,  ///< this and the next three are pages of blocks with tables; others keep their text form
  Detail,
  Summary,
  Heading,
  Hex,  ///< the bytes of any block
};

/// Prints a block: its tables on the page, a block of a catalogued class in the text form of its class, and any other
/// as bytes, 16 per line, with their offsets in the image. Blocks that are not sound are printed as far as their bytes
/// go. Some classes report odd contents to the Console while they print.
VELK_EXPORT void printBlock(std::ostream& stream, const BlockView& block, Page page = Page::Usual);

/// A part of a block that a page does not show as it is.
struct NotShown {
  std::string text;  ///< such as "table 1: the complete page cannot show row ids (LONG DOUBLE)"
  Page instead;      ///< the page that shows it
};

/// Returns what a page does not show of a block, at most one entry for each table. No page of tables shows an event
/// counter as what it is.
VELK_EXPORT std::vector<NotShown> notOnPage(const BlockView& block, Page page);

}  // namespace Velk
