#include "velk/records/HwDatablockIdent.h"

#include <iomanip>
#include <ostream>

#include "velk/layer/RecordText.h"

namespace Velk {
namespace {

/// Writes two groups of two digits with a point between them.
void printPair(detail::TextWriter& text, const char* key, unsigned value) {
  text.key(key).padded(value / 100, 2).text(".").padded(value % 100, 2).endLine();
}

}  // namespace

QString HwIdentRecordBlock::getName() const {
  const std::string_view name = nameBytes();
  return QString::fromLocal8Bit(name.data(), static_cast<qsizetype>(name.size()));
}

void HwIdentRecordBlock::setName(const QString& name) { setText(&HwSDatablockIdent::name, name.toLocal8Bit()); }

void HwIdentRecordBlock::printPartNumber(detail::TextWriter& text) const {
  const unsigned number = getPartNumber();
  text.key("PARTNUMBER:").number(number / 10000).text(".").padded(number % 10000, 4);
  text.text(".").padded(getVariant(), 2).endLine();
}

void HwIdentRecordBlock::printProduct(detail::TextWriter& text) const {
  text.key("HWCODE:").number(getHardwareCode()).endLine();
  printPair(text, "PRODUCTINDEX:", getProductIndex());
  text.key("SN:").number(getSerialNumber()).endLine();
  text.key("PRODUCTDATE:").date(PackedDate::of(getProductDate())).endLine();
  text.key("READCODE:").number(getReadCode()).endLine();
  printPair(text, "TESTINSTRUCTION:", getTestInstruction());
}

std::ostream& HwDatablockIdent::printToStream(std::ostream& os) {
  constexpr unsigned short idWithLongName = 10;
  detail::TextWriter text(os);
  text.line("# Das sind die Kopfdaten");
  text.key("ID:").text("IDENT_").number(getId()).endLine();
  text.key("ALIGNMENT:").number(getAlignment()).endLine();
  text.key("EEPROMSIZE:").number(getEepromSize()).endLine();
  printPartNumber(text);
  printProduct(text);
  text.key("NAME:").text(nameBytes()).text(getId() == idWithLongName ? "  " : "").endLine();
  text.endLine();
  return os << std::setfill('0') << std::right;
}

std::ostream& HwDatablockMiscIdent::printToStream(std::ostream& os) {
  detail::TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  printPartNumber(text);
  printProduct(text);
  text.key("NAME:").text(nameBytes()).endLine();
  text.endLine();
  return os << std::setfill('0') << std::right;
}

}  // namespace Velk
