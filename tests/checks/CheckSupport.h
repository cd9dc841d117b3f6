#pragma once

#include "SecondEditionBuilder.h"
#include "TestSupport.h"
#include "velk/checks/Checks.h"
#include "velk/data/BlockData.h"
#include "velk/data/BlockSeal.h"
#include "velk/data/DataLookup.h"

namespace VelkTest {

using namespace Velk;

using Fields = std::vector<std::pair<std::string, std::string>>;

constexpr int memorySize = 32768;

/// Returns a sound block of an id, with some of its fields set.
inline QByteArray block(unsigned short id, const Fields& fields = {}) {
  const CatalogueRow& row = *findCatalogueRow(id);
  const std::unique_ptr<HwDatablock> made = row.make(id);
  made->setBlockId(id);
  QByteArray bytes = made->getByteArrayData();
  const MutableBytes view(reinterpret_cast<unsigned char*>(bytes.data()), static_cast<std::size_t>(bytes.size()));
  const BlockData data(view, row.fields, Extent::Capacity);
  for (const auto& [path, text] : fields) {
    const DataLookup found = findValue(data.root(), path);
    EXPECT_TRUE(found.value) << found.complaint;
    if (found.value) EXPECT_EQ(setFieldText(view, found.value->element(), text), FieldResult::Done) << path;
  }
  sealBlock(view, BlockKind::OldStyle);
  return bytes;
}

/// Returns the block with some bytes changed, and its checksum valid again.
inline QByteArray patched(QByteArray bytes, qsizetype offset, const QByteArray& patch,
                          BlockKind kind = BlockKind::OldStyle) {
  bytes.replace(offset, patch.size(), patch);
  sealBlock({reinterpret_cast<unsigned char*>(bytes.data()), static_cast<std::size_t>(bytes.size())}, kind);
  return bytes;
}

inline QByteArray ident(const Fields& fields = {}) {
  Fields all{{"eepromSize", std::to_string(memorySize)},
             {"partNumber", "11411000"},
             {"serialNumber", "100234"},
             {"productDate", "2018-06-21"},
             {"name", "RF-BOARD"}};
  all.insert(all.end(), fields.begin(), fields.end());
  return block(2, all);
}

/// Returns a list of ascending values.
inline QByteArray list(unsigned short id, int count, const Fields& fields = {}) {
  Fields all{{"count", std::to_string(count)}};
  for (int i = 0; i < count; ++i) all.emplace_back("values[" + std::to_string(i) + ']', std::to_string(10 * i + 10));
  all.insert(all.end(), fields.begin(), fields.end());
  return block(id, all);
}

inline QByteArray service(unsigned short id, const char* date) { return block(id, {{"serviceDate", date}}); }

inline QByteArray secondEdition(const Examples::Table& table) {
  return Examples::SecondEditionBuilder(1040).add(table).finish().getByteArrayData();
}

inline QByteArray eventCounter(const QByteArray& counters) {
  QByteArray bytes = VelkTest::fromHex("12 04 14 00 00 00 00 00 14 00 2D 45") + counters;
  return patched(bytes, 0, {}, BlockKind::EventCounter);
}

using Blocks = std::vector<QByteArray>;

inline QByteArray memory(const Blocks& blocks, qsizetype size = memorySize) {
  QByteArray bytes;
  for (const QByteArray& one : blocks) bytes += one;
  return bytes.leftJustified(size, '\xFF');
}

/// The codes and the texts of everything that is found in an image.
inline std::vector<std::pair<std::string, std::string>> foundIn(const MemoryImage& image, CheckOptions options = {}) {
  options.today = PackedDate{2026, 11, 25};
  std::vector<std::pair<std::string, std::string>> found;
  for (const CheckFinding& finding : checkImage(image, options)) found.emplace_back(finding.kind->code, finding.text);
  return found;
}

}  // namespace VelkTest
