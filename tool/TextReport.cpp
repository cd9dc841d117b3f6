#include "TextReport.h"

namespace VelkTool {

void writeTextReport(Session& session, const Inputs& inputs, std::string_view heading, LineOf lineOf,
                     const BlockVisitor& visit) {
  std::string line;  // one for all: there may be very many
  forEachInput(session, inputs, [&](const Input& input) {
    if (inputs.files.size() > 1) session.write(input.name + ":\n");
    session.write(heading);
    for (const Velk::BlockView& block : input.image) {
      line.clear();
      lineOf(line, block);
      session.write(line);
      visit(input, block);
    }
  });
}

}  // namespace VelkTool
