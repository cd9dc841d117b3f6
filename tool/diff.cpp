#include "Commands.h"
#include "DataJson.h"
#include "FindingReport.h"
#include "Images.h"
#include "Inputs.h"
#include "JsonReport.h"
#include "ValueText.h"
#include "velk/data/BlockDiff.h"

namespace VelkTool {
namespace {

using Velk::BlockView;
using Velk::ComparedBlocks;
using Velk::Difference;
using Velk::FieldElement;
using Velk::ValueForm;

/// Writes the result of a comparison.
class DiffWriter {
 public:
  DiffWriter() = default;
  DiffWriter(const DiffWriter&) = delete;
  DiffWriter& operator=(const DiffWriter&) = delete;
  virtual ~DiffWriter() = default;

  virtual void lonely(const ComparedBlocks& pair) = 0;
  virtual void beginChanged(const ComparedBlocks& pair) = 0;
  virtual void difference(const ComparedBlocks& pair, const Difference& difference) = 0;
  virtual void endChanged() = 0;
  virtual void finish() = 0;
};

const BlockView& either(const ComparedBlocks& pair) { return pair.first != nullptr ? *pair.first : *pair.second; }

/// Returns "IDENT_2 (id 2)"; with " no. 2" for the second block with an id.
std::string title(const ComparedBlocks& pair) {
  const BlockView& block = either(pair);
  std::string text = Velk::blockName(block);
  if (block.kind != Velk::BlockKind::Stray) text += " (id " + std::to_string(block.id) + ')';
  if (pair.occurrence > 1) text += " no. " + std::to_string(pair.occurrence);
  return text;
}

class DiffText : public DiffWriter {
 public:
  explicit DiffText(Session& session) : session_(session) {}

  void lonely(const ComparedBlocks& pair) override {
    const BlockView& block = either(pair);
    session_.write(std::string(pair.first != nullptr ? "removed: " : "added: ") + title(pair) + ", " +
                   std::to_string(block.bytes.size()) + " bytes at offset " + offsetText(block.offset) + '\n');
  }
  void beginChanged(const ComparedBlocks& pair) override {
    session_.write(title(pair) + ":\n");
    if (pair.first->kind != pair.second->kind) {
      session_.write(std::string("  kind: ") + kindName(pair.first->kind) + " -> " + kindName(pair.second->kind) +
                     '\n');
    }
  }
  void difference(const ComparedBlocks& pair, const Difference& difference) override {
    session_.write("  " + difference.path.text() + ": " + sidesText(*pair.first, *pair.second, difference) + '\n');
  }
  void endChanged() override {}
  void finish() override {}

 private:
  Session& session_;
};

class DiffJson : public DiffWriter {
 public:
  DiffJson(Session& session, const Inputs& inputs) : json_([&session](std::string_view text) { session.write(text); }) {
    json_.beginObject().member("schema", jsonSchema);
    writeFileName(json_, "first", inputs.files[0]);
    writeFileName(json_, "second", inputs.files[1]);
    json_.key("differences").beginArray();
  }

  void lonely(const ComparedBlocks& pair) override {
    begin(pair, pair.first != nullptr ? "removed" : "added");
    json_.endObject();
  }
  void beginChanged(const ComparedBlocks& pair) override {
    begin(pair, "changed");
    json_.key("fields").beginArray();
  }
  void difference(const ComparedBlocks& pair, const Difference& difference) override {
    json_.beginObject().member("field", difference.path.text());
    value("first", pair.first, difference.first);
    value("second", pair.second, difference.second);
    const FieldElement& element = difference.first ? *difference.first : *difference.second;
    if (*element.field->unit != '\0') json_.member("unit", element.field->unit);
    json_.endObject();
  }
  void endChanged() override { json_.endArray().endObject(); }
  void finish() override { json_.endArray().endObject().finish(); }

 private:
  void begin(const ComparedBlocks& pair, const char* change) {
    const BlockView& block = either(pair);
    json_.beginObject().member("change", change).member("name", Velk::blockName(block));
    if (block.kind != Velk::BlockKind::Stray) json_.member("id", block.id);
    json_.member("occurrence", pair.occurrence);
    place("first", pair.first);
    place("second", pair.second);
  }
  void place(const char* name, const BlockView* block) {
    if (block == nullptr) return;
    json_.key(name).beginObject().member("offset", block->offset).member("size", block->bytes.size());
    json_.member("kind", kindName(block->kind)).member("verdict", verdictName(*block)).endObject();
  }
  void value(const char* name, const BlockView* block, const std::optional<FieldElement>& element) {
    if (!element) return;
    json_.key(name);
    writeDataValue(json_, block->bytes, *element, ValueForm::Presented);
  }

  JsonWriter json_;
};

std::vector<BlockView> blocksOf(Session& session, const Input& input) {
  std::vector<BlockView> blocks;
  for (const BlockView& block : input.image) {
    blocks.push_back(block);
    tellFindings(session, input.name, block);
  }
  return blocks;
}

/// Writes all differences; returns whether there are any.
bool compare(const std::vector<BlockView>& first, const std::vector<BlockView>& second, DiffWriter& writer) {
  bool differs = false;
  for (const ComparedBlocks& pair : Velk::pairBlocks(first, second)) {
    bool changed = false;
    if (pair.first == nullptr || pair.second == nullptr) {
      writer.lonely(pair);
      differs = true;
      continue;
    }
    Velk::compareBlocks(*pair.first, *pair.second, [&](const Difference& difference) {
      if (!changed) writer.beginChanged(pair);
      changed = true;
      writer.difference(pair, difference);
    });
    if (changed) writer.endChanged();
    differs = differs || changed;
  }
  return differs;
}

void runDiff(Session& session, const Inputs& inputs, bool asJson) {
  const Input first = openInput(session, inputs, inputs.files[0]);
  const Input second = openInput(session, inputs, inputs.files[1]);
  if (!first.file.error.empty() || !second.file.error.empty()) return;
  const std::vector<BlockView> firstBlocks = blocksOf(session, first);
  const std::vector<BlockView> secondBlocks = blocksOf(session, second);
  std::unique_ptr<DiffWriter> writer;
  if (asJson) {
    writer = std::make_unique<DiffJson>(session, inputs);
  } else {
    writer = std::make_unique<DiffText>(session);
  }
  if (compare(firstBlocks, secondBlocks, *writer)) session.worsen(Exit::Findings);
  writer->finish();
}

}  // namespace

void addDiff(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("diff", "Compare two images field by field");
  const auto inputs = addInputs(*command, 2);
  const auto json = addJson(*command);
  command->footer(
      "Blocks are matched by id and by order among those with the same id. The exit code is 1 if something differs.\n"
      "Damage is reported on standard error.\n\nExample:\n  velk diff before.bin after.bin");
  command->callback([&session, inputs, json] { runDiff(session, *inputs, *json); });
}

}  // namespace VelkTool
