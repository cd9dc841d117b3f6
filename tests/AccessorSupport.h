#pragma once

#include <array>
#include <cstring>

#include "FieldSupport.h"
#include "TestSupport.h"

/// The getter and the setter of a name, as VELK_PAIR(HwDatablockStatistic, OpHours).
#define VELK_PAIR(Class, Name) &Class::get##Name, &Class::set##Name
/// A class whose block is a count and a list of values: the constructor's arguments, the names of both pairs, the
/// capacity.
#define VELK_LIST(Class, arguments, Count, Value, capacity)                  \
  VelkTest::Accessors<Class> arguments.row("count", VELK_PAIR(Class, Count)) \
      .row("values[i]", VELK_PAIR(Class, Value), {capacity})

namespace VelkTest {

template <class Block, class Value, class Owner, class... Index, std::size_t... N>
Value readAt(const Block& block, Value (Owner::*get)(Index...) const, [[maybe_unused]] const int* at,
             std::index_sequence<N...>) {
  return (block.*get)(static_cast<Index>(at[N])...);
}

template <class Block, class Result, class Owner, class Taken, class... Index, std::size_t... N>
void writeAt(Block& block, Result (Owner::*set)(Taken, Index...), const std::decay_t<Taken>& value,
             [[maybe_unused]] const int* at, std::index_sequence<N...>) {
  static_cast<void>((block.*set)(value, static_cast<Index>(at[N])...));
}

/// Checks the accessors of a class against its fields, a row for each pair: the path of the field, with [i] and [k] for
/// the first and the second index, the getter, the setter, and the capacity of each index.
///
/// A value that was set is read back by the getter and by the path. Nothing but its bytes and the checksum changes, and
/// the checksum is right. An index outside the capacity reads as 0 and stores nothing.
template <class Block>
class Accessors {
 public:
  template <class... Arguments>
  explicit Accessors(Arguments... arguments) : block_(arguments...) {
    block_.setChecksum(block_.computeChecksum());
  }

  /// The getters of the rows that follow give `factor` times the stored value.
  Accessors& scaledBy(double factor) {
    factor_ = factor;
    return *this;
  }

  template <class Value, class Owner, class... Index, class Setter>
  Accessors& row(const std::string& path, Value (Owner::*get)(Index...) const, Setter set,
                 std::array<int, sizeof...(Index)> capacity = {}) {
    SCOPED_TRACE(Block::traits.keys[0] + (" " + path));
    // Some setters take after the indices whether to store a fresh checksum.
    std::array<int, sizeof...(Index) + 1> at{};
    at.back() = 1;
    store(path, get, set, at, false);
    for (std::size_t n = 0; n < capacity.size(); ++n) at[n] = capacity[n] - 1;
    store(path, get, set, at, true);
    for (std::size_t n = 0; n < capacity.size(); ++n) {
      for (const int outside : {capacity[n], -1}) {
        auto beyond = at;
        beyond[n] = outside;
        const QByteArray before = block_.getByteArrayData();
        write(set, anyValue(set), beyond.data());
        EXPECT_TRUE(block_.getByteArrayData() == before) << "stored at index " << outside;
        EXPECT_EQ(read(get, beyond.data()), Value{}) << "index " << outside;
      }
    }
    return *this;
  }

  /// A row of a count that the setter holds to `most`.
  template <class Count, class Owner, class Setter>
  Accessors& upTo(Count most, const std::string& path, Count (Owner::*get)() const, Setter set) {
    SCOPED_TRACE(Block::traits.keys[0] + (" " + path));
    (block_.*set)(most);
    EXPECT_EQ((block_.*get)(), most);
    EXPECT_EQ(integerValue(bytes(), value(path)), most);
    const QByteArray before = block_.getByteArrayData();
    (block_.*set)(most + 1);
    EXPECT_TRUE(block_.getByteArrayData() == before) << "stored " << most + 1;
    return *this;
  }

 private:
  struct Range {
    std::size_t begin;
    std::size_t end;
  };

  template <class Value, class Owner, class... Index>
  Value read(Value (Owner::*get)(Index...) const, const int* at) const {
    return readAt(block_, get, at, std::index_sequence_for<Index...>());
  }
  template <class Result, class Owner, class Taken, class... Index>
  void write(Result (Owner::*set)(Taken, Index...), const std::decay_t<Taken>& value, const int* at) {
    writeAt(block_, set, value, at, std::index_sequence_for<Index...>());
  }

  std::span<const unsigned char> bytes() {
    return {block_.getData(), static_cast<std::size_t>(block_.getByteArrayData().size())};
  }

