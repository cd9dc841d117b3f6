#include "velk/data/DataLookup.h"

#include "TestSupport.h"
#include "velk/image/MemoryImage.h"

namespace Velk {
namespace {

/// A block of an example image.
struct Example {
  Example(const char* file, std::string_view name) : image(VelkTest::exampleImage(file)) {
    for (const BlockView& block : image) {
      if (view.bytes.empty() && blockName(block) == name) view = block;
    }
    EXPECT_FALSE(view.bytes.empty()) << name;
  }

  MemoryImage image;
  BlockView view{};
};

struct Case {
  const char* path;
  std::string found;  ///< the paths of the values, or the complaint
};

void expectFound(const Example& example, std::initializer_list<Case> cases) {
  const BlockData data(example.view);
  for (const Case& each : cases) {
    std::string found;
    const std::string complaint = forEachFound(data.root(), each.path, [&](const DataPath& path, const FieldElement&) {
      found += (found.empty() ? "" : " ") + path.text();
    });
    EXPECT_EQ(complaint.empty() ? found : complaint, each.found) << each.path;
  }
}

TEST(DataLookup, FollowsNamesKeysIndicesAndRanges) {
  expectFound({"rf_board.bin", "IDENT_2"}, {
                                               {"serialNumber", "serialNumber"},
                                               {"SN", "serialNumber"},
                                               {"PARTNUMBER", "partNumber"},
                                               {"sn", "no field \"sn\"; the nearest is name"},
                                               {"serialNumer", "no field \"serialNumer\"; the nearest is serialNumber"},
                                               {"SN[0]", "SN is a single value"},
                                               {"SN.x", "SN is a single value"},
                                               {"[0]", "a block has fields, as eepromSize"},
                                               {".SN", "no field \"\"; the nearest is name"},
                                           });
  expectFound({"dac_board.bin", "DACB_FREQUENCY_COMP_AMP"},
              {
                  {"COUNT", "count"},
                  {"values[3]", "values[3]"},
                  {"values[1:3]", "values[1] values[2]"},
                  {"values[:2]", "values[0] values[1]"},
                  {"values[2:1]", "values has 26 elements, counted from 0"},
                  {"values[99]", "values has 26 elements, counted from 0"},
                  {"values[99:]", "values has 26 elements, counted from 0"},
                  {"values[25:999]", "values[25]"},
                  {"values[-1]", "values is followed by no index in brackets"},
                  {"values[1", "values is followed by no index in brackets"},
                  {"values[1:x]", "values is followed by no index in brackets"},
              });
}

TEST(DataLookup, RangesGoThroughTablesAndRecords) {
  expectFound({"detector.bin", "ID_1041"},
              {
                  {"tables[0].cells[0:2][3]", "tables[0].cells[0][3] tables[0].cells[1][3]"},
                  {"tables[:].rows", "tables[0].rows tables[1].rows"},
              });
}

TEST(DataLookup, ASinglePlaceIsNoRange) {
  const Example example("dac_board.bin", "DACB_FREQUENCY_COMP_AMP");
  const BlockData data(example.view);
  EXPECT_EQ(findPlace(data.root(), "values").path, "values");
  EXPECT_EQ(findPlace(data.root(), "COUNT").path, "count");
  EXPECT_EQ(findPlace(data.root(), "values[0:1]").complaint, "values[0:1] is a range, not a single place");
  EXPECT_EQ(findValue(data.root(), "values").complaint, "values is a list, as values[0]");
}

}  // namespace
}  // namespace Velk
