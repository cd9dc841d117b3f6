// Reads any bytes as an image, and edits, compares, redacts and exports its blocks in turn.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <random>

#include "../tool/Csv.h"
#include "../tool/DataJson.h"
#include "../tool/TidyText.h"
#include "FuzzSupport.h"
#include "velk/bytes/ByteArray.h"
#include "velk/checks/Checks.h"
#include "velk/data/BlockDiff.h"
#include "velk/data/BlockPattern.h"
#include "velk/data/BlockRedaction.h"
#include "velk/data/BlockSeal.h"
#include "velk/data/DataLookup.h"
#include "velk/data/ValueEdit.h"
#include "velk/fields/Quantity.h"

namespace {

using namespace Velk;

constexpr std::size_t longest = 0x1000;  // many small inputs find more than few large ones
constexpr std::size_t mostBlocks = 32;
constexpr std::size_t mostValues = 512;

/// Returns the first block of an image of these bytes.
BlockView walked(const QByteArray& bytes) { return *MemoryImage(bytes).begin(); }

std::vector<std::pair<std::string, FieldElement>> valuesOf(const BlockView& block) {
  std::vector<std::pair<std::string, FieldElement>> values;
  const BlockData data(block, Extent::Capacity);
  const auto add = [&](const DataPath& path, const FieldElement& element) {
    if (values.size() < mostValues) values.emplace_back(path.text(), element);
  };
  forEachValue(data.root(), {}, add);
  return values;
}

bool isCheck(const BlockView& block, std::size_t at) {
  if (block.kind == BlockKind::End || block.kind == BlockKind::Stray) return false;
  return (at >= 4 && at < 6) || (block.kind == BlockKind::SecondEdition && at >= 8 && at < 12);
}

/// Returns whether a valid checksum is enough to make the block sound.
bool canBeSound(const BlockView& block) {
  return block.kind != BlockKind::Stray && block.bytes.size() == block.declaredSize &&
         block.bytes.size() >= sizeof(HwSDatablockHeader);
}

/// Returns a text in which one character is another one, or missing.
std::string mutated(std::string text, std::mt19937& random) {
  constexpr std::string_view characters = "0123456789.:/[]-*?eE xX";
  if (text.empty()) return text;
  const std::size_t at = random() % text.size();
  random() % 4 == 0 ? void(text.erase(at, 1)) : void(text[at] = characters[random() % characters.size()]);
  return text;
}

/// Follows a path with a mistake, and looks for blocks by a name with one: both succeed, or say why not.
void lookUp(const BlockView& block, std::mt19937& random) {
  const auto values = valuesOf(block);
  const BlockData data(block);
  if (!values.empty()) {
    const std::string path = mutated(values[random() % values.size()].first, random);
    std::size_t found = 0;
    const std::string complaint = forEachFound(data.root(), path, [&](const DataPath& here, const FieldElement&) {
      if (++found < 4) FUZZ_EXPECT(!here.text().empty());
    });
    FUZZ_EXPECT(complaint.empty() || found == 0);
    const DataLookup place = findPlace(data.root(), path);
    FUZZ_EXPECT(place.value.has_value() == place.complaint.empty());
  }
  std::string error;
  const auto pattern = BlockPattern::parse(mutated(blockName(block), random), error);
  FUZZ_EXPECT(pattern.has_value() == error.empty());
}

/// Sets one value, and checks that only the value and the checksums change and that the result is as reported.
void edit(QByteArray& bytes, BlockView block, std::mt19937& random) {
  constexpr std::string_view texts[] = {"0",          "-1",     "255",  "65535", "1.5",          "1e300",
                                        "2017-03-15", "",       "nan",  "abcde", "1141.1000.2",  "13.00",
                                        "1/0",        "0.26dB", "1e9V", "nan h", "1141.1000.02", "99999.99999",
                                        "2 (1/1)",    "1e9 Hz", "00:9"};
  const auto values = valuesOf(block);
  if (values.empty()) return;
  const auto& [path, element] = values[random() % values.size()];
  const ValueForm form = random() % 2 == 0 ? ValueForm::Stored : ValueForm::Presented;
  const std::string shown = fieldText(block.bytes, element, form);
  const bool own = random() % 3 == 0;
  std::string text = own ? shown : std::string(texts[random() % std::size(texts)]);
  if (!own && random() % 2 == 0) text = mutated(quantityText(block.bytes, element), random);

  QByteArray edited(bytes.constData(), bytes.size());
  BlockView view = block;
  view.bytes = mutableBytesOf(edited);
  if (!setValue(mutableBytesOf(edited), view, path, text, form).empty()) {
    FUZZ_EXPECT(edited == bytes);
    return;
  }
  if (own && form == ValueForm::Stored) FUZZ_EXPECT(fieldText(view.bytes, element, form) == shown);
  sealBlock(mutableBytesOf(edited), block.kind);
  if (canBeSound(block)) FUZZ_EXPECT(walked(edited).isSound());
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    const auto at = static_cast<std::size_t>(i);
    // The variant of a part number follows it.
    const std::size_t size = element.size + (element.field->notation == Notation::PartNumber ? 1 : 0);
    const bool mayChange = isCheck(block, at) || (at >= element.offset && at < element.offset + size);
    FUZZ_EXPECT(mayChange || bytes[i] == edited[i]);
  }
  std::size_t differences = 0;
  compareBlocks(block, view, [&](const Difference& difference) {
    FUZZ_EXPECT(!difference.path.text().empty());
    ++differences;
  });
  FUZZ_EXPECT((differences == 0) == (edited == bytes));
  bytes = edited;
}

