// The typed readers of CommonDatablockAccess.
#include <charconv>
#include <functional>
#include <string_view>

#include "velk/edition2/CommonDatablockAccess.h"
#include "velk/edition2/RowIdTexts.h"
#include "velk/edition2/StoredType.h"
#include "velk/edition2/ValueConversion.h"
#include "velk/fields/Fields.h"

namespace Velk {
namespace {

using detail::copied;
using detail::withConversion;

template <class T>
constexpr bool isText = std::is_same_v<T, std::string>;

template <class T, class Convert>
void convertCells(const TableCells::Column& cells, std::span<T> values, Convert convert) {
  constexpr char zeros[detail::widestType] = {};
  const char* last = zeros;  // a missing cell repeats it
  const CellRun run = cells.run();
  std::size_t row = 0;
  for (; row < run.count; ++row) {
    last = reinterpret_cast<const char*>(run.first) + row * run.distance;
    values[row] = convert(last);
  }
  for (; row < values.size(); ++row) {
    if (const auto cell = cells[row]; !cell.empty()) last = cell.data();
    values[row] = convert(last);
  }
}

/// Removes and returns the text up to the next zero byte; all of `bytes` if there is none. The zero byte goes too.
std::string takeText(std::string_view& bytes) {
  const std::size_t length = std::min(bytes.find('\0'), bytes.size());
  std::string text(bytes.substr(0, length));
  bytes.remove_prefix(std::min(length + 1, bytes.size()));
  return text;
}

std::string_view viewOf(const std::vector<char>& store) { return {store.data(), store.size()}; }

/// The id at place `index` of a store, followed by zeros; all zeros if the store lacks it.
std::array<char, detail::widestType> idAt(std::string_view store, std::size_t index, unsigned int typeId) {
  std::array<char, detail::widestType> id{};
  const std::size_t size = detail::typeSize(typeId);
  if (detail::fits(store.size(), index * size, size)) store.copy(id.data(), size, index * size);
  return id;
}

/// The row ids in a store, as many as the table claims.
struct RowIds {
  std::string_view store;
  unsigned int typeId;
  unsigned int count;

  template <class T>
  void appendTo(std::vector<T>& out) const {
    std::string_view texts = store;
    for (unsigned int row = 0; row < count; ++row) {
      if constexpr (isText<T>) {
        out.push_back(takeText(texts));
      } else {
        const auto id = idAt(store, row, typeId);
        out.push_back(copied<T>(id.data(), id.size()));
      }
    }
  }
};

template <class T>
std::string textOf(const T& value) {
  if constexpr (isText<T>) {
    return value;
  } else {
    constexpr int significantDigits = 15;
    char digits[32];
    std::to_chars_result end{};
    if constexpr (std::is_floating_point_v<T>) {
      end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, significantDigits);
    } else {
      end = std::to_chars(digits, digits + sizeof digits, value);
    }
    return {digits, end.ptr};
  }
}

}  // namespace

template <class T>
T CommonDatablockAccess::convValue(const char* source, unsigned int typeId) {
  return withConversion<T>(typeId, [source](auto convert) { return convert(source); });
}

template <class T>
bool CommonDatablockAccess::getDataColumn(unsigned int column, std::vector<T>& out, unsigned int table) const {
  const CommonSubDatablock* const found = find(table);
  if (found == nullptr || column >= found->columnTypes.size()) return true;
  const TableCells::Column cells = found->cells[column];
  if constexpr (isText<T>) {
    for (unsigned int row = 0; row < found->rows; ++row) out.emplace_back(cells[row].begin(), cells[row].end());
  } else {
    out.resize(out.size() + found->rows);
    withConversion<T>(found->columnTypes[column], [values = std::span(out).last(found->rows), cells](auto convert) {
      convertCells(cells, values, convert);
    });
  }
  return true;
}

template <class T>
bool CommonDatablockAccess::getColIdList(std::vector<T>& out, unsigned int table) const {
  const CommonSubDatablock* const found = find(table);
  if (found == nullptr) return true;
  std::string_view texts = viewOf(found->columnIds);
  for (unsigned int column = 0; column < found->columns; ++column) {
    if constexpr (isText<T>) {
      texts.remove_prefix(std::min(texts.find_first_not_of('\0'), texts.size()));
      out.push_back(takeText(texts));
    } else {
      const auto id = idAt(viewOf(found->columnIds), column, found->columnIdType);
      out.push_back(convValue<T>(id.data(), found->columnIdType));
    }
  }
  return true;
}

template <class T>
bool CommonDatablockAccess::getRowIdList(std::vector<T>& out, unsigned int table) const {
  const CommonSubDatablock* const found = find(table);
  if (found != nullptr) RowIds{viewOf(found->rowIds), found->rowIdType, found->rows}.appendTo(out);
  return true;
}

