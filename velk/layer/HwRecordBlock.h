#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>

#include "velk/datablock/HwDatablock.h"
#include "velk/fields/Fields.h"

namespace Velk {

/// What becomes of the alignment word of a record that a block takes over.
enum class AlignmentRule : unsigned char { Clear, Take };

/// Which records a block takes over.
enum class Acceptance : unsigned char {
  Checksum,               ///< those whose checksum is right
  ChecksumOrEmpty,        ///< also one that was never written: all zero but for the class's id
  ChecksumOrHeader,       ///< also one with the class's id and size in its header
  ChecksumOrBlankHeader,  ///< also one with the class's id and size in its header and no alignment
  ChecksumAndHeader,      ///< those whose checksum is right and whose header has the class's id and size
};

/// A text inside a record that ends at its first zero byte: what follows it is not taken over.
struct RecordName {
  unsigned short offset = 0;
  unsigned short length = 0;
};

/// A short text as a template argument: lists and tables with the same record may have other units, for example.
struct Literal {
  char text[12]{};

  template <std::size_t N>
  constexpr Literal(const char (&characters)[N]) {
    static_assert(N <= sizeof text);
    std::copy_n(characters, N, text);
  }
};

/// Names of blocks with ids one after another.
struct KeyRange {
  unsigned short firstId = 0;
  std::array<const char*, 4> keys{};
};

/// What sets one fixed-layout class apart from the others, as data.
struct RecordTraits {
  unsigned short id = 0;     ///< of a new block, or of its first path or copy
  unsigned short size = 0;   ///< bytes of the record, header included
  const char* refusal = "";  ///< the name under which a refused record is reported; by its id where there is none
  /// Names of the blocks with ids `id`, `id` + 1 and so on; a single one serves every id.
  std::array<const char*, 10> keys{};
  KeyRange alsoKeys{};  ///< names of ids of another class that this one prints as well
  std::span<const FieldInfo> fields{};
  AlignmentRule onSet = AlignmentRule::Clear;
  AlignmentRule onSwap = AlignmentRule::Clear;
  Acceptance acceptance = Acceptance::Checksum;
  RecordName name{};
  std::array<const char*, 4> comments{};  ///< lines in front of the text
  unsigned char idWidth = 17;             ///< columns of "ID:" with its blanks

  /// The name of the block with this id; empty where the class has none for it.
  constexpr const char* key(unsigned short ofId) const {
    if (keys[1] == nullptr) return keys[0] == nullptr ? "" : keys[0];
    if (const char* const own = keyIn(keys, id, ofId)) return own;
    const char* const other = keyIn(alsoKeys.keys, alsoKeys.firstId, ofId);
    return other == nullptr ? "" : other;
  }

 private:
  template <std::size_t N>
  static constexpr const char* keyIn(const std::array<const char*, N>& names, unsigned short first,
                                     unsigned short ofId) {
    return ofId >= first && ofId - first < static_cast<int>(N) ? names[static_cast<std::size_t>(ofId - first)]
                                                               : nullptr;
  }
};

namespace detail {

/// Between the number of a value and the value, in most texts.
inline constexpr const char* rowSeparator = ":             ";

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
/// Classes differ in their traits, which must outlive the object, and in their text.
class VELK_EXPORT HwRecordBlock : public HwDatablock {
 public:
  /// Writes the ID line and the fields; classes with a text form of their own replace this.
  std::ostream& printToStream(std::ostream& os) override;

 protected:
  HwRecordBlock(const RecordTraits& traits, bool stopConversionOnError);
  HwRecordBlock(const RecordTraits& traits, bool stopConversionOnError, unsigned short id);

  const RecordTraits& ownTraits() const { return *traits_; }

  /// The detached buffer; one shorter than `size` is extended with zeros first.
  unsigned char* recordBytes(std::size_t size);

  /// Whether the class takes the record over. `isEmpty` says that the record was never written; a refusal is reported.
  bool acceptRecord(const void* record, bool isEmpty = false);
  /// Takes an accepted record over and returns 0; otherwise changes nothing and returns 1. The record may lie inside
  /// this block's own buffer.
  int setRecord(const void* record, bool isEmpty = false);
  /// The same without the check.
  void swapRecord(const void* record);

  void storeFreshChecksum() { setChecksum(computeChecksum()); }
  template <class T>
  void storeField(std::size_t offset, T value, bool withChecksum = true) {
    if (store(offset, value) && withChecksum) storeFreshChecksum();
  }

