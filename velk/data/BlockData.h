#pragma once

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "velk/Export.h"
#include "velk/edition2/StoredTable.h"
#include "velk/fields/Fields.h"
#include "velk/image/MemoryImage.h"

namespace Velk {

/// Which elements a list or table has: those that its block says are in use, or all that the block has room for.
enum class Extent : unsigned char { InUse, Capacity };

/// A table of a second-edition block, and where in the block those of its texts begin that have no fixed length.
struct DataTable {
  StoredTable stored;
  std::size_t offset = 0;                    ///< of the table in its block
  std::size_t rows = 0;                      ///< with at least one cell
  std::vector<std::uint32_t> rowTexts{};     ///< of each row id that is a string; then where the next would begin
  std::vector<std::uint32_t> columnTexts{};  ///< the same for the column ids
};

class BlockData;

/// A place in the data of a block: a value, a list of places, or a record of named ones.
///
/// Nodes are small and made on demand. They view the BlockData that they come from, which must outlive them.
class VELK_EXPORT DataNode {
 public:
  enum class Kind : unsigned char { Value, List, Record };

  Kind kind() const {
    return std::visit([](const auto& place) { return place.kind; }, place_);
  }
  /// Returns the number of elements of a list or members of a record; 0 for a value.
  std::size_t size() const;
  /// Returns an element or member; `index` must be below size().
  DataNode operator[](std::size_t index) const;
  /// Returns what the elements of a list are like, even of an empty one: for their names and fields, not their values.
  DataNode sample() const { return (*this)[0]; }
  /// Returns an element or member if it is a value, and otherwise nothing: the fast way to most values.
  std::optional<FieldElement> valueAt(std::size_t index) const;
  /// Returns the name of a member; `index` must be below size() of a record.
  const char* nameOf(std::size_t index) const;
  /// Returns the index of the member of a record with this name, or with this key in the text of the block, such as SN;
  /// nothing if there is none.
  std::optional<std::size_t> indexOf(std::string_view name) const;
  /// Returns that member, or nothing.
  std::optional<DataNode> find(std::string_view name) const;
  /// Returns the field of a value, list or table if its record declares one; else null.
  const FieldInfo* field() const;
  /// Returns where a value lies. Only for values.
  const FieldElement& element() const { return std::get<Value>(place_).element; }

  /// Values of one field that are stored one after another.
  struct Run {
    FieldElement first;
    std::size_t count = 0;
  };
  /// Returns the elements of a list of values that is stored as one run: the fast way to all of them.
  std::optional<Run> run() const;
  /// Returns the run that an element is, such as a row of a table, or nothing: the fast way to all rows.
  std::optional<Run> runAt(std::size_t index) const;

  /// Where the first element of a list lies, and the number of bytes from one element to the next.
  struct Spacing {
    std::size_t offset = 0;
    std::size_t distance = 0;

    bool operator==(const Spacing&) const = default;
  };
  /// Returns the spacing of a list or table whose elements or rows are stored without gaps; else nothing.
  std::optional<Spacing> spacing() const;

 private:
  friend class BlockData;

  // The places that there are. Each has a size and its parts; those of records have names.

  struct Value {
    static constexpr Kind kind = Kind::Value;
    FieldElement element;

    std::size_t size(const BlockData& /*data*/) const { return 0; }
    DataNode at(const BlockData& data, std::size_t /*index*/) const { return {data, *this}; }
  };
  /// Members that are declared as fields.
  struct Record {
    static constexpr Kind kind = Kind::Record;
    std::span<const FieldInfo> fields;
    std::size_t offset;

    std::size_t size(const BlockData& /*data*/) const { return fields.size(); }
    const char* nameOf(std::size_t index) const { return fields[index].name; }
    DataNode at(const BlockData& data, std::size_t index) const;
    DataNode list(const BlockData& data, const FieldInfo& field) const;
  };
  /// Elements of a field one after another; those of a table are its rows.
  struct Elements {
    static constexpr Kind kind = Kind::List;
    const FieldInfo* field;
    std::size_t offset;
    std::size_t count;
    std::size_t columns = 0;
    bool isTable = false;

