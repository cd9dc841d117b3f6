#include "TextReport.h"

namespace VelkTool {

void writeTextReport(Session& session, const Inputs& inputs, std::string_view heading, LineOf lineOf,
                     const BlockVisitor& visit) {
  forEachInputInTurn(session, inputs, [&](Session& part, const Input& input) {
    if (!input.file.error.empty()) return;
    if (inputs.files.size() > 1) part.write(input.name + ":\n");
    part.write(heading);
    std::string line;  // one for all: there may be very many
    for (const Velk::BlockView& block : input.image) {
      line.clear();
      lineOf(line, block);
      part.write(line);
      visit(part, input, block);
    }
  });
}

}  // namespace VelkTool
