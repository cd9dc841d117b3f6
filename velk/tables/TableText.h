#pragma once

#include <iosfwd>
#include <string_view>

#include "velk/tables/TableExchange.h"

namespace Velk::detail {

/// Writes a table for people to read. The counts determine the layout: one line per row, or one line per cell if the
/// rows outnumber the columns.
void writeDump(std::ostream& os, std::string_view key, const TableView& table);

/// Writes a table in the form that can be read back. A form without a title leaves the stream writing hexadecimal
/// numbers with their prefix.
void writeExchange(std::ostream& os, std::string_view key, const ExchangeForm& form, const TableView& table);

}  // namespace Velk::detail
