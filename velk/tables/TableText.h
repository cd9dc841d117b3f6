#pragma once

#include <iosfwd>
#include <string_view>

#include "velk/tables/TableExchange.h"

namespace Velk::detail {

/// Writes a table for people. The counts determine the layout: one line a row, or one line a cell where the rows
/// outnumber the columns.
void writeDump(std::ostream& os, std::string_view key, const TableView& table);

/// Writes a table in the form that is read back. A form without a title leaves the stream writing hexadecimal with its
/// prefix.
void writeExchange(std::ostream& os, std::string_view key, const ExchangeForm& form, const TableView& table);

}  // namespace Velk::detail
