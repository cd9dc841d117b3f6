#include "JsonReport.h"

#include <algorithm>
#include <iterator>

#include "FindingReport.h"
#include "Utf8.h"
#include "velk/checks/FindingTable.h"
#include "velk/data/ModuleIdentity.h"

namespace VelkTool {
namespace {

/// Writes the members of a finding.
void writeFinding(JsonWriter& json, const Velk::CheckFinding& finding) {
  const bool isRemark = finding.kind->severity == Velk::Severity::Warning;
  json.member("finding", finding.kind->name).member("remark", isRemark).member("text", finding.text);
  json.member("code", finding.kind->code).member("severity", Velk::severityName(finding.severity));
  if (!finding.path.empty()) json.member("path", finding.path);
}

void writeFindings(JsonWriter& json, std::span<const Velk::CheckFinding> findings) {
  json.key("findings").beginArray();
  for (const Velk::CheckFinding& finding : findings) {
    json.beginObject();
    writeFinding(json, finding);
    json.endObject();
  }
  json.endArray();
}

void writeBlockMembers(JsonWriter& json, const Velk::ImageFile& file, const Velk::BlockView& block,
                       std::span<const Velk::CheckFinding> findings) {
  json.member("offset", block.offset).member("size", block.bytes.size());
  if (block.kind != Velk::BlockKind::Stray) {
    json.member("id", block.id).member("name", Velk::blockName(block)).member("declaredSize", block.declaredSize);
  }
  json.member("kind", Velk::kindName(block.kind)).member("verdict", Velk::verdictName(block));
  json.member("sound", block.isSound());
  if (block.kind != Velk::BlockKind::Stray) json.member("found", Velk::foundName(block.found));
  if (const std::uint64_t lost = Velk::lostBytes(file, block.offset, block.bytes.size()); lost > 0) {
    json.member("lost", lost);
  }
  writeFindings(json, findings);
}

/// Returns what is wrong with a file as a whole, and then what is odd about its image.
std::vector<Velk::CheckFinding> fileFindings(const Velk::ImageFile& file, std::vector<Velk::CheckFinding> ofImage) {
  std::vector<Velk::CheckFinding> findings;
  for (const Velk::FileFinding& finding : file.findings) {
    const Velk::FindingKind& kind = kindOf(finding);
    findings.push_back({.kind = &kind, .severity = kind.severity, .text = finding.describe()});
  }
  std::ranges::move(ofImage, std::back_inserter(findings));
  return findings;
}

/// Writes them with the block that each is about, if there is one.
void writeFileFindings(JsonWriter& json, std::span<const Velk::CheckFinding> findings) {
  if (findings.empty()) return;
  json.key("findings").beginArray();
  for (const Velk::CheckFinding& finding : findings) {
    json.beginObject();
    writeFinding(json, finding);
    if (finding.offset) json.member("offset", *finding.offset);
    json.endObject();
  }
  json.endArray();
}

void writeRanges(JsonWriter& json, const char* key, const std::vector<Velk::ImageRange>& ranges) {
  json.key(key).beginArray();
  for (const Velk::ImageRange& range : ranges) {
    json.beginObject().member("offset", range.offset).member("size", range.size).endObject();
  }
  json.endArray();
}

void writeFile(JsonWriter& json, const Velk::ImageFile& file) {
  json.member("format", Velk::kindOf(file.container).name).member("address", file.address);
  json.member("size", file.bytes.size());
  if (!file.findings.empty()) json.member("warning", file.findings.front().describe());
  writeRanges(json, "gaps", file.gaps);
  writeRanges(json, "lost", file.lost);
}

/// Begins a line about a file of a module.
void beginLine(JsonWriter& json, const std::string& name, const Velk::ModuleIdentity& module) {
  json.beginObject().member("schema", jsonSchema);
  writeFileName(json, "file", name);
  json.key("serial");
  module.serialNumber ? json.value(*module.serialNumber) : json.value(nullptr);
  json.key("module");
  module.serialNumber ? json.value(module.name) : json.value(nullptr);
}

/// Writes a line for a file without blocks, with the members of a line for a block.
void writeLineWithoutBlock(JsonWriter& json, const Velk::ImageFile& file, const std::string& name) {
  const bool isRead = file.error.empty();
  const Velk::FindingKind& kind = isRead ? Velk::noBlocksKind() : Velk::unreadableKind();
  const std::string text = !isRead                  ? file.error
                           : !file.findings.empty() ? file.findings.front().describe()
                                                    : "holds no block";
  beginLine(json, name, {});
  if (!isRead) json.member("error", file.error);
  json.member("offset", 0).member("size", file.bytes.size()).member("id", nullptr).member("name", nullptr);
  json.member("declaredSize", nullptr).member("kind", "none").member("verdict", kind.name).member("sound", false);
  const Velk::CheckFinding finding{.kind = &kind, .severity = kind.severity, .text = text};
  writeFindings(json, {&finding, 1});
  json.key("fields").beginObject().endObject().endObject().finish();
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

void writeFileName(JsonWriter& json, const std::string& key, const std::string& name) {
  json.member(key, name);
  if (!isUtf8(name)) json.member(key + "Bytes", QByteArray::fromStdString(name).toHex().toStdString());
}

std::shared_ptr<const bool> addJson(CLI::App& command) {
  auto json = std::make_shared<bool>(false);
  command.add_flag("--json", *json, "As JSON, for programs");
  return json;
}

Velk::CheckOptions plainChecks() { return {.enabled = Velk::walkChecks() | Velk::dataChecks()}; }

void writeJsonReport(Session& session, const Inputs& inputs, SearchedBlocks& searched,
                     const Velk::CheckOptions& options, const DescribeBlock& describe) {
  JsonWriter json([&](std::string_view text) { session.write(text); });
  json.beginObject().member("schema", jsonSchema).key("files").beginArray();
  for (const std::string& name : inputs.files) {
    const Input input = openInput(session, inputs, name);
    json.beginObject();
    writeFileName(json, "file", name);
    if (!input.file.error.empty()) {
      json.member("error", input.file.error).key("blocks").beginArray().endArray().endObject();
      continue;
    }
    writeFile(json, input.file);
    json.key("blocks").beginArray();
    Velk::ImageChecker checker(input.image, checksFor(input, options));
    searched.forEach(input.image, [&](const Velk::BlockView& block) {
      const std::vector<Velk::CheckFinding> findings = checker.check(block);
      countErrors(session, findings);
      json.beginObject();
      writeBlockMembers(json, input.file, block, findings);
      describe(json, session, input, block);
      json.endObject();
    });
    json.endArray();
    writeRegions(json, input.image);
    const std::vector<Velk::CheckFinding> findings = fileFindings(input.file, checker.finish());
    countErrors(session, findings);
    writeFileFindings(json, findings);
    json.endObject();
  }
  json.endArray().endObject().finish();
}

void writeJsonSummary(Session& session, const Inputs& inputs, const Velk::CheckOptions& options,
                      const BlockVisitor& visit) {
  SearchedBlocks all{Selection{}};
  writeJsonReport(session, inputs, all, options,
                  [&](JsonWriter&, Session& part, const Input& input, const Velk::BlockView& block) {
                    if (visit) visit(part, input, block);
                  });
}

void writeJsonLines(Session& session, const Inputs& inputs, SearchedBlocks& searched, const DescribeBlock& describe) {
  forEachInputInTurn(session, inputs, [&](Session& part, const Input& input) {
    JsonWriter json([&](std::string_view text) { part.write(text); }, JsonWriter::Layout::OneLine);
    const bool hasBlocks = input.file.error.empty() && input.image.begin() != input.image.end();
    if (!hasBlocks) return writeLineWithoutBlock(json, input.file, input.name);
    const Velk::ModuleIdentity module = identityOf(input.image);
    searched.forEach(input.image, [&](const Velk::BlockView& block) {
      beginLine(json, input.name, module);
      if (block.kind == Velk::BlockKind::Stray) {
        json.member("id", nullptr).member("name", nullptr).member("declaredSize", nullptr);
      }
      writeBlockMembers(json, input.file, block, checkBlock(block, plainChecks()));
      describe(json, part, input, block);
      json.endObject().finish();
    });
  });
}

}  // namespace VelkTool