/// Counts the commas that separate the cells of a line.
std::ptrdiff_t separators(std::string_view line) {
  bool quoted = false;
  return std::ranges::count_if(line, [&](char c) {
    quoted = quoted != (c == '"');
    return c == ',' && !quoted;
  });
}

/// Checks that the export of a block is valid JSON, and that all lines of a CSV table have the same number of columns.
void exportBlock(const BlockView& block) {
  const BlockData data(block);
  for (const ValueForm form : {ValueForm::Presented, ValueForm::Stored}) {
    std::string text;
    VelkTool::JsonWriter json([&](std::string_view piece) { text += piece; });
    writeData(json, data, form);
    json.finish();
    FUZZ_EXPECT(nlohmann::json::accept(text));
  }
  for (std::size_t table = 0; table < std::min<std::size_t>(VelkTool::CsvTable::count(data), 8); ++table) {
    std::optional<std::ptrdiff_t> columns;
    VelkTool::CsvTable(data, table, true).write([&](std::string_view line) {
      const std::ptrdiff_t count = separators(line);
      FUZZ_EXPECT(columns.value_or(count) == count);
      columns = count;
    });
    FUZZ_EXPECT(columns);
  }
}

/// Checks that each line of the values of a block has all columns, and that the text to read stays within bounds.
void exportTidy(const MemoryImage& image, const ImageAxes& axes, const BlockView& block) {
  static const std::set<std::string> headings = axisHeadings(VelkTool::Selection{});
  constexpr std::ptrdiff_t otherColumns = 12;
  constexpr std::size_t mostText = 1U << 20U;
  const VelkTool::Input input{"image.bin", {}, image};
  const ModuleIdentity module = identityOf(image);
  const ValueTable values(block, 0, axes);
  const VelkTool::TidyBlock tidy{input, module, block, 1, values};
  std::string lines;
  VelkTool::TidyTable({}, headings).write(tidy, [&](std::string_view piece) { lines += piece; });
  const auto count = std::ranges::count(lines, '\n');  // some may be in quotes
  FUZZ_EXPECT(separators(lines) % (otherColumns - 1 + std::ssize(headings)) == 0);
  FUZZ_EXPECT(separators(lines) <= count * (otherColumns - 1 + std::ssize(headings)));
  FUZZ_EXPECT(tidyText(tidy, 80).size() < mostText);
}

/// Checks that every doubtful count would be refused as an edit, and that only the last table is cut off.
void doubt(const BlockView& block) {
  const BlockData data(block, Extent::Capacity);
  std::size_t tables = 0;
  for (const CheckFinding& doubt : checkBlock(block, {.enabled = dataChecks()})) {
    if (doubt.kind->code == std::string_view("incomplete-table")) {
      ++tables;
      continue;
    }
    const DataLookup found = findValue(data.root(), doubt.path);
    FUZZ_EXPECT(found.value);
    const FieldElement& count = found.value->element();
    if (!count.isInside(block.bytes.size())) continue;
    QByteArray bytes = toByteArray(block.bytes);
    const std::string claimed = fieldText(block.bytes, count);
    FUZZ_EXPECT(setValue(mutableBytesOf(bytes), block, doubt.path, claimed, ValueForm::Stored) == doubt.text);
  }
  FUZZ_EXPECT(tables <= 1);
}

void redact(const BlockView& block) {
  QByteArray bytes = toByteArray(block.bytes);
  BlockView view = block;
  view.bytes = mutableBytesOf(bytes);
  const RedactionReach reach = redactionReach(view);
  FUZZ_EXPECT(reach == RedactionReach::All || (reach == RedactionReach::Nothing) == (view.row == nullptr));
  redactBlock(mutableBytesOf(bytes), view);
  // The zeros may by chance make the CRC-32 of a damaged old-style block match.
  const BlockView after = walked(bytes);
  if (canBeSound(block) && after.kind == block.kind) FUZZ_EXPECT(after.isSound() == block.isSound());
  FUZZ_EXPECT(redactBlock(mutableBytesOf(bytes), view).empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  VelkFuzz::quieten();
  if (size > longest) return 0;
  const MemoryImage image(toByteArray({data, size}));
  std::mt19937 random(static_cast<unsigned>(size) + (size == 0 ? 0U : data[size / 2]));
  const ImageAxes axes(image);
  std::size_t blocks = 0;
  for (const BlockView& found : image) {
    if (++blocks > mostBlocks) break;
    QByteArray bytes = toByteArray(found.bytes);
    BlockView block = found;
    for (int step = 0; step < 4; ++step) {
      block.bytes = mutableBytesOf(bytes);
      edit(bytes, block, random);
    }
    lookUp(found, random);
    exportBlock(found);
    exportTidy(image, axes, found);
    doubt(found);
    redact(found);
  }
  return 0;
}
