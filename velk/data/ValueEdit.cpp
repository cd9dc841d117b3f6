#include "velk/data/ValueEdit.h"

#include <algorithm>
#include <utility>

#include "velk/data/DataLookup.h"
#include "velk/data/ElementCounts.h"
#include "velk/fields/FieldValue.h"
#include "velk/fields/Notation.h"
#include "velk/fields/Quantity.h"
#include "velk/image/BlockHeader.h"

namespace Velk {
namespace {

bool takesFractions(const FieldInfo& field, ValueForm form) {
  return isFloating(field.type) || (form == ValueForm::Presented && detail::isScaled(field));
}

std::string noValue(const FieldInfo& field, ValueForm form) {
  if (field.kind == FieldKind::Date) return "date such as 2017-03-15";
  const std::string number = takesFractions(field, form) ? "number" : "whole number";
  const Quantity quantity = quantityOf(field);
  if (form == ValueForm::Stored) return number;
  if (field.notation != Notation::Plain) return number + ", and nothing like " + exampleOf(field.notation);
  return quantity.isOfSteps() && !quantity.unit.empty() ? number + " and has no unit " + std::string(quantity.unit)
                                                        : number;
}

/// Returns the unit of a field's limits if a value was not given as a number of these.
std::string limitUnit(const FieldInfo& field, std::string_view text) {
  const bool isOfSteps = quantityOf(field).isOfSteps() && text.find_first_not_of("-0123456789") != text.npos;
  return isOfSteps ? " (" + std::string(field.unit) + ')' : "";
}

std::string noRoom(std::string_view text, std::size_t bytes, std::size_t room) {
  return '"' + std::string(text) + "\" has " + std::to_string(bytes) + " bytes, there is room for " +
         std::to_string(room);
}

std::string describeRefusal(FieldResult result, const FieldElement& element, std::string_view text, ValueForm form) {
  const FieldInfo& field = *element.field;
  const std::string given(text);
  switch (result) {
    case FieldResult::Done:
      return {};
    case FieldResult::NotAValue:
      return '"' + given + "\" is no " + noValue(field, form);
    case FieldResult::OutOfRange:
      if (field.kind == FieldKind::Text) return noRoom(text, text.size(), element.size);
      return given + " is out of range: " + fieldLimits(field, form) + limitUnit(field, text);
    case FieldResult::OutsideBlock:
      return "the block ends before it";
    case FieldResult::Fixed:
      return "cannot be changed: the rest of the block depends on it";
  }
  return {};
}

std::string setSingle(MutableBytes block, const FieldElement& element, std::string_view text, ValueForm form) {
  const FieldResult result =
      form == ValueForm::Presented ? setQuantityText(block, element, text) : setFieldText(block, element, text, form);
  return describeRefusal(result, element, text, form);
}

/// Sets the bytes of an address and their count. Bytes that are no longer in use become FF, as in a new block.
std::string setAddress(MutableBytes block, const DataNode& root, const DataNode::Run& list, std::string_view text) {
  const FieldInfo& field = *list.first.field;
  const auto address = parseAddress(text);
  if (!address) return '"' + std::string(text) + "\" is no address such as " + exampleOf(Notation::Address);
  if (address->size() > list.count) return noRoom(text, address->size(), list.count);
  const auto counter = root.find(field.usedRows);
  if (!counter) return "nothing counts its bytes";
  const FieldElement count = counter->element();
  const std::int64_t before = integerValue(block, count);
  const FieldResult result = setFieldText(block, count, std::to_string(address->size()));
  if (result != FieldResult::Done) return describeRefusal(result, count, text, ValueForm::Presented);
  for (std::size_t i = 0; i < list.count && std::cmp_less(i, std::max<std::int64_t>(before, std::ssize(*address)));
       ++i) {
    detail::store(block, list.first.offset + i, i < address->size() ? (*address)[i] : detail::erasedByte);
  }
  return {};
}

}  // namespace

std::string setValue(MutableBytes block, const BlockView& view, std::string_view path, std::string_view text,
                     ValueForm form) {
  const BlockData data(view, Extent::Capacity);
  const DataNode root = data.root();
  const DataLookup place = findPlace(root, path);
  const auto list = place.value ? place.value->run() : std::nullopt;
  if (list && list->first.field->notation == Notation::Address) {
    const std::string refusal = setAddress(block, root, *list, text);
    return refusal.empty() ? "" : place.path + ": " + refusal;
  }
  const DataLookup lookup = findValue(root, path);
  if (!lookup.value) return lookup.complaint;
  const FieldElement& element = lookup.value->element();
  const MutableBytes stored = block.subspan(std::min(element.offset, block.size()));
  const MutableBytes changing = stored.first(std::min(element.size, stored.size()));
  const std::vector<unsigned char> before(changing.begin(), changing.end());
  std::string refusal = setSingle(block, element, text, form);
  if (refusal.empty()) refusal = detail::noSuchCount(root, lookup.path, integerValue(block, element));
  if (refusal.empty()) return {};
  std::ranges::copy(before, changing.begin());
  return lookup.path + ": " + refusal;
}

}  // namespace Velk
