#include "ChosenBlock.h"
#include "Commands.h"
#include "Images.h"
#include "Numbers.h"
#include "Output.h"
#include "Plural.h"
#include "velk/bytes/ByteArray.h"
#include "velk/data/BlockSeal.h"
#include "velk/image/BlockPlacement.h"

namespace VelkTool {
namespace {

using Velk::BlockView;
using Velk::Placement;
using Velk::PlacementResult;

/// A change of which blocks an image has.
struct BlockChange {
  Placement placement;
  std::string report;  ///< a line
};

/// The image that a command takes blocks out of or puts blocks into.
class BlockEditor {
 public:
  BlockEditor(Session& session, const Inputs& inputs, const Output& output)
      : session_(session), inputs_(inputs), output_(output) {}

  /// Reads the image, makes the change, unless it returns nothing, and writes the result.
  template <class Change>
  void run(std::span<const std::string> others, Change change) {
    const std::string& name = inputs_.files.front();
    const std::optional<Destination> destination = output_.open(session_, name, others);
    if (!destination) return;
    Input input = openInput(session_, inputs_, name);
    if (!input.file.error.empty()) return;
    const std::optional<BlockChange> made = change(input);
    if (!made || !isDone(name, made->placement)) return;
    input.file.bytes = made->placement.image;
    destination->write(session_, input.file, made->report);
  }

 private:
  bool isDone(const std::string& name, const Placement& placement) {
    switch (placement.result) {
      case PlacementResult::Done:
        return true;
      case PlacementResult::Damaged:
        refuseChange(session_, name,
                     placeText(*placement.damaged) + ": " + Velk::verdictName(*placement.damaged) +
                         "; what follows it cannot be moved");
        return false;
      default:
        refuseChange(
            session_, name,
            "has no room: " + counted(placement.missing, "byte is", "bytes are") + " missing after the end block");
        return false;
    }
  }

