#pragma once

#include <optional>
#include <string>

#include "Session.h"

namespace VelkTool {

struct TableExport {
  std::string file;
  int id = 0;
  std::string out;  ///< empty: standard output
};

/// Writes a table of a memory image as text.
void exportTable(Session& session, const TableExport& options);

struct TableImport {
  std::string file;
  std::string text;
  std::optional<int> id;  ///< whose class reads the text; without it every table that the text names is read
  std::string out;
  bool force = false;   ///< writes what could be read of a faulty text
  bool append = false;  ///< adds tables that the image lacks
};

/// Puts the tables of a text into a memory image.
void importTable(Session& session, const TableImport& options);

}  // namespace VelkTool