    std::size_t size(const BlockData& /*data*/) const { return count; }
    DataNode at(const BlockData& data, std::size_t index) const;
    DataNode row(const BlockData& data, std::size_t index) const;
  };
  /// The whole of a second-edition block.
  struct SelfDescribing {
    static constexpr Kind kind = Kind::Record;

    std::size_t size(const BlockData& data) const;
    const char* nameOf(std::size_t index) const;
    DataNode at(const BlockData& data, std::size_t index) const;
  };
  struct Tables {
    static constexpr Kind kind = Kind::List;

    std::size_t size(const BlockData& data) const;
    DataNode at(const BlockData& data, std::size_t index) const;
  };
  struct Table {
    static constexpr Kind kind = Kind::Record;
    const DataTable* table;

    std::size_t size(const BlockData& data) const;
    const char* nameOf(std::size_t index) const;
    DataNode at(const BlockData& data, std::size_t index) const;
  };
  /// The ids of rows or columns that are strings.
  struct Texts {
    static constexpr Kind kind = Kind::List;
    const std::vector<std::uint32_t>* starts;

    std::size_t size(const BlockData& data) const;
    DataNode at(const BlockData& data, std::size_t index) const;
  };
  /// The cells of a table.
  struct Rows {
    static constexpr Kind kind = Kind::List;
    const DataTable* table;

    std::size_t size(const BlockData& data) const;
    DataNode at(const BlockData& data, std::size_t index) const;
  };
  struct Row {
    static constexpr Kind kind = Kind::List;
    const StoredTable* table;
    std::size_t row;

    std::size_t size(const BlockData& data) const;
    DataNode at(const BlockData& data, std::size_t index) const;
  };
  using Place = std::variant<Value, Record, Elements, SelfDescribing, Tables, Table, Texts, Rows, Row>;

  DataNode(const BlockData& data, Place place) : data_(&data), place_(place) {}

  static DataNode elementAt(const BlockData& data, const FieldInfo& field, std::size_t offset);

  const BlockData* data_;
  Place place_;
};

/// The contents of a block, of whatever kind it is, as one tree of named values. Export, comparison, editing and
/// redaction all walk this tree.
///
/// Old-style blocks have the fields of their class; second-edition blocks `updateIndex` and `tables`, each with `rows`,
/// `cols`, `rowIdType`, `columnIdType`, `columnTypes`, `rowIds`, `columnIds` and `cells[r][c]`; all others their
/// `bytes`. Lists end where the block does; a single value may lie outside it. The block's bytes must outlive the data,
/// which takes memory proportional to them.
class VELK_EXPORT BlockData {
 public:
  explicit BlockData(const BlockView& block, Extent extent = Extent::InUse);
  /// Makes the data of a record with these fields.
  BlockData(ConstBytes bytes, std::span<const FieldInfo> fields, Extent extent = Extent::InUse);
  BlockData(const BlockData&) = delete;
  BlockData& operator=(const BlockData&) = delete;

  DataNode root() const;
  ConstBytes bytes() const { return bytes_; }
  const std::vector<DataTable>& tables() const { return tables_; }
  Extent extent() const { return extent_; }
  /// Returns whether the data are those of a second-edition block.
  bool isSelfDescribing() const { return selfDescribing_; }

