#pragma once

#include <bit>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

#include "velk/datablock/Fields.h"
#include "velk/datablock/HwDatablock.h"

namespace Velk {

/// What becomes of the alignment word of a record that a block takes over.
enum class AlignmentRule : unsigned char { Clear, Take };

/// A text inside a record that ends at its first zero byte: what stands behind that is not taken over.
struct RecordText {
  unsigned short offset = 0;
  unsigned short length = 0;
};

/// What sets one fixed-layout class apart from the others, as data.
struct RecordTraits {
  unsigned short id = 0;     ///< of a new block, or of its first path or copy
  unsigned short size = 0;   ///< bytes of the record, header included
  const char* refusal = "";  ///< the name under which a refused record is reported
  /// Names of the blocks with ids `id`, `id` + 1 and so on; a single one serves them all.
  std::span<const char* const> keys{};
  std::span<const FieldInfo> fields{};
  AlignmentRule onSet = AlignmentRule::Clear;
  AlignmentRule onSwap = AlignmentRule::Clear;
  RecordText text{};
};

namespace detail {

/// Makes the header and text of a record that has just been copied into a block those that its class keeps.
void applyRecordRules(MutableBytes record, const RecordTraits& traits, AlignmentRule alignment);

/// The offset of a data member. In the ABI that both compilers follow a pointer to a data member is that offset; the
/// language itself gives no other way from the one to the other.
template <class T, class C>
std::size_t offsetOf(T C::*member) noexcept {
  static_assert(std::is_standard_layout_v<C> && sizeof member == sizeof(std::ptrdiff_t));
  return static_cast<std::size_t>(std::bit_cast<std::ptrdiff_t>(member));
}

}  // namespace detail

/// The pattern of every fixed-layout class, once: a zeroed record of the class's size and id, loaded whole after a
/// check of its checksum (setBlock) or without (swapBlock).
///
/// Classes differ in their traits, which must outlive the object; nothing here is virtual.
class VELK_EXPORT HwRecordBlock : public HwDatablock {
 protected:
  HwRecordBlock(const RecordTraits& traits, bool stopConversionOnError);
  HwRecordBlock(const RecordTraits& traits, bool stopConversionOnError, unsigned short id);

  const RecordTraits& recordTraits() const { return *traits_; }

  /// The detached record; a shorter buffer is extended with zeros first.
  unsigned char* recordBytes();

  /// Takes over a record whose checksum is right and returns 0; otherwise reports the refusal, changes nothing and
  /// returns 1. The record may lie inside this block's own buffer.
  int setRecord(const void* record);
  /// The same without the check.
  void swapRecord(const void* record);

  void storeFreshChecksum() { setChecksum(computeChecksum()); }

  /// The bytes of a text field up to its first zero byte, as far as the buffer holds them.
  std::string_view loadText(std::size_t offset, std::size_t length) const;
  /// Stores a text, cut or filled with zeros to `length` bytes, and a fresh checksum.
  void storeText(std::size_t offset, std::size_t length, const QByteArray& text);

 private:
  void copyRecord(const void* record, AlignmentRule alignment);

  const RecordTraits* traits_;
};

/// The pattern over a record type: hands the record out and gives derived classes its fields by pointer to member.
/// An index outside an array reads as 0 and stores nothing; each store is followed by a fresh checksum.
template <class Record>
class VELK_EXPORT HwTypedRecordBlock : public HwRecordBlock {
 public:
  /// The detached record in the buffer, which is extended with zeros to hold it; valid until the block changes.
  Record* getBlock() { return reinterpret_cast<Record*>(recordBytes()); }

  /// 0 when the record's checksum is right and the record was taken over; otherwise the error manager is told, the
  /// block stays as it was and the result is 1.
  int setBlock(const Record* record) { return setRecord(record); }

  using HwDatablock::swapBlock;
  /// Takes the record over without a check.
  void swapBlock(const Record* record) { swapRecord(record); }

 protected:
  using HwRecordBlock::HwRecordBlock;

  template <class T>
  T get(T Record::*field) const {
    return load<T>(detail::offsetOf(field));
  }
  template <class T, std::size_t N>
  T get(T (Record::*field)[N], std::int64_t index) const {
    return isInside<N>(index) ? load<T>(place<T>(field, index)) : T{};
  }
  template <class T, std::size_t R, std::size_t C>
  T get(T (Record::*field)[R][C], std::int64_t row, std::int64_t column) const {
    return isInside<R>(row) && isInside<C>(column) ? load<T>(place<T>(field, row * std::int64_t{C} + column)) : T{};
  }

  template <class T>
  void set(T Record::*field, std::type_identity_t<T> value) {
    storeWithChecksum(detail::offsetOf(field), value);
  }
  template <class T, std::size_t N>
  void set(T (Record::*field)[N], std::type_identity_t<T> value, std::int64_t index) {
    if (isInside<N>(index)) storeWithChecksum(place<T>(field, index), value);
  }
  template <class T, std::size_t R, std::size_t C>
  void set(T (Record::*field)[R][C], std::type_identity_t<T> value, std::int64_t row, std::int64_t column) {
    if (isInside<R>(row) && isInside<C>(column)) {
      storeWithChecksum(place<T>(field, row * std::int64_t{C} + column), value);
    }
  }

  template <std::size_t N>
  std::string_view getText(char (Record::*field)[N]) const {
    return loadText(detail::offsetOf(field), N);
  }
  template <std::size_t N>
  void setText(char (Record::*field)[N], const QByteArray& text, std::size_t limit = N) {
    storeText(detail::offsetOf(field), limit, text);
  }

 private:
  template <std::size_t N>
  static constexpr bool isInside(std::int64_t index) {
    return static_cast<std::uint64_t>(index) < N;
  }
  template <class T, class Field>
  static std::size_t place(Field field, std::int64_t index) {
    return detail::offsetOf(field) + static_cast<std::size_t>(index) * sizeof(T);
  }
  template <class T>
  void storeWithChecksum(std::size_t offset, T value) {
    if (store(offset, value)) storeFreshChecksum();
  }
};

}  // namespace Velk
