#pragma once

#include <libdeflate.h>

#include "FieldSupport.h"
#include "TestSupport.h"
#include "velk/layer/HwRecordBlock.h"

namespace VelkTest {

/// What a record class has to be, as literals: nothing here comes from the class.
struct RecordClass {
  unsigned short id;
  unsigned short size;
  std::string idLine;
  std::string refusal;  ///< the text of the error for a record with a wrong checksum
  bool keepsAlignment = false;
  bool headerIsEnough = false;  ///< a record with a wrong checksum is accepted by its id and size
};

inline RecordClass acceptedByHeader(RecordClass expected) {
  expected.headerIsEnough = true;
  return expected;
}

/// Gives every field a value of its own.
inline void fillFields(Velk::HwDatablock& block, std::span<const Velk::FieldInfo> fields) {
  const auto size = static_cast<std::size_t>(block.getByteArrayData().size());
  int next = 1;
  forEachField(fields, size, [&](const std::string& path, Velk::FieldElement element) {
    const Velk::FieldInfo& field = *element.field;
    if (field.isFixed) return;
    const bool floating = field.type == Velk::ScalarType::F32 || field.type == Velk::ScalarType::F64;
    const bool small = field.bits.width != 0 || field.stride == 1;
    std::string value = std::to_string(small ? next % (field.bits.width == 2 ? 4 : 7) : next % 1000);
    if (floating) value += ".625";
    if (field.kind == Velk::FieldKind::Text) value = "TEXT" + value;
    if (field.kind == Velk::FieldKind::Date) value = "2020-02-17";
    EXPECT_EQ(Velk::setFieldText({block.getData(), size}, element, value), Velk::FieldResult::Done) << path;
    ++next;
  });
  block.setChecksum(block.computeChecksum());
}

/// Checks which records without a sound checksum the block refuses.
template <class Block, class Record>
void checkRefusals(const RecordClass& expected, Block& block, Record& record) {
  ErrorCapture errors;
  record.header.checksum = static_cast<unsigned short>(record.header.checksum + 1);
  const QByteArray before = block.getByteArrayData();
  block.setBlock(&record);
  EXPECT_EQ(block.getByteArrayData(), before);
  const std::vector<std::string> refusal{"1040001:   " + expected.refusal};
  EXPECT_EQ(errors.errors, refusal);

  errors.errors.clear();
  record.header = {expected.id, expected.size, 1, 0};
  block.setBlock(&record);
  EXPECT_EQ(errors.errors, expected.headerIsEnough ? std::vector<std::string>() : refusal);
}

/// Checks a new block of the class, its text, that it takes over every byte of a sound record, and which others it
/// refuses.
template <class Block, class... Arguments>
void checkRecordClass(const RecordClass& expected, Arguments... arguments) {
  SCOPED_TRACE(expected.idLine);
  ConsoleCapture console;
  Block block(arguments...);
  EXPECT_EQ(block.getId(), expected.id);
  EXPECT_EQ(block.getBlockSize(), expected.size);
  EXPECT_EQ(block.getByteArrayData().size(), expected.size);
  EXPECT_EQ(block.getChecksum(), 0);
  EXPECT_NE(("\n" + printed(block)).find("\n" + expected.idLine + "\n"), std::string::npos) << printed(block);

  // The last byte stays zero: the name of a model does not reach it.
  Block source(arguments...);
  for (int i = sizeof(Velk::HwSDatablockHeader); i < expected.size - 1; ++i) {
    source.getData()[i] = static_cast<unsigned char>(1 + i % 251);
  }
  source.setChecksum(source.computeChecksum());
  source.setAlignment(0x1234);
  source.setBlockId(static_cast<unsigned short>(expected.id + 1));
  auto record = std::make_unique<std::remove_pointer_t<decltype(source.getBlock())>>(*source.getBlock());
  EXPECT_NE(block.getByteArrayData().mid(8), source.getByteArrayData().mid(8));
  ErrorCapture errors;
  EXPECT_EQ(block.setBlock(record.get()), 0);
  EXPECT_TRUE(errors.errors.empty());
  EXPECT_EQ(block.getId(), expected.id + 1);
  EXPECT_EQ(block.getAlignment(), expected.keepsAlignment ? 0x1234 : 0);
  EXPECT_EQ(block.getChecksum(), source.getChecksum()) << "the record's own checksum";
  EXPECT_EQ(block.getByteArrayData().mid(8), source.getByteArrayData().mid(8));
  checkRefusals(expected, block, *record);
}

/// The first lines of a text, long ones cut, then the length and the CRC-32 of all of it.
inline std::string abridged(const std::string& text) {
  constexpr int shownLines = 16;
  constexpr std::size_t shownColumns = 150;
  std::istringstream lines(text);
  std::string line;
  std::string shown;
  for (int i = 0; i < shownLines && std::getline(lines, line); ++i) {
    shown += line.size() > shownColumns ? line.substr(0, shownColumns) + " ..." : line;
    shown += '\n';
  }
  char total[80];
  std::snprintf(total, sizeof total, "[%zu bytes, CRC %08X]\n\n", text.size(),
                libdeflate_crc32(0, text.data(), text.size()));
  return shown + total;
}

/// Returns the abridged texts of new blocks with all fields filled and the count set, unless it is negative.
template <class... Blocks, class... Arguments>
std::string textsOfFilled(int count, Arguments... arguments) {
  const auto text = [count](auto&& block) {
    fillFields(block, block.traits.fields);
    if (count >= 0) std::memcpy(block.getData() + sizeof(Velk::HwSDatablockHeader), &count, sizeof count);
    return abridged(printed(block));
  };
  std::string texts;
  ((texts += text(Blocks(arguments...))), ...);
  return texts;
}

}  // namespace VelkTest
