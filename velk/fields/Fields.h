#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "velk/Export.h"
#include "velk/bytes/Bits.h"
#include "velk/bytes/Bytes.h"

namespace Velk {

enum class ScalarType : unsigned char {
  U8,
  I8,
  U16,
  I16,
  U32,
  I32,
  U64,
  I64,
  F32,
  F64,
  F80,  ///< the ten bytes of the x87
  Record
};

/// What a field's bytes mean to a person; never guessed from their type.
enum class FieldKind : unsigned char {
  Number,
  Text,
  Date,
  Name,  ///< a number that stands for one of several names
};

/// How people write a field whose digits alone are hard to read. See Notation.h.
enum class Notation : unsigned char {
  Plain,
  PartNumber,  ///< 1141.1000.02: a number of eight digits, and the byte after it, the variant
  DigitPairs,  ///< 13.00
  Hours,       ///< 00000/012345: millions, and the rest
  Address,     ///< 00:90:B8:12:34:56, of a list of bytes
};

/// presented = stored * factor + bias
struct Scaling {
  double factor = 1;
  double bias = 0;
  double divisor = 0;  ///< 1 / factor if that is whole: dividing by it rounds once and gives 0.1, not 0.1000...01
};

/// One field of a record, as data: where it lies in the block, what it holds and what it is called. A field may be a
/// single value, a list (rank 1) or a table (rank 2), of scalars or of sub-records with fields of their own.
///
/// Arrays of these describe whole records; the functions below read, show and set any field of any record.
struct FieldInfo {
  const char* name;
  unsigned short offset;
  ScalarType type;
  unsigned short stride;  ///< bytes from one element to the next
  unsigned char rank = 0;
  unsigned short rows = 1;
  unsigned short cols = 1;
  Bits bits{};
  FieldKind kind = FieldKind::Number;
  double scale = 1;  ///< presented = stored * scale + bias
  double bias = 0;
  double divisor = 0;  ///< see Scaling
  const char* unit = "";
  std::span<const FieldInfo> members{};           ///< of a sub-record
  bool openEnded = false;                         ///< a list of as many elements as the block has room for
  bool isPersonal = false;                        ///< identifies a module, or who had it
  bool isFixed = false;                           ///< the rest of the block depends on it, so it must not be edited
  const char* usedRows = "";                      ///< the field of the same record that counts the elements in use
  const char* usedCols = "";                      ///< the same for the columns of a table
  const char* (*nameOf)(std::int64_t) = nullptr;  ///< of a Name
  const char* key = "";                           ///< what the text of the block calls it, such as "SN"
  Notation notation = Notation::Plain;

  constexpr Scaling scaling() const { return {scale, bias, divisor}; }