  Session& session_;
  const Inputs& inputs_;
  const Output& output_;
};

std::string lineOf(const BlockView& block, const std::string& what) {
  return Velk::blockName(block) + ": " + counted(block.bytes.size(), "byte ", "bytes ") + what + '\n';
}

/// Returns the offset of the first end block, before which a block is put if nothing else is said.
std::optional<std::uint64_t> firstEnd(const Velk::MemoryImage& image) {
  for (const BlockView& block : image) {
    if (block.kind == Velk::BlockKind::End) return block.offset;
  }
  return std::nullopt;
}

/// Refuses to remove the end block, or to add one: it would hide the blocks after it.
std::nullopt_t refuseEnd(Session& session, const std::string& file, const BlockView& block, const std::string& done) {
  return refuseChange(session, file, placeText(block) + ": the end block cannot be " + done, Exit::Usage);
}

struct AddOptions {
  std::string from{};
  std::vector<Velk::BlockPattern> before{};
};

/// Returns where a block goes; nothing, reported, if that is nowhere.
std::optional<std::uint64_t> placeFor(Session& session, const Input& input,
                                      const std::vector<Velk::BlockPattern>& before) {
  if (!before.empty()) {
    const auto block = chooseBlock(session, input, {before, 0}, Unsound::Taken);
    return block ? std::optional(block->offset) : std::nullopt;
  }
  const auto end = firstEnd(input.image);
  if (!end) refuseChange(session, input.name, "has no end block, so no room");
  return end;
}

QByteArray bytesOf(const BlockView& block) {
  return {reinterpret_cast<const char*>(block.bytes.data()), static_cast<qsizetype>(block.bytes.size())};
}

std::optional<BlockChange> addBlock(Session& session, const Input& input, const BlockView& block,
                                    const QByteArray& bytes, const AddOptions& options) {
  const auto offset = placeFor(session, input, options.before);
  if (!offset) return std::nullopt;
  return BlockChange{insertBlock(input.image, *offset, bytes), lineOf(block, "added at offset " + offsetText(*offset))};
}

void runAdd(Session& session, const Inputs& inputs, const Selection& selection, const AddOptions& options,
            const Output& output) {
  BlockEditor(session, inputs, output).run({&options.from, 1}, [&](const Input& input) -> std::optional<BlockChange> {
    const Inputs sources{.files = {options.from}};
    const Input source = openInput(session, sources, options.from);
    if (!source.file.error.empty()) return std::nullopt;
    const auto block = chooseBlock(session, source, selection, Unsound::Refused);
    if (!block) return std::nullopt;
    if (block->kind == Velk::BlockKind::End) return refuseEnd(session, source.name, *block, "added");
    return addBlock(session, input, *block, bytesOf(*block), options);
  });
}

/// Returns why a block cannot have another id: its fields would mean something else.
std::string noSuchCopy(const BlockView& block, unsigned short id) {
  const Velk::CatalogueRow* const row = Velk::findCatalogueRow(id, block.declaredSize);
  if (row == block.row) return {};
  return placeText(block) + ": blocks of id " + std::to_string(id) + " have another layout";
}

void runCopy(Session& session, const Inputs& inputs, const Selection& selection, unsigned short id,
             const Output& output) {
  BlockEditor(session, inputs, output).run({}, [&](const Input& input) -> std::optional<BlockChange> {
    const auto block = chooseBlock(session, input, selection, Unsound::Refused);
    if (!block) return std::nullopt;
    if (const std::string refusal = noSuchCopy(*block, id); !refusal.empty()) {
      return refuseChange(session, input.name, refusal, Exit::Usage);
    }
    QByteArray bytes = bytesOf(*block);
    const Velk::MutableBytes changed = Velk::mutableBytesOf(bytes);
    Velk::detail::store(changed, offsetof(Velk::HwSDatablockHeader, id), id);
    Velk::sealBlock(changed, block->kind);
    BlockView copy = *block;
    copy.id = id;
    return addBlock(session, input, copy, bytes, {});
  });
}

void runRemove(Session& session, const Inputs& inputs, const Selection& selection, bool force, const Output& output) {
  BlockEditor(session, inputs, output).run({}, [&](const Input& input) -> std::optional<BlockChange> {
    const auto block = chooseBlock(session, input, selection, force ? Unsound::Taken : Unsound::NeedsForce);
    if (!block) return std::nullopt;
    if (block->kind == Velk::BlockKind::End) return refuseEnd(session, input.name, *block, "removed");
    return BlockChange{removeBlock(input.image, *block),
                       lineOf(*block, "removed at offset " + offsetText(block->offset))};
  });
}

constexpr const char* whatMoves =
    "The blocks after it move, and the end block with them; the memory keeps its size, and everything else its place.\n"
    "With --sector-size only the blocks of one sector move.\n\n";

}  // namespace

void addAdd(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("add", "Add a block of another image to an image");
  const auto inputs = addInputs(*command, 1);
  const auto selection = addBlockSelection(*command);
  const auto options = std::make_shared<AddOptions>();
  command->add_option("--from", options->from, "The image that has the block")->required()->type_name("IMAGE");
  const auto take = [options](const std::string& name) {
    std::string error;
    options->before = {*Velk::BlockPattern::parse(name, error)};
  };
  command
      ->add_option_function<std::string>("--before", take, "The block before which it goes; by default the end block")
      ->check(blockName())
      ->type_name("BLOCK");
  const auto output = addOutput(*command);
  command->footer(std::string("A block that is not sound is not added. ") + whatMoves +
                  "Example:\n  velk add module.bin --from older.bin --id SERVICE_200 -o changed.bin");
  command->callback(
      [&session, inputs, selection, options, output] { runAdd(session, *inputs, *selection, *options, *output); });
}

void addCopy(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("copy", "Copy a block of an image under another id");
  const auto inputs = addInputs(*command, 1);
  const auto selection = addBlockSelection(*command);
  const auto id = std::make_shared<unsigned short>();
  command->add_option("--as", *id, "The id of the copy, of the same class")
      ->required()
      ->transform(blockId())
      ->type_name("N");
  const auto output = addOutput(*command);
  command->footer(
      std::string("The copy is the last block, before the end block, which moves. Its checksums are updated.\n\n") +
      "Example:\n  velk copy module.bin --id SERVICE_200 --as 201 --in-place");
  command->callback([&session, inputs, selection, id, output] { runCopy(session, *inputs, *selection, *id, *output); });
}

void addRemove(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("remove", "Remove a block from an image");
  const auto inputs = addInputs(*command, 1);
  const auto selection = addBlockSelection(*command);
  const auto force = std::make_shared<bool>(false);
  command->add_flag("--force", *force, "Remove the block even if it is not sound");
  const auto output = addOutput(*command);
  command->footer(std::string(whatMoves) + "Example:\n  velk remove module.bin --id SERVICE_209 --in-place --backup");
  command->callback(
      [&session, inputs, selection, force, output] { runRemove(session, *inputs, *selection, *force, *output); });
}

}  // namespace VelkTool
