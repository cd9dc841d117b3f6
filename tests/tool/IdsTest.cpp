#include <nlohmann/json.hpp>

#include "CatalogueSupport.h"
#include "CommandSupport.h"
#include "velk/oldstyle/BlockPairs.h"

namespace {

using nlohmann::json;
using VelkTest::Command;
using VelkTest::run;

class Ids : public Command {
 protected:
  const std::string text_ = run({"ids", "--json"}).output;
  const json document_ = json::parse(text_);

  const json& block(int id) const {
    for (const json& block : document_["blocks"]) {
      for (const json& one : block["ids"]) {
        if (one["id"] == id) return block;
      }
    }
    ADD_FAILURE() << id;
    return document_;
  }
};

json without(json object, std::initializer_list<const char*> members) {
  for (const char* const member : members) object.erase(member);
  return object;
}

TEST_F(Ids, AsJsonAreThoseOfTheirSchema) {
  const auto hold = [&](const QString& name, const std::string& text) {
    return run({VELK_SOURCE_DIR "/tests/tool/hold_against_schema.py", VELK_SOURCE_DIR "/docs/velk-ids-1.schema.json",
                file(name, QByteArray::fromStdString(text))},
               {}, VELK_PYTHON);
  };
  const VelkTest::Outcome held = hold("ids.json", text_);
  EXPECT_EQ(held.exitCode, 0) << held.output << held.errors;
  json wrong = document_;
  wrong["blocks"][0]["fields"][0]["more"] = 1;
  EXPECT_EQ(hold("wrong.json", wrong.dump()).exitCode, 1);
  EXPECT_EQ(run({"ids", "--json", "--layout"}).exitCode, 2);
}

TEST_F(Ids, AsJsonAreAllOfTheCatalogue) {
  const std::vector<Velk::CatalogueRow> rows = VelkTest::allRows();
  ASSERT_EQ(document_["blocks"].size(), rows.size());
  std::size_t pairs = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const json& block = document_["blocks"][i];
    EXPECT_EQ(block["class"], rows[i].className);
    EXPECT_EQ(block["ids"].size(), rows[i].lastId - rows[i].firstId + 1U);
    EXPECT_EQ(block["ids"].back(), (json{{"id", rows[i].lastId}, {"key", rows[i].key(rows[i].lastId)}}));
    EXPECT_EQ(block["fields"].size(), rows[i].fields.size());
    EXPECT_EQ(block["dictionary"], i < Velk::dictionaryRows().size());
    pairs += block["pairs"].size();
  }
  EXPECT_EQ(pairs, Velk::blockPairs().size());
}

TEST_F(Ids, AsJsonHaveAllOfAField) {
  const auto field = [&](int id, const char* name) -> json {
    for (const json& one : block(id)["fields"]) {
      if (one["name"] == name) return without(one, {"name", "personal", "fixed"});
    }
    return {};
  };
  EXPECT_EQ(field(200, "opTimeHours"), json::parse(R"({"key": "OPHOURS", "offset": 16, "type": "u32", "stride": 4,
      "kind": "number", "notation": "hours", "example": "00000/012345", "scale": 1, "bias": 0, "unit": "h",
      "baseUnit": "h", "divisor": 1, "bits": {"shift": 0, "width": 18, "signed": false}})"));
  EXPECT_EQ(field(12041, "cells"), json::parse(R"({"offset": 16, "type": "i16", "stride": 2, "kind": "number",
      "rows": 20, "cols": 1500, "rowsCountedBy": "levelSteps", "colsCountedBy": "freqs", "scale": 1, "bias": 0,
      "unit": "1/100 dB", "baseUnit": "dB", "divisor": 100})"));
  EXPECT_EQ(field(120, "serviceCode").value("openEnded", false), true);
  const json records = field(10303, "blocks");
  EXPECT_EQ(without(records, {"members"}),
            json::parse(R"({"offset": 12, "type": "record", "stride": 8, "rows": 300})"));
  EXPECT_EQ(records["members"].size(), 6U);
  EXPECT_TRUE(block(2)["fields"][5]["personal"]);
}

TEST_F(Ids, AsJsonHaveThePointsOfEachId) {
  const json third = without(block(12062)["pairs"][2], {"unit", "baseUnit", "divisor"});
  EXPECT_EQ(third, json::parse(R"({"valuesId": 12062, "values": "cells", "axis": "columns", "axisId": 12052,
      "axisKey": "EXT_CAL_DAT_C_FREQ", "points": "values", "quantity": "frequency", "count": "points",
      "rowsPerList": 1})"));
  EXPECT_EQ(block(12043)["pairs"][0], json::parse(R"({"valuesId": 12043, "values": "cells", "axis": "rows",
      "axisId": 12041, "axisKey": "LEV_CAL_DAT_LEVEL", "points": "cells", "quantity": "level", "unit": "1/100 dB",
      "baseUnit": "dB", "divisor": 100, "count": "equal", "rowsPerList": 1})"));
}

TEST_F(Ids, LayoutsSayWhatValuesLieOver) {
  const std::string layouts = run({"ids", "--layout"}).output;
  for (const char* const line : {
           "- the elements of `values` lie over the frequency in `values` of 10002, SSYN_OPU_LEVEL_FREQ\n",
           "- the rows of `cells` lie over the level (1/100 dB) in `cells` of 12041, LEV_CAL_DAT_LEVEL\n",
           "of 12050 to 12053, EXT_CAL_DAT_A_FREQ to EXT_CAL_DAT_D_FREQ\n",
           "in `entries.gain` of the same block\n",
           ", a row of these for 4 rows\n",
       })
    EXPECT_NE(layouts.find(line), std::string::npos) << line;
}

}  // namespace