  /// Makes a character array one text rather than a list of small numbers, and an array of those a list of texts.
  constexpr FieldInfo asText() const {
    FieldInfo field = *this;
    field.kind = FieldKind::Text;
    field.stride = rank > 1 ? cols : rows;
    field.rank = static_cast<unsigned char>(rank - 1);
    field.rows = rank > 1 ? rows : static_cast<unsigned short>(1);
    field.cols = 1;
    return field;
  }
  constexpr FieldInfo asDate() const {
    FieldInfo field = *this;
    field.kind = FieldKind::Date;
    return field;
  }
  /// Returns a field for some bits of a stored word, under a name of their own.
  constexpr FieldInfo part(const char* partName, Bits partBits) const {
    FieldInfo field = *this;
    field.name = partName;
    field.bits = partBits;
    return field;
  }
  constexpr FieldInfo in(const char* unitName, double factor = 1, double distance = 0) const {
    FieldInfo field = *this;
    field.unit = unitName;
    field.scale = factor;
    field.bias = distance;
    const bool small = factor > 1e-9 && factor < 1;
    // std::lround is not a constant expression. NOLINTNEXTLINE(bugprone-incorrect-roundings)
    const auto whole = static_cast<double>(small ? static_cast<std::int64_t>(1 / factor + 0.5) : 0);
    field.divisor = small && factor == 1 / whole ? whole : 0;
    return field;
  }
  /// Sets which other fields of the record count the elements in use.
  constexpr FieldInfo counted(const char* rowsField, const char* colsField = "") const {
    FieldInfo field = *this;
    field.usedRows = rowsField;
    field.usedCols = colsField;
    return field;
  }
  constexpr FieldInfo personal() const {
    FieldInfo field = *this;
    field.isPersonal = true;
    return field;
  }
  constexpr FieldInfo fixed() const {
    FieldInfo field = *this;
    field.isFixed = true;
    return field;
  }
  constexpr FieldInfo namedBy(const char* (*namer)(std::int64_t)) const {
    FieldInfo field = *this;
    field.kind = FieldKind::Name;
    field.nameOf = namer;
    return field;
  }
  /// Sets what the text of the block calls the field, and how it writes the field.
  constexpr FieldInfo keyed(const char* textKey, Notation textNotation = Notation::Plain) const {
    FieldInfo field = *this;
    field.key = textKey;
    field.notation = textNotation;
    return field;
  }
  constexpr FieldInfo written(Notation textNotation) const { return keyed(key, textNotation); }
  constexpr FieldInfo openList() const {
    FieldInfo field = *this;
    field.rank = 1;
    field.openEnded = true;
    return field;
  }
  constexpr FieldInfo of(std::span<const FieldInfo> memberFields) const {
    FieldInfo field = *this;
    field.members = memberFields;
    return field;
  }
};

constexpr bool isFloating(ScalarType type) {
  return type == ScalarType::F32 || type == ScalarType::F64 || type == ScalarType::F80;
}

namespace detail {

template <class T>
constexpr ScalarType scalarTypeOf() {
  if constexpr (std::is_class_v<T>) {
    return ScalarType::Record;
  } else if constexpr (std::is_floating_point_v<T>) {
    return sizeof(T) == sizeof(float) ? ScalarType::F32 : ScalarType::F64;
  } else {
    static_assert(std::is_integral_v<T> && sizeof(T) <= 4);
    constexpr ScalarType ofWidth[][2] = {
        {ScalarType::U8, ScalarType::I8}, {ScalarType::U16, ScalarType::I16}, {ScalarType::U32, ScalarType::I32}};
    return ofWidth[sizeof(T) / 2][std::is_signed_v<T>];
  }
}

template <class Member>
constexpr FieldInfo describeField(const char* name, std::size_t offset) {
  using Element = std::remove_all_extents_t<Member>;
  FieldInfo field{name, static_cast<unsigned short>(offset), scalarTypeOf<Element>(), sizeof(Element)};
  field.rank = std::rank_v<Member>;
  if constexpr (std::rank_v < Member >> 0) field.rows = std::extent_v<Member, 0>;
  if constexpr (std::rank_v < Member >> 1) field.cols = std::extent_v<Member, 1>;
  return field;
}

}  // namespace detail

/// Describes a member of a record under its own name. A macro because only offsetof gives an offset in a constant.
#define VELK_FIELD(Record, member) \
  ::Velk::detail::describeField<decltype(Record::member)>(#member, offsetof(Record, member))

/// One value inside a block: an element of a field, at its place in the block.
struct FieldElement {
  const FieldInfo* field;
  std::size_t offset;
  std::size_t size = field->stride;  ///< in bytes; texts of any length have their own

  bool isInside(std::size_t blockSize) const { return detail::fits(blockSize, offset, size); }
};

/// Values as records store them, or as people read them: scaled, biased, in a unit.
enum class ValueForm : unsigned char { Presented, Stored };

/// How a presented value is rounded if the factor has no exact binary form.
enum class Rounding : unsigned char {
  Decimal,  ///< to the intended decimal number: 35 at 0.01 is 0.35. Used to show, export and set fields.
  /// As the product with the binary number nearest to the factor, in the precision of Number: 35 at 0.01 is
  /// 0.35000000000000003. Instruments calculate this way, so the accessors and texts of tables and second-edition
  /// blocks do too.
  Product,
};

/// Returns the presented value of a stored number. All accessors, texts and exports use it.
template <Rounding rounding = Rounding::Decimal, class Number>
constexpr Number presentedValue(const Scaling& scaling, Number stored) {
  const bool divides = rounding == Rounding::Decimal && scaling.divisor != 0;
  const Number value = divides ? stored / scaling.divisor : stored * scaling.factor;
  return scaling.bias == 0 ? value : value + scaling.bias;
}
inline double presentedValue(const FieldInfo& field, double stored) { return presentedValue(field.scaling(), stored); }

/// Returns the field of that name; does not compile if there is none.
consteval const FieldInfo& fieldNamed(std::span<const FieldInfo> fields, std::string_view name) {
  for (const FieldInfo& field : fields) {
    if (field.name == name) return field;
  }
  throw "no field has this name";
}

namespace detail {

/// Returns whether a name is that of an integer field, which can count elements of others.
constexpr bool isCounter(std::span<const FieldInfo> fields, std::string_view name) {
  for (const FieldInfo& field : fields) {
    if (field.name == name) {
      return field.rank == 0 && field.kind == FieldKind::Number && field.type < ScalarType::F32;
    }
  }
  return false;
}

/// Returns whether all fields that are counted are counted by a field that can count.
constexpr bool hasItsCounters(std::span<const FieldInfo> fields) {
  for (const FieldInfo& field : fields) {
    for (const std::string_view counter : {field.usedRows, field.usedCols}) {
      if (!counter.empty() && !isCounter(fields, counter)) return false;
    }
    if (!hasItsCounters(field.members)) return false;
  }
  return true;
}

}  // namespace detail

/// Returns the stored integer; 0 for a floating field. Here and below, bytes outside the block count as 0.
VELK_EXPORT std::int64_t integerValue(ConstBytes block, FieldElement element);

/// Returns the value as text: numbers in full precision, dates as 2017-03-15, texts up to their first zero byte.
VELK_EXPORT std::string fieldText(ConstBytes block, FieldElement element, ValueForm form = ValueForm::Stored);

/// Returns how many elements of a field are in use: as many as the field `counter` of the same record says, which
/// begins at `offset`, but at most `capacity`; all if nothing counts them.
VELK_EXPORT std::size_t elementsInUse(ConstBytes block, std::span<const FieldInfo> fields, std::size_t offset,
                                      std::string_view counter, std::size_t capacity);

/// Returns how many elements of a field a block of `blockSize` bytes holds from `offset` on.
constexpr std::size_t roomFor(const FieldInfo& field, std::size_t offset, std::size_t blockSize) {
  return offset >= blockSize || field.stride == 0 ? 0 : (blockSize - offset) / field.stride;
}

/// Returns what a number or date field accepts, as text: "-32768 to 32767".
VELK_EXPORT std::string fieldLimits(const FieldInfo& field, ValueForm form);

enum class FieldResult {
  Done,
  NotAValue,     ///< the text is not a number or not a date
  OutOfRange,    ///< more than the field can hold
  OutsideBlock,  ///< the block is too short to have the field
  Fixed,         ///< the rest of the block depends on the field
};

/// Stores the value that `text` gives, in the form of fieldText; any other result than Done leaves the block unchanged.
/// A presented number is rounded to the nearest that the field can store. Dates are those of the calendar, or
/// 1980-00-00 for none; in stored form they may be numbers as well. The caller updates the block's checksum.
VELK_EXPORT FieldResult setFieldText(MutableBytes block, FieldElement element, std::string_view text,
                                     ValueForm form = ValueForm::Stored);

}  // namespace Velk
