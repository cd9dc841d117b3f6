#include <algorithm>
#include <ostream>

#include "Files.h"
#include "Images.h"
#include "Inputs.h"
#include "LimitedText.h"
#include "TableCommands.h"
#include "TableSections.h"

namespace VelkTool {
namespace {

void writeTable(Session& session, const TableExport& options, const Velk::BlockView& block, Velk::HwTableBlock& table) {
  table.setDataWithoutChecksumCheck(block.bytes.data(), static_cast<unsigned>(block.bytes.size()));
  LimitedText text;
  std::ostream stream(&text);
  table.writeExchangeText(stream);
  complainOf(session, options.file, block);
  if (text.full()) {
    session.complain(options.file, placeText(block) + ": COUNT " + std::to_string(table.getRowCount()) + " * " +
                                       std::to_string(table.getColCount()) + " is too much for a text");
    session.worsen(Exit::Findings);
  } else if (options.out.empty()) {
    session.write(text.text());
  } else {
    writeFile(session, options.out, QByteArray::fromStdString(std::string(text.text())));
  }
}

}  // namespace

void exportTable(Session& session, const TableExport& options) {
  const auto refuse = [&](const std::string& file, const std::string& what, Exit exit) {
    session.complain(file, what);
    session.worsen(exit);
  };
  const std::string id = std::to_string(options.id);
  const auto table = makeExchangeTable(options.id);
  if (table == nullptr)
    return refuse(options.file, "blocks of id " + id + " have no text to be read back", Exit::Usage);
  if (isSameFile(options.file, options.out)) return refuse(options.out, "would write over its input", Exit::Usage);
  forEachInput(session, {.files = {options.file}}, [&](const Input& input) {
    for (const Velk::BlockView& block : input.image) {
      if (block.id == options.id && block.row != nullptr) return writeTable(session, options, block, *table);
    }
    refuse(input.name, "has no block of id " + id, Exit::Findings);
  });
}

}  // namespace VelkTool