bool CommonDatablockAccess::getStringColumn(unsigned int column, std::vector<std::string>& out,
                                            unsigned int table) const {
  return getDataColumn(column, out, table);
}

bool CommonDatablockAccess::getColIdStringList(std::vector<std::string>& out, unsigned int table) const {
  return getColIdList(out, table);
}

bool CommonDatablockAccess::getDataTypeList(std::vector<std::string>& out, unsigned int table) const {
  out.clear();
  if (const CommonSubDatablock* const found = find(table)) {
    for (const unsigned int type : found->columnTypes) out.emplace_back(detail::typeRow(type).typeName);
  }
  return true;
}

template <class T>
void CommonDatablockAccess::convertVectorToStingVector(std::vector<T> values, std::vector<std::string>& out) {
  for (const T& value : values) out.push_back(textOf(value));
}

namespace {

/// One list of a table, as the caller of getDataInStringVector names it.
struct List {
  const CommonDatablockAccess& access;
  VECTOR_TYPE kind;
  unsigned int column;
  unsigned int table;

  template <class T>
  void appendTo(std::vector<T>& out) const {
    if (kind == ROW_TYPE) access.getRowIdList(out, table);
    if (kind == COLUMN_TYPE) access.getColIdList(out, table);
    if (kind == DATA_TYPE) access.getDataColumn(column, out, table);
  }
};

/// A list as texts, which are appended.
template <class Source>
struct Texts {
  const Source& source;
  std::vector<std::string>& out;

  template <class T, class Show = std::identity>
  void append(Show show = {}) const {
    std::vector<T> values;
    source.appendTo(values);
    for (const T& value : values) out.push_back(textOf(show(value)));
  }
};

template <class Source>
void appendTexts(const Source& source, unsigned int typeId, std::vector<std::string>& out) {
  using enum detail::StoredForm;
  const Texts<Source> list{source, out};
  const auto scaled = [typeId](int stored) {
    return static_cast<float>(
        presentedValue<Rounding::Product>({.factor = detail::fixedPointUnit(typeId)}, static_cast<double>(stored)));
  };
  detail::withStoredType(typeId, [&]<class Stored>(Stored) {
    if constexpr (Stored::form == Number) {
      list.template append<typename Stored::Value>();
    } else if constexpr (Stored::form == Extended) {
      list.template append<double>();
    } else if constexpr (Stored::form == FixedPoint) {
      list.template append<typename Stored::Value>(scaled);
    } else if constexpr (Stored::form != Nothing) {
      list.template append<std::string>();
    }
  });
}

}  // namespace

bool CommonDatablockAccess::getDataInStringVector(std::vector<std::string>& out, VECTOR_TYPE kind, unsigned int typeId,
                                                  unsigned int column, unsigned int table) const {
  appendTexts(List{*this, kind, column, table}, typeId, out);
  return true;
}

std::vector<std::string> detail::rowIdTexts(ConstBytes ids, ETypeId type, unsigned int count) {
  std::vector<std::string> texts;
  const std::string_view store(reinterpret_cast<const char*>(ids.data()), ids.size());
  appendTexts(RowIds{store, type, count}, type, texts);
  return texts;
}

// The types that the header names.
#define VELK_READERS(T)                                                                                              \
  template VELK_EXPORT bool CommonDatablockAccess::getDataColumn(unsigned int, std::vector<T>&, unsigned int) const; \
  template VELK_EXPORT bool CommonDatablockAccess::getColIdList(std::vector<T>&, unsigned int) const;                \
  template VELK_EXPORT bool CommonDatablockAccess::getRowIdList(std::vector<T>&, unsigned int) const;
#define VELK_TEXTS(T)                                                                         \
  template VELK_EXPORT void CommonDatablockAccess::convertVectorToStingVector(std::vector<T>, \
                                                                              std::vector<std::string>&);
#define VELK_NUMBER(T) \
  VELK_READERS(T)      \
  template VELK_EXPORT T CommonDatablockAccess::convValue(const char*, unsigned int);

VELK_NUMBER(unsigned char)
VELK_NUMBER(signed char)
VELK_NUMBER(unsigned short)
VELK_NUMBER(short)
VELK_NUMBER(unsigned int)
VELK_NUMBER(int)
VELK_NUMBER(unsigned long long)
VELK_NUMBER(long long)
VELK_NUMBER(float)
VELK_NUMBER(double)
VELK_READERS(std::string)
VELK_TEXTS(unsigned short)
VELK_TEXTS(short)
VELK_TEXTS(unsigned int)
VELK_TEXTS(int)
VELK_TEXTS(unsigned long long)
VELK_TEXTS(long long)
VELK_TEXTS(float)
VELK_TEXTS(double)
VELK_TEXTS(std::string)

}  // namespace Velk
