#include <algorithm>
#include <string_view>

#include "velk/checks/Check.h"

namespace Velk::detail {
namespace {

/// An identifier as it is stored, and which one of its list it is.
struct StoredId {
  std::string_view bytes;
  std::size_t index;
};

/// Returns the identifiers of rows or columns that stand one after another.
std::vector<StoredId> idsIn(ConstBytes bytes, unsigned type) {
  std::vector<StoredId> ids;
  const std::size_t size = typeSize(type);
  for (std::size_t at = 0; at < bytes.size() && size != 0;) {
    const bool isString = type == TYPE_ID_STRING;
    const bool isText = isString || isCharacters(type);
    const std::size_t room = isString ? bytes.size() - at : std::min(size, bytes.size() - at);
    const auto* const begin = reinterpret_cast<const char*>(bytes.data() + at);
    const std::string_view id = isText ? textAt(bytes, at, room) : std::string_view(begin, room);
    ids.push_back({id, ids.size()});
    at += isString ? id.size() + 1 : size;
  }
  return ids;
}

/// Reports the first identifier that stands twice in a list.
void examineIds(const DataNode& table, const char* list, ConstBytes stored, unsigned type, ConstBytes block,
                const std::string& path, const Report& report) {
  std::vector<StoredId> ids = idsIn(stored, type);
  std::ranges::sort(ids, [](const StoredId& one, const StoredId& other) {
    return one.bytes != other.bytes ? one.bytes < other.bytes : one.index < other.index;
  });
  const auto twice = std::ranges::adjacent_find(ids, {}, &StoredId::bytes);
  if (twice == ids.end()) return;
  const auto pathOf = [&](std::size_t index) { return path + '.' + list + '[' + std::to_string(index) + ']'; };
  const auto node = table.find(list);
  const std::string id = node && twice->index < node->size()
                             ? fieldText(block, (*node)[twice->index].element(), ValueForm::Presented)
                             : "empty";
  report(pathOf(twice[1].index) + " is \"" + id + "\", as " + pathOf(twice->index) + " is already",
         pathOf(twice[1].index));
}

void findRepeatedIds(const CheckedBlock& block, const Report& report) {
  const std::vector<DataTable>& tables = block.data.tables();
  if (tables.empty()) return;
  const DataNode nodes = *block.data.root().find("tables");
  for (std::size_t i = 0; i < tables.size(); ++i) {
    const StoredTable& table = tables[i].stored;
    const std::string path = "tables[" + std::to_string(i) + ']';
    examineIds(nodes[i], "rowIds", table.rowIds(), table.rowIdType(), block.view.bytes, path, report);
    examineIds(nodes[i], "columnIds", table.columnIds(), table.columnIdType(), block.view.bytes, path, report);
  }
}

void findUnknownTypes(const CheckedBlock& block, const Report& report) {
  const std::vector<DataTable>& tables = block.data.tables();
  for (std::size_t i = 0; i < tables.size(); ++i) {
    const StoredTable& table = tables[i].stored;
    const auto examine = [&](unsigned type, const std::string& name) {
      const std::string path = "tables[" + std::to_string(i) + "]." + name;
      report(path + " is " + std::to_string(type) + ", which is no type", path);
    };
    const auto isUnknown = [](unsigned type) { return typeSize(type) == 0; };
    if (table.rowIdType() != TYPE_ID_NONE && isUnknown(table.rowIdType())) examine(table.rowIdType(), "rowIdType");
    if (table.columnIdType() != TYPE_ID_NONE && isUnknown(table.columnIdType()))
      examine(table.columnIdType(), "columnIdType");
    const ConstBytes types = table.columnTypes();
    const auto column = std::ranges::find_if(types, isUnknown);
    if (column != types.end()) examine(*column, "columnTypes[" + std::to_string(column - types.begin()) + ']');
  }
}

constexpr Check kinds[] = {
    {{"repeated-identifier", "repeated identifier", Severity::Warning, "two rows or columns have the same identifier",
      "A reader that looks for a row or column by its identifier finds only the first. Example: two columns LOW in a "
      "second-edition table. The block has to be written anew."},
     findRepeatedIds},
    {{"unknown-type", "unknown type", Severity::Warning, "a column or the identifiers of a table have no known type",
      "The type of a column says how many bytes its cells have. After one that is unknown, nothing of the table can "
      "be read. Example: a type of 57, written by a later version. The first such column of each table is reported."},
     findUnknownTypes},
};

}  // namespace

std::span<const Check> edition2Checks() { return kinds; }

}  // namespace Velk::detail
