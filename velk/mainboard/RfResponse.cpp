#include "velk/mainboard/RfResponse.h"

#include "velk/layer/RecordText.h"

namespace Velk {
namespace {

using detail::TextWriter;

/// Writes `count` rows for one setting or level, such as "ATT1 7: " and the coefficients of point 7.
template <class Cell>
void printPolynomials(TextWriter& text, const char* label, unsigned number, std::uint64_t count, Cell cell) {
  for (std::uint64_t point = 0; point < count && text.ok(); ++point) {
    text.text(label).number(number).text(" ").number(point + 1).text(": ");
    const auto values = cell(static_cast<std::int64_t>(point));
    for (const int coefficient :
         {+values.coefficients[0], +values.coefficients[1], +values.coefficients[2], +values.coefficients[3]}) {
      text.text("\t\t ").number(coefficient);
    }
    text.endLine();
  }
}

}  // namespace

std::ostream& HwDatablockMbrdRfResponseAttAmpl::printToStream(std::ostream& os) {
  constexpr unsigned settings = std::extent_v<decltype(HwSDatablockMbrdRfResponseAttAmpl::cells)>;
  TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  for (unsigned setting = 0; setting < settings; ++setting) {
    text.text("#att").number(setting + 1).endLine();
    printPolynomials(text, "ATT", setting + 1, getNumberOfRfRespAttFreqs(), [&](std::int64_t point) {
      return get(&HwSDatablockMbrdRfResponseAttAmpl::cells, setting, point);
    });
    text.endLine();
  }
  text.endLine();
  return os;
}

std::ostream& HwDatablockMbrdRfResponseLpFreq::printToStream(std::ostream& os) {
  TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  for (unsigned filter = 0; filter < lowPassFilters; ++filter) {
    const std::uint64_t count = getNumberOfFreqCount(filter);
    text.text("#TIEFPASS NR. ").number(filter + 1).endLine();
    text.text("# Das sind die Frequenzst�tzstellen [MHz] der RF fuer den ").number(filter + 1).text(". TP").endLine();
    text.key("COUNT:").number(count).endLine();
    for (std::uint64_t point = 0; point < count && text.ok(); ++point) {
      text.number(point + 1).text(detail::rowSeparator);
      text.number(get(&HwSDatablockMbrdRfResponseLpFreq::cells, filter, static_cast<std::int64_t>(point))).endLine();
    }
    text.endLine();
  }
  text.endLine();
  return os;
}

HwSPolynomValues HwLowPassCorrectionBlock::correction(unsigned filter, unsigned level, unsigned index) const {
  const std::int64_t row = std::int64_t{filter} * lowPassLevels + level;
  return level < lowPassLevels ? get(&HwSDatablockMbrdRfResponseLpAmp::cells, row, index) : HwSPolynomValues{};
}

void HwLowPassCorrectionBlock::setCorrection(const HwSPolynomValues& values, unsigned filter, unsigned level,
                                             unsigned index) {
  const std::int64_t row = std::int64_t{filter} * lowPassLevels + level;
  if (level < lowPassLevels) set(&HwSDatablockMbrdRfResponseLpAmp::cells, values, row, index);
}

std::ostream& HwLowPassCorrectionBlock::printToStream(std::ostream& os) {
  TextWriter text(os);
  detail::printHeading(text, bytes(), ownTraits());
  for (unsigned filter = 0; filter < lowPassFilters; ++filter) {
    text.text("#TIEFPASS NR. ").number(filter + 1).endLine();
    text.text(section_).number(filter + 1).text(". TP").endLine();
    for (unsigned level = 0; level < lowPassLevels; ++level) {
      text.text("#iqpep").number(level + 1).endLine();
      printPolynomials(text, "IQPEP", level + 1, getNumberOfFreqCount(filter), [&](std::int64_t point) {
        return get(&HwSDatablockMbrdRfResponseLpAmp::cells, filter * lowPassLevels + level, point);
      });
    }
    text.endLine();
  }
  text.endLine();
  return os;
}

}  // namespace Velk
