#include "velk/data/ValueTable.h"

#include <algorithm>
#include <map>
#include <set>

#include "DataSupport.h"
#include "velk/data/ElementCounts.h"
#include "velk/data/UnitValue.h"
#include "velk/text/NumberText.h"

namespace Velk {
namespace {

using VelkTest::OwnedBlock;

const MemoryImage noImage{QByteArray()};

/// How many values begin at each byte of a block: paths differ in how they name them.
using Places = std::vector<int>;

/// The values of a block in its tree, but not those that count others, describe tables or are parts of an address.
Places valuesInTree(const BlockData& data) {
  Places places(data.bytes().size());
  const std::set<std::string_view> counters = counterNames(data.root());
  const auto add = [&](const DataPath& path, const FieldElement& element) {
    const bool isPart = element.field->notation == Notation::Address || counters.contains(element.field->name) ||
                        (data.isSelfDescribing() && path.text(false) != "tables.cells" && path.text() != "updateIndex");
    if (!isPart && element.isInside(places.size())) ++places[element.offset];
  };
  forEachValue(data.root(), {}, add);
  return places;
}

Places valuesIn(const ValueTable& table) {
  Places places(table.bytes().size());
  for (const ValueField& field : table.fields()) {
    for (std::size_t index = 0; index < field.rows(); ++index) {
      const ValueRow row = field.row(index);
      for (std::size_t column = 0; column < row.size(); ++column) {
        if (const auto element = row.at(column)) ++places.at(element->offset);
      }
    }
  }
  return places;
}

/// Gives the fields of a class any values, with all elements in use.
void fillQuickly(OwnedBlock& block, std::mt19937& random) {
  if (block.view().row == nullptr) return;
  const auto fields = std::span(block.bytes).subspan(std::min(sizeof(HwSDatablockHeader), block.bytes.size()));
  std::ranges::generate(fields, [&] { return static_cast<unsigned char>(random() % 127 + 1); });
}

bool hasMeaning(const BlockView& block) {
  return block.kind == BlockKind::OldStyle || block.kind == BlockKind::SecondEdition;
}

// Of every kind of block, whole and cut off as a damaged memory may leave it.
TEST(ValueTable, HasEveryValueOnce) {
  std::mt19937 random(7);
  const ImageAxes axes(noImage);
  for (OwnedBlock& block : VelkTest::everyKindOfBlock()) {
    fillQuickly(block, random);
    const BlockView whole = block.view();
    for (const std::size_t size : {whole.bytes.size(), whole.bytes.size() / 2 + 1, std::size_t{21}}) {
      if (size > whole.bytes.size()) continue;
      BlockView view = whole;
      view.bytes = whole.bytes.first(size);
      const ValueTable table(view, 0, axes);
      const Places expected = hasMeaning(view) ? valuesInTree(BlockData(view)) : Places(size);
      EXPECT_EQ(valuesIn(table), expected) << block.name << ", " << size << " bytes";
    }
  }
}

/// The paths of a block, each with the numbers of its rows and columns.
std::vector<std::string> shapesOf(const char* name) {
  std::mt19937 random(7);
  std::vector<std::string> shapes;
  for (OwnedBlock& block : VelkTest::everyKindOfBlock()) {
    if (block.name != name) continue;
    fill(block, random);
    const BlockView view = block.view();
    const ValueTable table(view, 0, ImageAxes(noImage));
    for (const ValueField& field : table.fields()) {
      shapes.push_back(field.path());
      if (field.rank() > 0) shapes.back() += ' ' + std::to_string(field.rows());
      if (field.rank() > 1) shapes.back() += " x " + std::to_string(field.row(0).size());
    }
  }
  return shapes;
}

TEST(ValueTable, KeepsIndicesInThePathThatAreNoRowAndColumn) {
  using Shapes = std::vector<std::string>;
  EXPECT_EQ(shapesOf("HwDatablockDacbFrequencyCompAmp"), Shapes{"values 26"});
  EXPECT_EQ(shapesOf("HwDatablockMbrdRfResponseAttAmpl"),
            (Shapes{"cells.coefficients[0] 6 x 200", "cells.coefficients[1] 6 x 200", "cells.coefficients[2] 6 x 200",
                    "cells.coefficients[3] 6 x 200"}));
  EXPECT_EQ(shapesOf("HwDatablockAduOffsetCalData"), Shapes{});
}

// Whatever points a value may get in an image, the columns that follow from the catalogue have a place for them.
TEST(ValueTable, CatalogueHasTheHeadingOfEveryAxis) {
  std::set<std::string> all;
  for (const OwnedBlock& block : VelkTest::everyKindOfBlock()) {
    const BlockView view = block.view();
    const std::set<std::string> headings = axisHeadings(view.id);
    all.insert(headings.begin(), headings.end());
    const ValueTable table(view, 0, ImageAxes(noImage));
    for (const ValueField& field : table.fields()) {
      std::set<std::string> own;
      for (const FieldAxis& axis : field.axes()) {
        EXPECT_TRUE(own.insert(axis.heading()).second) << field.path() << ": two axes would share a column";
        if (view.row != nullptr) EXPECT_TRUE(headings.contains(axis.heading())) << axis.heading();
      }
    }
  }
  EXPECT_TRUE(all.contains("frequency [Hz]") && all.contains("frequency [GHz]") && all.contains("temperature"));
}

/// Returns "13.00 @ 5 8000000" for a value and its points.
std::string valueWithPoints(const ValueTable& table, std::string_view path, ValuePlace place) {
  std::string text;
  const auto append = [&](auto value) {
    if constexpr (std::is_arithmetic_v<decltype(value)>) text += detail::numberText(value);
    if constexpr (std::is_same_v<decltype(value), std::string_view>) text += value;
  };
  for (const ValueField& field : table.fields()) {
    if (field.path() != path) continue;
    const FieldElement element = *field.at(place);
    detail::withUnitValue(table.bytes(), element, quantityOf(*element.field), append);
    for (const FieldAxis& axis : field.axes()) {
      text += " @ " + axis.heading() + ' ';
      if (const auto point = axis.point(place)) detail::withUnitValue(axis.bytes(), *point, axis.quantity(), append);
    }
  }
  return text;
}

TEST(ValueTable, PutsPointsBesideValues) {
  struct Case {
    const char* image;
    int id;
    const char* path;
    ValuePlace place;
    const char* expected;
  };
  const Case cases[] = {
      {"dac_board.bin", 13600, "values", {1, 0}, "16 @ frequency [Hz] -48000000"},
      {"rf_board_tables.bin", 15761, "cells", {1, 2}, "484 @ index -10 @ frequency 4000000"},
      {"rf_board_tables.bin", 12314, "cells", {2, 0}, "1.33642 @ frequency [GHz] 5"},
      {"detector.bin", 1041, "tables[0].cells", {0, 1}, "-128 @ row id LEAST"},
      {"rf_board.bin", 2, "partNumber", {}, "1141.1000.02"},
  };
  for (const Case& one : cases) {
    const QByteArray bytes = VelkTest::exampleImage(one.image);
    const MemoryImage image(bytes);
    const ImageAxes axes(image);
    for (const BlockView& block : image) {
      if (block.id != one.id) continue;
      EXPECT_EQ(valueWithPoints(ValueTable(block, 0, axes), one.path, one.place), one.expected) << one.id;
    }
  }
}

TEST(ValueTable, NumbersAreInTheirUnitAndAsShortAsTheirTypeAllows) {
  const auto textOf = [](ScalarType type, std::vector<unsigned char> bytes, const char* unit) {
    const auto size = static_cast<unsigned short>(std::max<std::size_t>(bytes.size(), 1));
    const FieldInfo field = FieldInfo{"", 0, type, size}.in(unit);
    std::string text;
    detail::withUnitValue(ConstBytes(bytes), {&field, 0}, quantityOf(field), [&](auto value) {
      if constexpr (std::is_arithmetic_v<decltype(value)>) text = detail::numberText(value);
    });
    return text;
  };
  EXPECT_EQ(textOf(ScalarType::I16, {24, 0}, "1/100 dB"), "0.24");
  EXPECT_EQ(textOf(ScalarType::I16, {200, 0}, "1/100 dB"), "2");
  EXPECT_EQ(textOf(ScalarType::I16, {24, 0}, "1/10000"), "24");
  EXPECT_EQ(textOf(ScalarType::F32, {0xCD, 0xCC, 0xCC, 0x3D}, "dB"), "0.1");
  EXPECT_EQ(textOf(ScalarType::F32, {0xCD, 0xCC, 0x1C, 0x41}, "1/100 dB"), "0.098");
  EXPECT_EQ(textOf(ScalarType::U8, {}, "dB"), "") << "past the end of the block";
}

}  // namespace
}  // namespace Velk
