#include "velk/records/HwDatablockIdent.h"

#include <iomanip>
#include <ostream>

#include "velk/layer/RecordText.h"

namespace Velk {
namespace {

constexpr const FieldInfo& eepromSize = fieldNamed(identFields, "eepromSize");
constexpr const FieldInfo& nameField = fieldNamed(identFields, "name");

}  // namespace

QString HwIdentRecordBlock::getName() const {
  const std::string_view name = getText(&HwSDatablockIdent::name);
  return QString::fromLocal8Bit(name.data(), static_cast<qsizetype>(name.size()));
}

void HwIdentRecordBlock::setName(const QString& name) { setText(&HwSDatablockIdent::name, name.toLocal8Bit()); }

void HwIdentRecordBlock::printProduct(detail::TextWriter& text) const {
  for (const FieldInfo& field : identFields) {
    const bool isProduct = *field.key != '\0' && &field != &eepromSize && &field != &nameField;
    if (isProduct) detail::printKeyed(text, bytes(), field).endLine();
  }
}

std::ostream& HwDatablockIdent::printToStream(std::ostream& os) {
  constexpr unsigned short idWithLongName = 10;
  detail::TextWriter text(os);
  text.line("# Das sind die Kopfdaten");
  text.key("ID:").text("IDENT_").number(getId()).endLine();
  text.key("ALIGNMENT:").number(getAlignment()).endLine();
  detail::printKeyed(text, bytes(), eepromSize).endLine();
  printProduct(text);
  detail::printKeyed(text, bytes(), nameField).text(getId() == idWithLongName ? "  " : "").endLine();
  text.endLine();
  return os << std::setfill('0') << std::right;
}

std::ostream& HwDatablockMiscIdent::printToStream(std::ostream& os) {
  detail::TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  printProduct(text);
  detail::printKeyed(text, bytes(), nameField).endLine();
  text.endLine();
  return os << std::setfill('0') << std::right;
}

}  // namespace Velk
