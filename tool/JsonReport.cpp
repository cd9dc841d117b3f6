#include "JsonReport.h"

#include "Images.h"
#include "velk/data/BlockDoubts.h"

namespace VelkTool {
namespace {

void writeFindings(JsonWriter& json, const Velk::BlockView& block) {
  json.key("findings").beginArray();
  forEachFinding(block, [&](Velk::Finding finding) {
    json.beginObject();
    json.member("finding", Velk::findingName(finding));
    json.member("remark", Velk::isRemark(finding));
    json.member("text", Velk::describe(block, finding));
    json.endObject();
  });
  for (const std::string& doubt : Velk::doubtsAbout(block)) {
    json.beginObject().member("finding", "doubtful data").member("remark", true).member("text", doubt).endObject();
  }
  json.endArray();
}

void writeBlockMembers(JsonWriter& json, const Velk::BlockView& block) {
  json.member("offset", block.offset).member("size", block.bytes.size());
  if (block.kind != Velk::BlockKind::Stray) {
    json.member("id", block.id).member("name", Velk::blockName(block)).member("declaredSize", block.declaredSize);
  }
  json.member("kind", Velk::kindName(block.kind)).member("verdict", Velk::verdictName(block));
  json.member("sound", block.isSound());
  if (block.kind != Velk::BlockKind::Stray) json.member("found", Velk::foundName(block.found));
  writeFindings(json, block);
}

void writeFile(JsonWriter& json, const Velk::ImageFile& file) {
  json.member("format", Velk::formatName(file.format)).member("address", file.address);
  json.member("size", file.bytes.size());
  if (!file.warning.empty()) json.member("warning", file.warning);
  json.key("gaps").beginArray();
  for (const Velk::ImageGap& gap : file.gaps) {
    json.beginObject().member("offset", gap.offset).member("size", gap.size).endObject();
  }
  json.endArray();
}

void writeRegions(JsonWriter& json, const Velk::MemoryImage& image) {
  json.key("regions").beginArray();
  for (const Velk::Region& region : image.regions()) {
    json.beginObject().member("offset", region.offset).member("size", region.size);
    json.member("look", Velk::lookName(region.look)).endObject();
  }
  json.endArray();
}

}  // namespace

std::shared_ptr<const bool> addJson(CLI::App& command) {
  auto json = std::make_shared<bool>(false);
  command.add_flag("--json", *json, "As JSON, for programs");
  return json;
}

void writeJsonReport(Session& session, const Inputs& inputs, const Selection& selection,
                     const DescribeBlock& describe) {
  JsonWriter json([&](std::string_view text) { session.write(text); });
  json.beginObject().member("schema", jsonSchema).key("files").beginArray();
  for (const std::string& name : inputs.files) {
    const Input input = openInput(session, inputs, name);
    json.beginObject().member("file", name);
    if (!input.file.error.empty()) {
      json.member("error", input.file.error).endObject();
      continue;
    }
    writeFile(json, input.file);
    json.key("blocks").beginArray();
    forEachBlock(input.image, selection, [&](const Velk::BlockView& block) {
      json.beginObject();
      writeBlockMembers(json, block);
      describe(json, session, input, block);
      json.endObject();
    });
    json.endArray();
    writeRegions(json, input.image);
    json.endObject();
  }
  json.endArray().endObject().finish();
}

void writeJsonSummary(Session& session, const Inputs& inputs, const BlockVisitor& visit) {
  writeJsonReport(
      session, inputs, {},
      [&](JsonWriter&, Session& part, const Input& input, const Velk::BlockView& block) { visit(part, input, block); });
}

void writeJsonLines(Session& session, const Inputs& inputs, const Selection& selection, const DescribeBlock& describe) {
  forEachInputInTurn(session, inputs, [&](Session& part, const Input& input) {
    JsonWriter json([&](std::string_view text) { part.write(text); }, JsonWriter::Layout::OneLine);
    const auto begin = [&]() -> JsonWriter& {
      return json.beginObject().member("schema", jsonSchema).member("file", input.name);
    };
    if (!input.file.error.empty()) {
      begin().member("error", input.file.error).endObject().finish();
      return;
    }
    forEachBlock(input.image, selection, [&](const Velk::BlockView& block) {
      begin();
      writeBlockMembers(json, block);
      describe(json, part, input, block);
      json.endObject().finish();
    });
  });
}

}  // namespace VelkTool