 private:
  ConstBytes bytes_;
  std::span<const FieldInfo> fields_;
  Extent extent_;
  bool selfDescribing_ = false;
  std::vector<DataTable> tables_;
};

// A walk spends most of its time in these functions: they are in the header to be inlined.

inline DataNode DataNode::elementAt(const BlockData& data, const FieldInfo& field, std::size_t offset) {
  if (field.type == ScalarType::Record) return {data, Record{field.members, offset}};
  return {data, Value{{&field, offset}}};
}

inline DataNode DataNode::Record::at(const BlockData& data, std::size_t index) const {
  const FieldInfo& field = fields[index];
  return field.rank != 0 ? list(data, field) : elementAt(data, field, offset + field.offset);
}

inline DataNode DataNode::Elements::at(const BlockData& data, std::size_t index) const {
  return isTable ? row(data, index) : elementAt(data, *field, offset + index * field->stride);
}

inline DataNode DataNode::operator[](std::size_t index) const {
  return std::visit([&](const auto& place) { return place.at(*data_, index); }, place_);
}

inline std::optional<FieldElement> DataNode::valueAt(std::size_t index) const {
  if (const auto* const record = std::get_if<Record>(&place_)) {
    const FieldInfo& field = record->fields[index];
    if (field.rank != 0 || field.type == ScalarType::Record) return std::nullopt;
    return FieldElement{&field, record->offset + field.offset};
  }
  const DataNode part = (*this)[index];
  return part.kind() == Kind::Value ? std::optional(part.element()) : std::nullopt;
}

inline std::size_t DataNode::size() const {
  return std::visit([&](const auto& place) { return place.size(*data_); }, place_);
}

inline const char* DataNode::nameOf(std::size_t index) const {
  return std::visit(
      [&](const auto& place) -> const char* {
        if constexpr (requires { place.nameOf(index); }) return place.nameOf(index);
        return nullptr;
      },
      place_);
}

inline std::optional<DataNode::Run> DataNode::run() const {
  const auto* const elements = std::get_if<Elements>(&place_);
  if (elements == nullptr || elements->isTable || elements->field->type == ScalarType::Record) return std::nullopt;
  return Run{{elements->field, elements->offset}, elements->count};
}

inline std::optional<DataNode::Run> DataNode::runAt(std::size_t index) const {
  const auto* const table = std::get_if<Elements>(&place_);
  if (table == nullptr || !table->isTable || table->field->type == ScalarType::Record) return std::nullopt;
  const FieldInfo& field = *table->field;
  const std::size_t offset = table->offset + index * field.cols * field.stride;
  return Run{{&field, offset}, std::min(table->columns, roomFor(field, offset, data_->bytes().size()))};
}

/// The path of a value in its block. A walk links these on its way down, so that a path costs nothing until its text is
/// needed.
class VELK_EXPORT DataPath {
 public:
  DataPath() = default;
  explicit DataPath(const char* name) : name_(name) {}
  DataPath(const DataPath& parent, const char* name) : parent_(&parent), name_(name) {}
  DataPath(const DataPath& parent, std::size_t index) : parent_(&parent), index_(index) {}

  /// Returns the path as "serialNumber", "cells[2][5]", "blocks[7].gain"; without `indices`, as "cells", "blocks.gain".
  std::string text(bool indices = true) const;

 private:
  const DataPath* parent_ = nullptr;
  const char* name_ = nullptr;  ///< of a member; null for an element
  std::size_t index_ = 0;
};

/// Calls `act` with the path and the node of each part of a record or list, in order.
template <class Act>
void forEachPart(const DataNode& node, const DataPath& path, Act act) {
  const bool record = node.kind() == DataNode::Kind::Record;
  for (std::size_t i = 0; i < node.size(); ++i) {
    act(record ? DataPath(path, node.nameOf(i)) : DataPath(path, i), node[i]);
  }
}

/// Calls `act` with the path and the element of every value at and below a node, in order.
template <class Act>
void forEachValue(const DataNode& node, const DataPath& path, Act& act) {
  if (node.kind() == DataNode::Kind::Value) return act(path, node.element());
  forEachPart(node, path, [&](const DataPath& part, const DataNode& below) { forEachValue(below, part, act); });
}

}  // namespace Velk
