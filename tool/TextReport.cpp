#include "TextReport.h"

#include <utility>

#include "velk/bytes/HexText.h"
#include "velk/image/SectorSuggestion.h"

namespace VelkTool {
namespace {

void suggestSectors(Session& session, const Input& input, std::uint64_t size) {
  if (size == 0) return;
  session.complain(input.name, "looks like a flash memory; --sector-size " + Velk::detail::hexText(size, 0) +
                                   " or auto walks it sector by sector");
}

/// Writes the lines of one input, after its headings.
class ImageReport {
 public:
  ImageReport(Session& part, std::string headings, Amount amount)
      : part_(part), headings_(std::move(headings)), amount_(amount) {
    if (amount == Amount::All) writeHeadings();
  }

  void write(std::string_view text, Verdict verdict) {
    if (amount_ == Amount::Nothing || (amount_ == Amount::Unsound && verdict == Verdict::Sound)) return;
    writeHeadings();
    part_.writeVerdict(text, verdict);
  }

 private:
  void writeHeadings() { part_.write(std::exchange(headings_, {})); }

  Session& part_;
  std::string headings_;
  Amount amount_;
};

}  // namespace

void writeTextReport(Session& session, const Inputs& inputs, std::string_view heading, const BeginImage& begin,
                     Amount amount) {
  forEachInputInTurn(session, inputs, [&](Session& part, const Input& input) {
    if (!input.file.error.empty()) return;
    ImageReport report(part, (inputs.namesFiles() ? input.name + ":\n" : "").append(heading), amount);
    const ImageLines lines = begin(part, input);
    bool isBroken = false;
    Velk::SectorSuggestion suggestion(input.image);
    std::string text;  // reused: there may be very many blocks
    for (const Velk::BlockView& block : input.image) {
      text.clear();
      const Verdict verdict = lines.ofBlock(text, block);
      report.write(text, verdict);
      if (lines.afterBlock) lines.afterBlock(block);
      suggestion.add(block);
      isBroken = isBroken || block.found == Velk::Found::OutOfSequence;
    }
    text.clear();
    const Verdict verdict = lines.ofImage ? lines.ofImage(text) : Verdict::Sound;
    if (!text.empty()) report.write(text, verdict);
    if (isBroken && inputs.sectorSize == 0) suggestSectors(part, input, suggestion.size());
  });
}

}  // namespace VelkTool
