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

const FieldInfo* DataNode::field() const {
  if (const auto* const value = std::get_if<Value>(&place_)) return value->element.field;
  const auto* const elements = std::get_if<Elements>(&place_);
  return elements == nullptr ? nullptr : elements->field;
}

std::optional<std::size_t> DataNode::indexOf(std::string_view name) const {
  if (kind() != Kind::Record) return std::nullopt;
  for (std::size_t i = 0; i < size(); ++i) {
    if (name == nameOf(i)) return i;
  }
  const auto* const record = std::get_if<Record>(&place_);
  if (record == nullptr || name.empty()) return std::nullopt;
  const auto field =
      std::ranges::find(record->fields, name, [](const FieldInfo& one) { return std::string_view(one.key); });
  if (field == record->fields.end()) return std::nullopt;
  return static_cast<std::size_t>(field - record->fields.begin());
}

std::optional<DataNode> DataNode::find(std::string_view name) const {
  const auto index = indexOf(name);
  return index ? std::optional((*this)[*index]) : std::nullopt;
}

DataNode DataNode::Record::list(const BlockData& data, const FieldInfo& field) const {
  const std::size_t begin = offset + field.offset;
  const bool inUse = data.extent() == Extent::InUse;
  const auto used = [&](const char* counter, std::size_t capacity) {
    return inUse ? elementsInUse(data.bytes(), fields, offset, counter, capacity) : capacity;
  };
  const std::size_t room = roomFor(field, begin, data.bytes().size());
  if (field.openEnded) return {data, Elements{&field, begin, room}};
  const std::size_t rows = used(field.usedRows, field.rows);
  if (field.rank == 1) return {data, Elements{&field, begin, std::min(rows, room)}};
  const std::size_t rowsThere = (room + field.cols - 1) / field.cols;
  return {data, Elements{&field, begin, std::min(rows, rowsThere), used(field.usedCols, field.cols), true}};
}

DataNode DataNode::Elements::row(const BlockData& data, std::size_t index) const {
  const std::size_t begin = offset + index * field->cols * field->stride;
  return {data, Elements{field, begin, std::min(columns, roomFor(*field, begin, data.bytes().size()))}};
}

std::size_t DataNode::SelfDescribing::size(const BlockData& /*data*/) const { return std::size(selfDescribingMembers); }

const char* DataNode::SelfDescribing::nameOf(std::size_t index) const { return selfDescribingMembers[index]; }

DataNode DataNode::SelfDescribing::at(const BlockData& data, std::size_t index) const {
  if (index == 0) return elementAt(data, updateIndexField, updateIndexField.offset);
  return {data, Tables{}};
}

std::size_t DataNode::Tables::size(const BlockData& data) const { return data.tables().size(); }

DataNode DataNode::Tables::at(const BlockData& data, std::size_t index) const {
  if (index < data.tables().size()) return {data, Table{&data.tables()[index]}};
  return {data, Record{{}, 0}};
}

std::size_t DataNode::Table::size(const BlockData& /*data*/) const {
  return std::size(tableHeaderFields) + std::size(tableParts);
}

const char* DataNode::Table::nameOf(std::size_t index) const {
  constexpr std::size_t inHeader = std::size(tableHeaderFields);
  return index < inHeader ? tableHeaderFields[index].name : tableParts[index - inHeader];
}

DataNode DataNode::Table::at(const BlockData& data, std::size_t index) const {
  const StoredTable& stored = table->stored;
  const auto listOf = [&](const FieldInfo& field, ConstBytes values) -> DataNode {
    const std::size_t size = std::max<std::size_t>(field.stride, 1);
    return {data, Elements{&field, values.empty() ? 0 : placeIn(data.bytes(), values), values.size() / size}};
  };
  switch (index) {
    case ColumnTypes:
      return listOf(columnTypeField, stored.columnTypes());
    case RowIds:
      if (stored.rowIdType() == TYPE_ID_STRING) return {data, Texts{&table->rowTexts}};
      return listOf(typedField(stored.rowIdType()), stored.rowIds());
    case ColumnIds:
      if (stored.columnIdType() == TYPE_ID_STRING) return {data, Texts{&table->columnTexts}};
      return listOf(typedField(stored.columnIdType()), stored.columnIds());
    case Cells:
      return {data, Rows{table}};
    default:
      return elementAt(data, tableHeaderFields[index], table->offset + tableHeaderFields[index].offset);
  }
}

std::size_t DataNode::Texts::size(const BlockData& /*data*/) const { return starts->size() - 1; }

DataNode DataNode::Texts::at(const BlockData& data, std::size_t index) const {
  const std::uint32_t start = (*starts)[index];
  const std::uint32_t end = starts->size() > 1 ? (*starts)[index + 1] : start;  // past the end in a sample
  return {data, Value{{&typedField(TYPE_ID_STRING), start, end - start}}};
}

std::size_t DataNode::Rows::size(const BlockData& /*data*/) const { return table->rows; }

DataNode DataNode::Rows::at(const BlockData& data, std::size_t index) const {
  return {data, Row{&table->stored, index}};
}

std::size_t DataNode::Row::size(const BlockData& /*data*/) const { return table->columnTypes().size(); }

DataNode DataNode::Row::at(const BlockData& data, std::size_t index) const {
  const ConstBytes types = table->columnTypes();
  const FieldInfo& field = typedField(index < types.size() ? types[index] : 0U);
  const ConstBytes bytes = table->cell(index, row);
  if (bytes.data() == nullptr) {
    return {data, Value{{&field, data.bytes().size(), std::max<std::size_t>(field.stride, 1)}}};
  }
  return {data, Value{{&field, placeIn(data.bytes(), bytes), bytes.size()}}};
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
