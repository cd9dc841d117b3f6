#include <limits>
#include <nlohmann/json.hpp>

#include "../../tool/JsonWriter.h"
#include "CommandSupport.h"

namespace {

using nlohmann::json;
using VelkTest::Command;
using VelkTest::Outcome;
using VelkTest::run;
using VelkTool::JsonWriter;

template <class Write>
std::string document(JsonWriter::Layout layout, Write write) {
  std::string text;
  JsonWriter writer([&](std::string_view piece) { text += piece; }, layout);
  write(writer);
  writer.finish();
  return text;
}

TEST(JsonWriter, Layouts) {
  const auto write = [](JsonWriter& writer) {
    writer.beginObject().member("a", 1).key("b").beginArray().value(true).null().beginObject().endObject().endArray();
    writer.key("c").beginArray().endArray().endObject();
  };
  EXPECT_EQ(document(JsonWriter::Layout::OneLine, write), "{\"a\": 1, \"b\": [true, null, {}], \"c\": []}\n");
  EXPECT_EQ(document(JsonWriter::Layout::Indented, write),
            "{\n  \"a\": 1,\n  \"b\": [\n    true,\n    null,\n    {}\n  ],\n  \"c\": []\n}\n");
}

TEST(JsonWriter, AnyBytesAreAText) {
  struct Case {
    std::string bytes;
    std::string text;
  };
  const Case cases[] = {
      {"plain", "plain"},
      {"\"\\/\n\t\r\x01\x7F", "\"\\/\n\t\r\x01\x7F"},
      {std::string("\0", 1), std::string("\0", 1)},
      {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD"},
      {"\xC2\x85", "\xC2\x85"},
      // No UTF-8, so each byte is a character: a byte alone, cut off, overlong, a surrogate, beyond the last.
      {"\xE4", "\xC3\xA4"},
      {"a\xC3", "a\xC3\x83"},
      {"\xC3\xA4\xFF", "\xC3\x83\xC2\xA4\xC3\xBF"},
      {"\xC0\x80", "\xC3\x80\xC2\x80"},
      {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xC2\x80"},
      {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xC2\x80\xC2\x80"},
  };
  for (const Case& expected : cases) {
    const std::string text =
        document(JsonWriter::Layout::OneLine, [&](JsonWriter& writer) { writer.value(expected.bytes); });
    EXPECT_EQ(json::parse(text).get<std::string>(), expected.text) << text;
    for (const char c : text.substr(0, text.size() - 1)) EXPECT_FALSE((c >= 0 && c < 0x20) || c == 0x7F) << text;
  }
}

TEST(JsonWriter, NumbersReadBackAsTheyWere) {
  const double values[] = {0.1, 1e300, -5e-324, 0, 123456789.25};
  for (const double value : values) {
    const std::string text = document(JsonWriter::Layout::OneLine, [&](JsonWriter& writer) { writer.value(value); });
    EXPECT_EQ(json::parse(text).get<double>(), value);
  }
  const std::string others = document(JsonWriter::Layout::OneLine, [](JsonWriter& writer) {
    writer.beginArray().value(0.1F).value(std::numeric_limits<double>::infinity()).value(std::nan(""));
    writer.value(std::numeric_limits<std::uint64_t>::max()).value(std::numeric_limits<std::int64_t>::min()).endArray();
  });
  EXPECT_EQ(others, "[0.1, null, null, 18446744073709551615, -9223372036854775808]\n");
}

TEST(JsonWriter, HandsOnLongDocumentsInPieces) {
  std::size_t longest = 0;
  std::size_t total = 0;
  JsonWriter writer([&](std::string_view piece) {
    longest = std::max(longest, piece.size());
    total += piece.size();
  });
  writer.beginArray();
  for (int i = 0; i < 100'000; ++i) writer.value(i);
  writer.endArray().finish();
  EXPECT_GT(total, 500'000U);
  EXPECT_LT(longest, 5'000U);
}

TEST(JsonWriter, PiecesEndAnywhere) {
  std::string text;
  JsonWriter writer([&](std::string_view piece) { text += piece; });
  json expected = json::array();
  json* level = &expected;
  for (int depth = 0; depth < 200; ++depth) {
    writer.beginArray().value(-depth * 1.0e-300).value(std::string(static_cast<std::size_t>(depth), 'x'));
    level->push_back(-depth * 1.0e-300);
    level->push_back(std::string(static_cast<std::size_t>(depth), 'x'));
    if (depth + 1 < 200) level->push_back(json::array());
    level = &level->back();
  }
  for (int depth = 0; depth < 200; ++depth) writer.endArray();
  writer.finish();
  EXPECT_EQ(json::parse(text), expected);
}

class Json : public Command {
 protected:
  /// Runs velk in the folder with two empty images: $A, whose name is not UTF-8, and $B, whose name $A has in Latin-1.
  /// They are removed at once; the folder's own clean-up would miss $A.
  Outcome withOddNames(const QString& arguments) {
    const QString line =
        QString("cd '%1' && A=$'\\xff.bin' B=$'\\xc3\\xbf.bin' && : >\"$A\" && : >\"$B\" && '%2' %3; rm \"$A\" \"$B\"")
            .arg(directory_.path(), VELK_COMMAND, arguments);
    return run({"-c", line}, {}, "bash");
  }

  /// The image with a bit of the first block flipped, and the end block's successor not erased.
  QString damaged() {
    QByteArray bytes = VelkTest::exampleImage("rf_board.bin");
    bytes[20] = static_cast<char>(bytes[20] ^ 1);
    bytes[1000] = 0;
    return file("damaged.bin", bytes);
  }
};

TEST_F(Json, SaysWhatTheTextSays) {
  const Outcome result = run({"list", "--json", "rf_board.bin"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.output, VelkTest::golden("rf_board.list.json", result.output));
  EXPECT_EQ(run({"check", "--json", "rf_board.bin"}).output, result.output);
}

TEST_F(Json, FindingsAndFilesThatCannotBeRead) {
  const Outcome result = run({"check", "--json", damaged(), "missing.bin"});
  EXPECT_EQ(result.exitCode, 3);
  const json files = json::parse(result.output)["files"];
  const json& blocks = files[0]["blocks"];
  EXPECT_EQ(blocks[0]["verdict"], "wrong checksum");
  EXPECT_EQ(blocks[0]["sound"], false);
  EXPECT_EQ(blocks[0]["findings"][0]["text"], "checksum is 0xF430, the bytes give 0xF42F");
  EXPECT_EQ(blocks[1]["findings"].size(), 0U);
  EXPECT_EQ(blocks.back()["kind"], "stray");
  EXPECT_FALSE(blocks.back().contains("id"));
  const json missing = {{"file", "missing.bin"}, {"error", "No such file or directory"}, {"blocks", json::array()}};
  EXPECT_EQ(files[1], missing);
  EXPECT_EQ(run({"list", "--json", damaged()}).exitCode, 1);
}

TEST_F(Json, TwoNamesNeverBecomeOne) {
  const json files = json::parse(withOddNames("list --json \"$A\" \"$B\"").output)["files"];
  EXPECT_EQ(files[0]["file"], files[1]["file"]) << "the byte is shown as what it is in Latin-1";
  EXPECT_EQ(files[0]["fileBytes"], "ff2e62696e");
  EXPECT_FALSE(files[1].contains("fileBytes"));
  EXPECT_EQ(json::parse(withOddNames("export --format jsonl \"$A\"").output)["fileBytes"], "ff2e62696e");
  const json difference = json::parse(withOddNames("diff --json \"$B\" \"$A\"").output);
  EXPECT_EQ(difference["secondBytes"], "ff2e62696e");
  EXPECT_FALSE(difference.contains("firstBytes"));
}

TEST_F(Json, SaysHowBlocksAreFoundAndWhatLiesBetween) {
  const QByteArray board = VelkTest::exampleImage("rf_board.bin").left(128);
  const QString path = file("dirty.bin", QByteArray(300, 'x') + board);
  const json report = json::parse(run({"list", "--json", path}).output)["files"][0];
  EXPECT_FALSE(report["blocks"][0].contains("found"));
  EXPECT_EQ(report["blocks"][1]["found"], "out-of-sequence");
  EXPECT_EQ(report["blocks"][2]["found"], "in-sequence");
  EXPECT_EQ(report["regions"], json::parse(R"([{"offset": 0, "size": 300, "look": "text"},
                                               {"offset": 414, "size": 14, "look": "erased"}])"));
}

TEST_F(Json, HoldsAgainstItsSchema) {
  QStringList inputs = VelkTest::exampleImages();
  inputs << damaged() << "missing.bin" << file("gap.s19", "S1070100FFFF0000F9\nS1070200FFFFFFFFFA\n")
         << file("empty.bin", "");
  QStringList documents;
  const auto document = [&](const QString& name, const QStringList& arguments) {
    documents << file(name, QByteArray::fromStdString(run(arguments).output));
  };
  document("list.json", QStringList{"list", "--json"} + inputs);
  document("check.json", QStringList{"check", "--json"} + inputs);
  inputs.removeOne("every_id.bin");  // a megabyte, over which the validator sits for half a minute
  document("export.json", QStringList{"export", "--stored"} + inputs);
  document("export.jsonl", QStringList{"export", "--format", "jsonl"} + inputs);
  const auto oddDocument = [&](const QString& name, const QString& arguments) {
    documents << file(name, QByteArray::fromStdString(withOddNames(arguments).output));
  };
  oddDocument("odd.json", "export \"$A\" nowhere");
  oddDocument("odd.jsonl", "export --format jsonl \"$A\" \"$A/\" nowhere");
  oddDocument("odd_diff.json", "diff --json \"$A\" \"$A\"");
  document("diff.json", {"diff", "--json", "rf_board.bin", damaged()});
  document("other.json", {"diff", "--json", "detector.bin", "mainboard.bin"});
  const auto hold = [](const QStringList& files) {
    const QString schema = VELK_SOURCE_DIR "/docs/velk-1.schema.json";
    return run(QStringList{VELK_SOURCE_DIR "/tests/tool/hold_against_schema.py", schema} + files, {}, VELK_PYTHON);
  };
  const Outcome held = hold(documents);
  EXPECT_EQ(held.exitCode, 0) << held.output << held.errors;
  const QByteArray wrong = R"({"schema": "velk/1", "files": [{"file": "x", "error": "y", "blocks": [], "more": 1}]})";
  EXPECT_EQ(hold({file("wrong.json", wrong)}).exitCode, 1);
}

}  // namespace