  template <class Value, class Owner, class... Index, class Result, class SetOwner, class Taken, class... SetIndex>
  void store(std::string path, Value (Owner::*get)(Index...) const, Result (SetOwner::*set)(Taken, SetIndex...),
             const std::array<int, sizeof...(Index) + 1>& at, bool complement) {
    for (std::size_t n = 0; n < sizeof...(Index); ++n) {
      if (const std::size_t place = path.find(n == 0 ? "[i]" : "[k]"); place != path.npos) {
        path.replace(place, 3, "[" + std::to_string(at[n]) + "]");
      }
    }
    const QByteArray before = block_.getByteArrayData();
    if constexpr (std::is_class_v<Value>) {
      const Value entry = anyValue(set);
      write(set, entry, at.data());
      EXPECT_EQ(read(get, at.data()), entry) << path;
      const Range range = rangeBelow(path);
      ASSERT_EQ(range.end - range.begin, sizeof entry) << path;
      EXPECT_EQ(std::memcmp(block_.getData() + range.begin, &entry, sizeof entry), 0) << path;
      expectOnlyChanged(before, range);
    } else {
      const Velk::FieldElement element = value(path);
      const auto number = distinctive<Value, std::decay_t<Taken>>(*element.field, complement);
      write(set, number, at.data());
      EXPECT_EQ(static_cast<double>(read(get, at.data())), factor_ * static_cast<double>(number)) << path;
      EXPECT_EQ(stored(element), static_cast<double>(number)) << path;
      expectOnlyChanged(before, {element.offset, element.offset + element.size});
    }
  }

  /// Where the value at a path lies.
  Velk::FieldElement value(const std::string& path) {
    const Velk::BlockData data(bytes(), Block::traits.fields, Velk::Extent::Capacity);
    const Velk::DataLookup lookup = findValue(data.root(), path);
    EXPECT_EQ(lookup.complaint, "");
    return lookup.value.value().element();
  }

  /// Where the values of the entry at a path lie.
  Range rangeBelow(const std::string& path) {
    Range range{bytes().size(), 0};
    forEachField(Block::traits.fields, bytes().size(), [&](const std::string& part, Velk::FieldElement element) {
      if (!part.starts_with(path + '.')) return;
      range = {std::min(range.begin, element.offset), std::max(range.end, element.offset + element.size)};
    });
    return range;
  }

  double stored(const Velk::FieldElement& element) {
    if (isFloating(element.field->type)) return std::stod(fieldText(bytes(), element));
    return static_cast<double>(integerValue(bytes(), element));
  }

  void expectOnlyChanged(QByteArray before, Range range) {
    constexpr qsizetype checksum = 4;
    QByteArray now = block_.getByteArrayData();
    EXPECT_NE(now, before);
    EXPECT_EQ(block_.getChecksum(), block_.computeChecksum());
    for (QByteArray* const block : {&before, &now}) {
      block->replace(checksum, 2, QByteArray(2, '\0'));
      const auto size = static_cast<qsizetype>(range.end - range.begin);
      block->replace(static_cast<qsizetype>(range.begin), size, QByteArray(size, '\0'));
    }
    EXPECT_TRUE(now == before) << "more than the field changed";
  }

  /// A number of its own for each row, as wide as the field and both accessors allow, or its complement: a negative
  /// one, or one with the highest bit set, where field and accessors agree on the sign.
  template <class Value, class Taken>
  Taken distinctive(const Velk::FieldInfo& field, bool complement) {
    ++serial_;
    if constexpr (std::is_floating_point_v<Taken>) {
      return static_cast<Taken>(serial_ + 0.625);
    } else {
      const bool isFloat = isFloating(field.type);
      const unsigned fieldBits = field.bits.width != 0 ? field.bits.width : isFloat ? 64 : 8U * field.stride;
      const unsigned bits = std::min<unsigned>({8 * sizeof(Value), 8 * sizeof(Taken), fieldBits});
      constexpr std::uint64_t pattern = 0x35A6'99C3;
      const std::uint64_t below = (std::uint64_t{1} << (bits - 1)) - 1;
      const std::uint64_t number = ((pattern + serial_ * 0x0101'0101U) & below) | 1U;
      const bool isSigned = fieldLimits(field, Velk::ValueForm::Stored).starts_with('-');
      const bool sameSigns = std::is_signed_v<Value> == isSigned && std::is_signed_v<Taken> == isSigned && !isFloat;
      if (!complement || !sameSigns) return static_cast<Taken>(number);
      return static_cast<Taken>(isSigned ? ~number : ~number & (2 * below + 1));
    }
  }

  /// A value of the type that a setter takes, with no zero byte.
  template <class Result, class Owner, class Taken, class... Index>
  std::decay_t<Taken> anyValue(Result (Owner::*)(Taken, Index...)) {
    std::array<unsigned char, sizeof(std::decay_t<Taken>)> bytes;
    for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(1 + ++serial_ % 100);
    std::decay_t<Taken> value;
    std::memcpy(&value, bytes.data(), sizeof value);
    return value;
  }

  Block block_;
  double factor_ = 1;
  unsigned serial_ = 0;
};

}  // namespace VelkTest