  /// The block's name in its text form, by its current id.
  const char* key() { return traits_->key(getId()); }

  /// The bytes of a text field up to its first zero byte, as far as the buffer holds them.
  std::string_view loadText(std::size_t offset, std::size_t length) const;
  /// Stores a text, cut or filled with zeros to `length` bytes, and a fresh checksum.
  void storeText(std::size_t offset, std::size_t length, const QByteArray& text);

 private:
  bool isAcceptable(const void* record, bool isEmpty);
  void copyRecord(const void* record, AlignmentRule alignment);

  const RecordTraits* traits_;
};

/// The pattern over a record type: hands the record out and gives derived classes its fields by pointer to member.
/// An index outside an array reads as 0 and stores nothing; each store is followed by a fresh checksum. Families whose
/// text has a form of its own keep it in `TraitsType`, which is derived from RecordTraits.
template <class Record, class TraitsType = RecordTraits>
class VELK_EXPORT HwTypedRecordBlock : public HwRecordBlock {
 public:
  /// The detached record in the buffer, which is extended with zeros to hold it; valid until the block changes.
  Record* getBlock() { return reinterpret_cast<Record*>(recordBytes(sizeof(Record))); }

  /// 0 when the record's checksum is right and the record was taken over; otherwise an error is signalled, the
  /// block stays as it was and the result is 1.
  int setBlock(const Record* record) { return setRecord(record, isEmptyRecord(record)); }

  using HwDatablock::swapBlock;
  /// Takes the record over without a check.
  void swapBlock(const Record* record) { swapRecord(record); }

 protected:
  using Traits = TraitsType;

  HwTypedRecordBlock(const Traits& traits, bool stopConversionOnError) : HwRecordBlock(traits, stopConversionOnError) {}
  HwTypedRecordBlock(const Traits& traits, bool stopConversionOnError, unsigned short id)
      : HwRecordBlock(traits, stopConversionOnError, id) {}

  /// Completes the traits of a class by the size of its record.
  static constexpr RecordTraits recordTraits(RecordTraits traits) {
    traits.size = sizeof(Record);
    return traits;
  }
  const Traits& ownTraits() const { return static_cast<const Traits&>(HwRecordBlock::ownTraits()); }

  template <class T>
  T get(T Record::*field) const {
    return loadPadded<T>(detail::offsetOf(field));
  }
  template <class T, std::size_t N>
  T get(T (Record::*field)[N], std::int64_t index) const {
    return isInside<N>(index) ? loadPadded<T>(place<T>(field, index)) : T{};
  }
  template <class T, std::size_t R, std::size_t C>
  T get(T (Record::*field)[R][C], std::int64_t row, std::int64_t column) const {
    return isInside<R>(row) && isInside<C>(column) ? loadPadded<T>(place<T>(field, row * std::int64_t{C} + column))
                                                   : T{};
  }

  template <class T>
  void set(T Record::*field, std::type_identity_t<T> value) {
    storeField(detail::offsetOf(field), value);
  }
  template <class T, std::size_t N>
  void set(T (Record::*field)[N], std::type_identity_t<T> value, std::int64_t index, bool withChecksum = true) {
    if (isInside<N>(index)) storeField(place<T>(field, index), value, withChecksum);
  }
  template <class T, std::size_t R, std::size_t C>
  void set(T (Record::*field)[R][C], std::type_identity_t<T> value, std::int64_t row, std::int64_t column,
           bool withChecksum = true) {
    if (isInside<R>(row) && isInside<C>(column)) {
      storeField(place<T>(field, row * std::int64_t{C} + column), value, withChecksum);
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
  /// Whether the record equals, field by field, one of which only the id was ever written.
  bool isEmptyRecord(const Record* record) const {
    if (record == nullptr || ownTraits().acceptance != Acceptance::ChecksumOrEmpty) return false;
    const auto empty = std::make_unique<Record>();
    empty->header.id = ownTraits().id;
    return *record == *empty;
  }

  template <std::size_t N>
  static constexpr bool isInside(std::int64_t index) {
    return static_cast<std::uint64_t>(index) < N;
  }
  template <class T, class Field>
  static std::size_t place(Field field, std::int64_t index) {
    return detail::offsetOf(field) + static_cast<std::size_t>(index) * sizeof(T);
  }
};

}  // namespace Velk
