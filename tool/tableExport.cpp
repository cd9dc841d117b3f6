#include <ostream>
#include <sstream>

#include "Files.h"
#include "FindingReport.h"
#include "Images.h"
#include "LimitedText.h"
#include "TableCommands.h"
#include "TableSections.h"
#include "ValueText.h"

namespace VelkTool {
namespace {

/// Reports what an import of the text would change in the block.
void reportLosses(Session& session, const std::string& file, const Velk::BlockView& block, const std::string& text) {
  const auto report = [&](const std::string& what) { session.complain(file, placeText(block) + ": the text " + what); };
  const auto again = makeExchangeTable(block.id);
  std::istringstream refusals(readInto(*again, text));
  for (std::string refusal; std::getline(refusals, refusal);) report("will not be read back: " + refusal);
  const QByteArray bytes = replacementOf(block, *again);
  const auto length = static_cast<qsizetype>(block.bytes.size());
  if (bytes.size() != length) {
    return report("describes a table of " + std::to_string(bytes.size()) + " bytes, but the block has " +
                  std::to_string(length));
  }
  std::string first;
  std::size_t count = 0;
  forEachChange(block, bytes, [&](const std::string& change) {
    if (count++ == 0) first = change;
  });
  if (count == 0) return;
  const std::string others = count == 1 ? "" : " and " + std::to_string(count - 1) + " more";
  report("loses values; an import changes " + first + others);
}

void writeTable(Session& session, const std::string& file, const Velk::BlockView& block, const std::string& out) {
  const auto table = makeExchangeTable(block.id);
  table->setDataWithoutChecksumCheck(block.bytes.data(), static_cast<unsigned>(block.bytes.size()));
  LimitedText text;
  std::ostream stream(&text);
  table->writeExchangeText(stream);
  complainOf(session, file, block);
  if (text.full()) {
    session.complain(file, placeText(block) + ": COUNT " + std::to_string(table->getRowCount()) + " * " +
                               std::to_string(table->getColCount()) + " is too large for a text");
    session.worsen(Exit::Findings);
  } else {
    reportLosses(session, file, block, std::string(text.text()));
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
  const Velk::BlockPattern& wanted = selection.patterns.front();
  if (wanted.id() && makeExchangeTable(*wanted.id()) == nullptr) {
    return refuse(file, "blocks of id " + std::to_string(*wanted.id()) + " have no text form that can be read back");
  }
  if (isSameFile(file, out)) return refuse(out, "would overwrite its input");
  forEachInput(session, inputs, [&](const Input& input) {
    bool isWritten = false;
    forEachBlock(input.image, selection, [&](const Velk::BlockView& block) {
      if (isWritten || block.row == nullptr || makeExchangeTable(block.id) == nullptr) return;
      writeTable(session, input.name, block, out);
      isWritten = true;
    });
    if (isWritten) return;
    session.complain(input.name, noSuchBlock(wanted, selection.occurrence) +
                                     (wanted.id() ? "" : " with a text form that can be read back"));
    session.worsen(Exit::Findings);
  });
}

}  // namespace VelkTool
