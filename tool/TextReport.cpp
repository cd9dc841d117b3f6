#include "TextReport.h"

#include "velk/bytes/HexText.h"
#include "velk/image/SectorSuggestion.h"

namespace VelkTool {
namespace {

void suggestSectors(Session& session, const Input& input, std::uint64_t size) {
  if (size == 0) return;
  session.complain(input.name, "looks like a flash memory; --sector-size " + Velk::detail::hexText(size, 0) +
                                   " or auto walks it sector by sector");
}

}  // namespace

void writeTextReport(Session& session, const Inputs& inputs, std::string_view heading, const BeginImage& begin) {
  forEachInputInTurn(session, inputs, [&](Session& part, const Input& input) {
    if (!input.file.error.empty()) return;
    if (inputs.files.size() > 1) part.write(input.name + ":\n");
    part.write(heading);
    const ImageLines lines = begin(part, input);
    bool isBroken = false;
    Velk::SectorSuggestion suggestion(input.image);
    std::string text;  // reused: there may be very many blocks
    for (const Velk::BlockView& block : input.image) {
      text.clear();
      lines.ofBlock(text, block);
      part.write(text);
      if (lines.afterBlock) lines.afterBlock(block);
      suggestion.add(block);
      isBroken = isBroken || block.found == Velk::Found::OutOfSequence;
    }
    text.clear();
    if (lines.ofImage) lines.ofImage(text);
    part.write(text);
    if (isBroken && inputs.sectorSize == 0) suggestSectors(part, input, suggestion.size());
  });
}

}  // namespace VelkTool
