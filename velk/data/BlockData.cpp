#include "velk/data/BlockData.h"

#include <algorithm>
#include <array>

#include "velk/datablock/Checksums.h"
#include "velk/edition2/StoredType.h"

namespace Velk {
namespace {

const char* typeName(std::int64_t type) { return detail::typeRow(static_cast<unsigned>(type)).typeName; }

constexpr FieldInfo typeField(const char* name, std::size_t offset) {
  return detail::describeField<unsigned char>(name, offset).namedBy(typeName).fixed();
}

constexpr FieldInfo updateIndexField =
    detail::describeField<unsigned short>("updateIndex", offsetof(HwSDatablockHeader2Edition, updateIndex))
        .in("", updateIndexUnit);
constexpr const char* selfDescribingMembers[] = {"updateIndex", "tables"};
constexpr FieldInfo columnTypeField = typeField("columnTypes", 0);

/// The members in the header of a table; more follow.
constexpr FieldInfo tableHeaderFields[] = {
    VELK_FIELD(HwSTableHeader2Edition, rows).fixed(),
    detail::describeField<unsigned short>("cols", offsetof(HwSTableHeader2Edition, columns)).fixed(),
    typeField("rowIdType", offsetof(HwSTableHeader2Edition, rowIdType)),
    typeField("columnIdType", offsetof(HwSTableHeader2Edition, columnIdType)),
};
constexpr const char* tableParts[] = {"columnTypes", "rowIds", "columnIds", "cells"};
enum TableMember : unsigned char { ColumnTypes = std::size(tableHeaderFields), RowIds, ColumnIds, Cells };

template <class T>
constexpr ScalarType storedScalar() {
  if constexpr (std::is_same_v<T, long double>) return ScalarType::F80;
  if constexpr (std::is_same_v<T, unsigned long long>) return ScalarType::U64;
  if constexpr (std::is_same_v<T, long long>) return ScalarType::I64;
  if constexpr (sizeof(T) <= sizeof(int) || std::is_same_v<T, double>) return detail::scalarTypeOf<T>();
}

constexpr FieldInfo typedValue(unsigned type) {
  using enum detail::StoredForm;
  return detail::withStoredType(type, [type]<class Stored>(Stored) {
    const auto scalar = storedScalar<typename Stored::Value>();
    FieldInfo field{"", 0, scalar, static_cast<unsigned short>(detail::typeSize(type))};
    if constexpr (Stored::form == FixedPoint) field = field.in("", detail::fixedPointUnit(type));
    if constexpr (Stored::form == Characters || Stored::form == String) field.kind = FieldKind::Text;
    field.isFixed = Stored::form == String;  // a longer one would move all that follows
    return field;
  });
}

/// How the values of each type are stored and shown. TYPE_ID_NONE has no size, so no block has values of it.
constexpr auto typedFields = [] {
  std::array<FieldInfo, TYPE_ID_MAX + 1> fields{};
  for (unsigned type = 0; type < fields.size(); ++type) fields[type] = typedValue(type);
  return fields;
}();

const FieldInfo& typedField(unsigned type) { return typedFields[type < typedFields.size() ? type : 0]; }

// The bytes of blocks with an unknown layout, after the known ones.
constexpr FieldInfo bytesFrom(std::size_t offset) {
  return detail::describeField<unsigned char>("bytes", offset).openList();
}
constexpr FieldInfo strayBytes[] = {bytesFrom(0)};
constexpr FieldInfo unknownBytes[] = {bytesFrom(sizeof(HwSDatablockHeader))};
constexpr FieldInfo counterBytes[] = {bytesFrom(detail::shortestCrcBlock)};

std::span<const FieldInfo> fieldsOf(const BlockView& block) {
  if (block.row != nullptr) return block.row->fields;
  if (block.kind == BlockKind::EventCounter) return counterBytes;
  return block.kind == BlockKind::Stray ? std::span(strayBytes) : std::span(unknownBytes);
}

std::uint32_t placeIn(ConstBytes block, ConstBytes part) {
  return static_cast<std::uint32_t>(part.data() - block.data());
}

/// Returns where each of the texts, stored back to back with their zeros, begins, and where the next one would.
std::vector<std::uint32_t> textStarts(ConstBytes block, ConstBytes texts) {
  std::vector<std::uint32_t> starts;
  for (std::size_t at = 0; at < texts.size();) {
    starts.push_back(placeIn(block, texts) + static_cast<std::uint32_t>(at));
    at += detail::textAt(texts, at, texts.size()).size() + 1;
  }
  starts.push_back(placeIn(block, texts) + static_cast<std::uint32_t>(texts.size()));
  return starts;
}

/// Returns the number of rows that have a cell; a damaged table may claim any number.
std::size_t rowsThere(const StoredTable& table) {
  std::size_t there = 0;
  for (std::size_t beyond = std::size_t{table.rows()} + 1; beyond - there > 1;) {
    const std::size_t middle = there + (beyond - there) / 2;
    (table.cell(0, middle - 1).data() != nullptr ? there : beyond) = middle;
  }
  return there;
}

DataTable dataTable(ConstBytes block, std::size_t offset, StoredTable stored) {
  DataTable table{.stored = {}, .offset = offset, .rows = rowsThere(stored)};
  if (stored.rowIdType() == TYPE_ID_STRING) table.rowTexts = textStarts(block, stored.rowIds());
  if (stored.columnIdType() == TYPE_ID_STRING) table.columnTexts = textStarts(block, stored.columnIds());
  table.stored = std::move(stored);
  return table;
}

}  // namespace

BlockData::BlockData(ConstBytes bytes, std::span<const FieldInfo> fields, Extent extent)
    : bytes_(bytes), fields_(fields), extent_(extent) {}

BlockData::BlockData(const BlockView& block, Extent extent) : BlockData(block.bytes, fieldsOf(block), extent) {
  selfDescribing_ = block.kind == BlockKind::SecondEdition;
  if (!selfDescribing_) return;
  std::size_t offset = sizeof(HwSDatablockHeader2Edition);
  for (TableWalk walk(bytes_); std::optional<StoredTable> table = walk.next();) {
    const std::size_t end = table->end();
    tables_.push_back(dataTable(bytes_, offset, std::move(*table)));
    offset = end;
  }
}

DataNode BlockData::root() const {
  if (selfDescribing_) return {*this, DataNode::SelfDescribing{}};
  return {*this, DataNode::Record{fields_, 0}};
}

std::size_t DataNode::selfDescribedSize() const {
  if (std::holds_alternative<SelfDescribing>(place_)) return std::size(selfDescribingMembers);
  if (std::holds_alternative<Tables>(place_)) return data_->tables().size();
  if (std::holds_alternative<Table>(place_)) return std::size(tableHeaderFields) + std::size(tableParts);
  if (const auto* const texts = std::get_if<Texts>(&place_)) return texts->starts->size() - 1;
  if (const auto* const rows = std::get_if<Rows>(&place_)) return rows->table->rows;
  const auto* const row = std::get_if<Row>(&place_);
  return row == nullptr ? 0 : row->table->columnTypes().size();
}

const char* DataNode::selfDescribedName(std::size_t index) const {
  if (std::holds_alternative<SelfDescribing>(place_)) return selfDescribingMembers[index];
  constexpr std::size_t inHeader = std::size(tableHeaderFields);
  return index < inHeader ? tableHeaderFields[index].name : tableParts[index - inHeader];
}

const FieldInfo* DataNode::field() const {
  if (const auto* const element = std::get_if<FieldElement>(&place_)) return element->field;
  const auto* const elements = std::get_if<Elements>(&place_);
  return elements == nullptr ? nullptr : elements->field;
}

std::optional<DataNode> DataNode::find(std::string_view name) const {
  if (kind() != Kind::Record) return std::nullopt;
  for (std::size_t i = 0; i < size(); ++i) {
    if (name == nameOf(i)) return (*this)[i];
  }
  return std::nullopt;
}

DataNode::Place DataNode::selfDescribed(std::size_t index) const {
  if (std::holds_alternative<SelfDescribing>(place_)) {
    return index == 0 ? elementAt(updateIndexField, updateIndexField.offset) : Place(Tables{});
  }
  if (std::holds_alternative<Tables>(place_)) {
    return index < data_->tables().size() ? Place(Table{&data_->tables()[index]}) : Record{{}, 0};
  }
  if (const auto* const table = std::get_if<Table>(&place_)) return part(*table->table, index);
  if (const auto* const rows = std::get_if<Rows>(&place_)) return Row{&rows->table->stored, index};
  if (const auto* const texts = std::get_if<Texts>(&place_)) {
    const std::uint32_t start = (*texts->starts)[index];
    const std::uint32_t end = texts->starts->size() > 1 ? (*texts->starts)[index + 1] : start;  // beyond it in a sample
    return FieldElement{&typedField(TYPE_ID_STRING), start, end - start};
  }
  const Row& row = std::get<Row>(place_);
  const ConstBytes types = row.table->columnTypes();
  const FieldInfo& field = typedField(index < types.size() ? types[index] : 0U);
  const ConstBytes bytes = row.table->cell(index, row.row);
  if (bytes.data() == nullptr) {
    return FieldElement{&field, data_->bytes().size(), std::max<std::size_t>(field.stride, 1)};
  }
  return FieldElement{&field, placeIn(data_->bytes(), bytes), bytes.size()};
}

DataNode::Place DataNode::list(const Record& record, const FieldInfo& field) const {
  const std::size_t offset = record.offset + field.offset;
  const bool inUse = data_->extent() == Extent::InUse;
  const auto used = [&](const char* counter, std::size_t capacity) {
    return inUse ? elementsInUse(data_->bytes(), record.fields, record.offset, counter, capacity) : capacity;
  };
  const std::size_t room = roomFor(field, offset);
  if (field.openEnded) return Elements{&field, offset, room};
  const std::size_t rows = used(field.usedRows, field.rows);
  if (field.rank == 1) return Elements{&field, offset, std::min(rows, room)};
  const std::size_t rowsThere = (room + field.cols - 1) / field.cols;
  return Elements{&field, offset, std::min(rows, rowsThere), used(field.usedCols, field.cols), true};
}

DataNode::Place DataNode::row(const Elements& table, std::size_t index) const {
  const FieldInfo& field = *table.field;
  const std::size_t offset = table.offset + index * field.cols * field.stride;
  return Elements{&field, offset, std::min(table.columns, roomFor(field, offset))};
}

DataNode::Place DataNode::part(const DataTable& table, std::size_t index) const {
  const StoredTable& stored = table.stored;
  const auto listOf = [&](const FieldInfo& field, ConstBytes values) -> Place {
    const std::size_t size = std::max<std::size_t>(field.stride, 1);
    return Elements{&field, values.empty() ? 0 : placeIn(data_->bytes(), values), values.size() / size};
  };
  switch (index) {
    case ColumnTypes:
      return listOf(columnTypeField, stored.columnTypes());
    case RowIds:
      if (stored.rowIdType() == TYPE_ID_STRING) return Texts{&table.rowTexts};
      return listOf(typedField(stored.rowIdType()), stored.rowIds());
    case ColumnIds:
      if (stored.columnIdType() == TYPE_ID_STRING) return Texts{&table.columnTexts};
      return listOf(typedField(stored.columnIdType()), stored.columnIds());
    case Cells:
      return Rows{&table};
    default:
      return elementAt(tableHeaderFields[index], table.offset + tableHeaderFields[index].offset);
  }
}

std::optional<DataNode::Spacing> DataNode::spacing() const {
  const auto* const elements = std::get_if<Elements>(&place_);
  if (elements == nullptr) return std::nullopt;
  const std::size_t perElement = elements->isTable ? elements->field->cols : 1;
  return Spacing{elements->offset, perElement * elements->field->stride};
}

std::string DataPath::text(bool indices) const {
  std::string text = parent_ == nullptr ? std::string() : parent_->text(indices);
  if (name_ != nullptr) {
    if (!text.empty()) text += '.';
    text += name_;
  } else if (indices && parent_ != nullptr) {
    text += '[' + std::to_string(index_) + ']';
  }
  return text;
}

}  // namespace Velk
