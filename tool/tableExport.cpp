#include <ostream>

#include "Files.h"
#include "Images.h"
#include "LimitedText.h"
#include "TableCommands.h"
#include "TableSections.h"

namespace VelkTool {
namespace {

void writeTable(Session& session, const std::string& file, const Velk::BlockView& block, const std::string& out) {
  const auto table = makeExchangeTable(block.id);
  table->setDataWithoutChecksumCheck(block.bytes.data(), static_cast<unsigned>(block.bytes.size()));
  LimitedText text;
  std::ostream stream(&text);
  table->writeExchangeText(stream);
  complainOf(session, file, block);
  if (text.full()) {
    session.complain(file, placeText(block) + ": COUNT " + std::to_string(table->getRowCount()) + " * " +
                               std::to_string(table->getColCount()) + " is too much for a text");
    session.worsen(Exit::Findings);
  } else {
    writeFile(session, out.empty() ? std::string(standardOutput) : out,
              QByteArray::fromStdString(std::string(text.text())));
  }
}

}  // namespace

void exportTable(Session& session, const Inputs& inputs, const Selection& selection, const std::string& out) {
  const std::string& file = inputs.files.front();
  const auto refuse = [&](const std::string& name, const std::string& what) {
    session.complain(name, what);
    session.worsen(Exit::Usage);
  };
  const int id = selection.ids.front();
  if (makeExchangeTable(id) == nullptr) {
    return refuse(file, "blocks of id " + std::to_string(id) + " have no text to be read back");
  }
  if (isSameFile(file, out)) return refuse(out, "would write over its input");
  forEachInput(session, inputs, [&](const Input& input) {
    bool isWritten = false;
    forEachBlock(input.image, selection, [&](const Velk::BlockView& block) {
      if (isWritten || block.row == nullptr) return;
      writeTable(session, input.name, block, out);
      isWritten = true;
    });
    if (isWritten) return;
    session.complain(input.name, "has no block of id " + std::to_string(id));
    session.worsen(Exit::Findings);
  });
}

}  // namespace VelkTool
