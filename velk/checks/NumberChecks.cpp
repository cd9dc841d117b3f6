#include <cmath>

#include "velk/checks/ValueChecks.h"
#include "velk/fields/FieldValue.h"

namespace Velk::detail {
namespace {

/// Counts the numbers of a field or column that are not finite; reports them together, the first by name.
class FiniteCheck {
 public:
  /// Takes a number; `path` is called for the first that is not finite.
  template <class Number, class Path>
  void take(Number number, Path path) {
    if (std::isfinite(number) || found_++ != 0) return;
    path_ = path();
    text_ = path_ + (std::isnan(number) ? " is not a number" : " is infinite");
  }

  void finish(const Report& report) const {
    if (found_ == 0) return;
    report(text_ + (found_ == 1 ? "" : "; " + counted(found_ - 1, "more value") + " after it"), path_);
  }

 private:
  std::size_t found_ = 0;
  std::string text_;
  std::string path_;
};

/// Calls `act` with a number of a floating-point type. The narrow ones are not widened: most values are of these, and
/// what decides about a long double takes several times as long.
template <class Act>
void withFloatingType(ScalarType type, Act act) {
  if (type == ScalarType::F32) return act(0.0F);
  if (type == ScalarType::F64) return act(0.0);
  if (type == ScalarType::F80) return act(0.0L);
}

template <class Number>
Number numberAt(ConstBytes bytes, std::size_t offset) {
  if constexpr (std::is_same_v<Number, long double>) return loadExtended(bytes, offset);
  if constexpr (!std::is_same_v<Number, long double>) return load<Number>(bytes, offset);
}

/// Takes all floating-point numbers at and below a node.
void takeAll(const DataNode& node, const DataPath& path, ConstBytes bytes, FiniteCheck& check) {
  if (const auto run = node.run()) {
    const FieldInfo& field = *run->first.field;
    withFloatingType(field.type, [&]<class Number>(Number) {
      for (std::size_t i = 0; i < run->count; ++i) {
        check.take(numberAt<Number>(bytes, run->first.offset + i * field.stride),
                   [&] { return DataPath(path, i).text(); });
      }
    });
  } else if (node.kind() == DataNode::Kind::Value) {
    const FieldElement& element = node.element();
    if (!element.isInside(bytes.size())) return;
    withFloatingType(element.field->type, [&]<class Number>(Number) {
      check.take(numberAt<Number>(bytes, element.offset), [&] { return path.text(); });
    });
  } else {
    forEachPart(node, path, [&](const DataPath& part, const DataNode& below) { takeAll(below, part, bytes, check); });
  }
}

bool hasFloats(const FieldInfo& field) {
  return isFloating(field.type) || std::ranges::any_of(field.members, hasFloats);
}

void examineFields(const CheckedBlock& block, const Report& report) {
  const std::span<const FieldInfo> fields = block.view.row->fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!hasFloats(fields[i])) continue;
    const DataNode node = block.data.root()[i];
    // What is erased as a whole is reported as that.
    if (isCounted(fields[i]) && uniformityOf(node, block.view.bytes).bytes != 0) continue;
    FiniteCheck check;
    takeAll(node, DataPath(fields[i].name), block.view.bytes, check);
    check.finish(report);
  }
}

/// Returns how a type of second-edition blocks stores floating-point numbers; Record if it does not.
ScalarType floatOf(unsigned type) {
  switch (type) {
    case TYPE_ID_FLOAT:
      return ScalarType::F32;
    case TYPE_ID_DOUBLE:
      return ScalarType::F64;
    case TYPE_ID_LONG_DOUBLE:
      return ScalarType::F80;
    default:
      return ScalarType::Record;
  }
}

std::string cellPath(std::size_t table, std::size_t row, std::size_t column) {
  const auto index = [](std::size_t number) { return '[' + std::to_string(number) + ']'; };
  return "tables" + index(table) + ".cells" + index(row) + index(column);
}

void examineTable(const DataTable& table, std::size_t number, const Report& report) {
  const ConstBytes types = table.stored.columnTypes();
  for (std::size_t column = 0; column < types.size(); ++column) {
    const ScalarType type = floatOf(types[column]);
    if (!isFloating(type)) continue;
    FiniteCheck check;
    withFloatingType(type, [&]<class Number>(Number) {
      for (std::size_t row = 0; row < table.rows; ++row) {
        const ConstBytes cell = table.stored.cell(column, row);
        if (cell.empty()) break;
        check.take(numberAt<Number>(cell, 0), [&] { return cellPath(number, row, column); });
      }
    });
    check.finish(report);
  }
}

void findUnfiniteNumbers(const CheckedBlock& block, const Report& report) {
  if (block.view.row != nullptr) return examineFields(block, report);
  const std::vector<DataTable>& tables = block.data.tables();
  for (std::size_t i = 0; i < tables.size(); ++i) examineTable(tables[i], i, report);
}

constexpr Check kinds[] = {
    {{"not-finite", "not finite", Severity::Warning, "a value in use is infinite or not a number",
      "Every calculation with such a value gives another one. Example: the result of a division by 0 that was "
      "stored, or FF FF FF FF, which is an erased value. Exports show it as null. Calibrate the module, or correct "
      "the value by velk set."},
     findUnfiniteNumbers},
};

}  // namespace

std::span<const Check> numberChecks() { return kinds; }

}  // namespace Velk::detail
