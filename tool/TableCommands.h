#pragma once

#include <optional>
#include <string>

#include "Output.h"
#include "Selection.h"

namespace VelkTool {

/// Writes the first selected block of an image as text to the file `out`, or to standard output if it is empty.
void exportTable(Session& session, const Inputs& inputs, const Selection& selection, const std::string& out);

struct TableImport {
  std::string text{};
  std::optional<int>
      id{};             ///< reads the text with the class of this id; without it, reads every table that the text names
  bool force = false;   ///< writes what could be read from a faulty text
  bool append = false;  ///< adds tables that are missing in the image
};

/// Imports the tables of a text into a memory image.
void importTable(Session& session, const Inputs& inputs, const TableImport& options, const Output& output);

}  // namespace VelkTool
