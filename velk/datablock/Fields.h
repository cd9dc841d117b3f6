#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "velk/Export.h"
#include "velk/datablock/Bytes.h"

namespace Velk {

enum class ScalarType : unsigned char { U8, I8, U16, I16, U32, I32, F32, F64, Record };

/// What a field's bytes mean to a person; never guessed from their type.
enum class FieldKind : unsigned char { Number, Text, Date };

/// The part of an integer that a field occupies; width 0 means all of it.
struct Bits {
  unsigned char shift = 0;
  unsigned char width = 0;
  bool isSigned = false;
};

/// One field of a record, as data: where it lies in the block, what it holds and what it is called. A field may be a
/// single value, a list (rank 1) or a table (rank 2), of scalars or of sub-records with fields of their own.
///
/// Arrays of these describe whole records; the functions below read, find, show and set any field of any record.
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
  double scale = 1;  ///< presented = stored * scale
  const char* unit = "";
  std::span<const FieldInfo> members{};  ///< of a sub-record
  bool openEnded = false;                ///< a list of as many elements as the block has room for

  /// A character array is one text rather than a list of small numbers.
  constexpr FieldInfo asText() const {
    FieldInfo field = *this;
    field.kind = FieldKind::Text;
    field.stride = field.rows;
    field.rank = 0;
    field.rows = 1;
    return field;
  }
  constexpr FieldInfo asDate() const {
    FieldInfo field = *this;
    field.kind = FieldKind::Date;
    return field;
  }
  /// The bits of a stored word under a name of their own.
  constexpr FieldInfo part(const char* partName, Bits partBits) const {
    FieldInfo field = *this;
    field.name = partName;
    field.bits = partBits;
    return field;
  }
  constexpr FieldInfo in(const char* unitName, double factor = 1) const {
    FieldInfo field = *this;
    field.unit = unitName;
    field.scale = factor;
    return field;
  }
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
};

/// Integers and packed dates, floating values, texts.
using FieldValue = std::variant<std::int64_t, double, std::string>;

enum class FieldResult {
  Done,
  NoSuchField,
  NotAValue,     ///< the text is no number, no date
  OutOfRange,    ///< more than the field can hold
  OutsideBlock,  ///< the block is too short to have the field
};

/// Calls `visit` for every element in order, with its path: "serialNumber", "values[3]", "cells[2][5]",
/// "blocks[7].gain". `blockSize` tells how long open-ended lists are; all other elements are visited whether the block
/// has them or not.
VELK_EXPORT void visitFields(std::span<const FieldInfo> fields, std::size_t blockSize,
                             const std::function<void(const std::string& path, FieldElement)>& visit);

/// The element at `path`, or nothing where no field and no place inside its capacity is called so.
VELK_EXPORT std::optional<FieldElement> findField(std::span<const FieldInfo> fields, std::string_view path);

/// The stored value; bytes outside the block count as 0.
VELK_EXPORT FieldValue readField(detail::ConstBytes block, FieldElement element);

/// The value as text: numbers in full precision, dates as 2017-03-15, texts up to their first zero byte.
VELK_EXPORT std::string fieldText(detail::ConstBytes block, FieldElement element);

/// Stores what `text` says, in the form that fieldText gives; any other result leaves the block unchanged. The block's
/// checksum is the caller's.
VELK_EXPORT FieldResult setFieldText(detail::MutableBytes block, FieldElement element, std::string_view text);

}  // namespace Velk
