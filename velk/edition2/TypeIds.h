#pragma once

#include <iterator>

namespace Velk {

/// How a value of a second-edition block is stored. The block stores it as one byte, so any byte is a valid value.
/// Values above TYPE_ID_MAX are not types: they have no size and no name.
enum ETypeId : unsigned char {
  TYPE_ID_NONE,
  TYPE_ID_UINT8,
  TYPE_ID_INT8,
  TYPE_ID_UINT16,
  TYPE_ID_INT16,
  TYPE_ID_UINT32,
  TYPE_ID_INT32,
  TYPE_ID_UINT64,
  TYPE_ID_INT64,
  TYPE_ID_FLOAT,
  TYPE_ID_DOUBLE,
  TYPE_ID_LONG_DOUBLE,  ///< the 80 bits of the x87
  TYPE_ID_FIX16D1,      ///< signed 16 bits of tenths
  TYPE_ID_FIX16D2,
  TYPE_ID_FIX16D3,
  TYPE_ID_FIX16D4,
  TYPE_ID_FIX32D1,  ///< signed 32 bits of tenths
  TYPE_ID_FIX32D2,
  TYPE_ID_FIX32D3,
  TYPE_ID_FIX32D4,
  TYPE_ID_CHAR,
  TYPE_ID_CHAR5,  ///< padded with zeros; a full one has no terminating zero
  TYPE_ID_CHAR10,
  TYPE_ID_CHAR15,
  TYPE_ID_CHAR20,
  TYPE_ID_STRING,  ///< any length, with its terminating zero

  TYPE_ID_MIN = TYPE_ID_NONE,
  TYPE_ID_MAX = TYPE_ID_STRING
};

struct STypeId {
  ETypeId typeId;
  const char* typeName;
  unsigned int sizeInBytes;  ///< for strings, of the shortest one
};

inline constexpr STypeId TypeIdTable[] = {
    {TYPE_ID_NONE, "NONE", 0},       {TYPE_ID_UINT8, "UINT8", 1},     {TYPE_ID_INT8, "INT8", 1},
    {TYPE_ID_UINT16, "UINT16", 2},   {TYPE_ID_INT16, "INT16", 2},     {TYPE_ID_UINT32, "UINT32", 4},
    {TYPE_ID_INT32, "INT32", 4},     {TYPE_ID_UINT64, "UINT64", 8},   {TYPE_ID_INT64, "INT64", 8},
    {TYPE_ID_FLOAT, "FLOAT", 4},     {TYPE_ID_DOUBLE, "DOUBLE", 8},   {TYPE_ID_LONG_DOUBLE, "LONG DOUBLE", 10},
    {TYPE_ID_FIX16D1, "FIX16D1", 2}, {TYPE_ID_FIX16D2, "FIX16D2", 2}, {TYPE_ID_FIX16D3, "FIX16D3", 2},
    {TYPE_ID_FIX16D4, "FIX16D4", 2}, {TYPE_ID_FIX32D1, "FIX32D1", 4}, {TYPE_ID_FIX32D2, "FIX32D2", 4},
    {TYPE_ID_FIX32D3, "FIX32D3", 4}, {TYPE_ID_FIX32D4, "FIX32D4", 4}, {TYPE_ID_CHAR, "CHAR", 1},
    {TYPE_ID_CHAR5, "CHAR5", 5},     {TYPE_ID_CHAR10, "CHAR10", 10},  {TYPE_ID_CHAR15, "CHAR15", 15},
    {TYPE_ID_CHAR20, "CHAR20", 20},  {TYPE_ID_STRING, "STRING", 1},
};
static_assert(std::size(TypeIdTable) == TYPE_ID_MAX + 1);

/// Selects the list of a table that a text reader returns.
enum VECTOR_TYPE { ROW_TYPE = 0, COLUMN_TYPE = 1, DATA_TYPE = 2 };

namespace detail {

inline constexpr unsigned int widestType = 20;

/// Returns the row of a type; values that are not types have the row of TYPE_ID_NONE.
constexpr const STypeId& typeRow(unsigned int typeId) noexcept {
  return typeId <= TYPE_ID_MAX ? TypeIdTable[typeId] : TypeIdTable[TYPE_ID_NONE];
}

/// Returns the size of a stored value in bytes; 1 for a string, 0 for values that are not types.
constexpr unsigned int typeSize(unsigned int typeId) noexcept { return typeRow(typeId).sizeInBytes; }

constexpr bool isFixedPoint(unsigned int typeId) noexcept {
  return typeId >= TYPE_ID_FIX16D1 && typeId <= TYPE_ID_FIX32D4;
}

/// Returns the number of decimals of a fixed-point type.
constexpr unsigned int fixedPointDecimals(unsigned int typeId) noexcept { return (typeId - TYPE_ID_FIX16D1) % 4 + 1; }

/// Returns the value of one unit of the stored integer.
constexpr double fixedPointUnit(unsigned int typeId) noexcept {
  constexpr double units[] = {1, 0.1, 0.01, 0.001, 0.0001};
  return units[fixedPointDecimals(typeId)];
}

constexpr bool isCharacters(unsigned int typeId) noexcept { return typeId >= TYPE_ID_CHAR && typeId <= TYPE_ID_CHAR20; }

}  // namespace detail
}  // namespace Velk
