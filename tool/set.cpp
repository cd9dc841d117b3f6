#include "ChosenBlock.h"
#include "Commands.h"
#include "Images.h"
#include "Output.h"
#include "ValueText.h"
#include "velk/bytes/ByteArray.h"
#include "velk/data/BlockSeal.h"
#include "velk/data/DataLookup.h"
#include "velk/data/ValueEdit.h"
#include "velk/data/WrittenForm.h"
#include "velk/fields/Notation.h"
#include "velk/fields/Quantity.h"

namespace VelkTool {
namespace {

using Velk::BlockView;
using Velk::ValueForm;

struct Edit {
  std::vector<std::string> assignments{};
  bool stored = false;
  bool force = false;
};

class Editor {
 public:
  Editor(Session& session, const Inputs& inputs, const Selection& selection, const Edit& edit, const Output& output)
      : session_(session), inputs_(inputs), selection_(selection), edit_(edit), output_(output) {}

  void run() {
    const std::string& name = inputs_.files.front();
    const std::optional<Destination> destination = output_.open(session_, name);
    if (!destination) return;
    Input input = openInput(session_, inputs_, name);
    if (!input.file.error.empty()) return;
    const std::optional<BlockView> block =
        chooseBlock(session_, input, selection_, edit_.force ? Unsound::Taken : Unsound::NeedsForce);
    if (!block) return;
    const std::optional<std::string> changes = edit(input, *block);
    if (changes) destination->write(session_, input.file, *changes);
  }

 private:
  /// Sets the values. Returns a line for each change, or nothing if one of them cannot be set.
  std::optional<std::string> edit(Input& input, const BlockView& found) {
    QByteArray changed = input.file.bytes;  // the file keeps its bytes until all values are set
    const Velk::MutableBytes bytes = Velk::mutableBytesOf(changed).subspan(found.offset, found.bytes.size());
    BlockView block = found;
    block.bytes = bytes;
    const ValueForm form = edit_.stored ? ValueForm::Stored : ValueForm::Presented;
    std::string changes;
    for (const std::string& assignment : edit_.assignments) {
      const std::size_t equals = assignment.find('=');
      const std::string path = assignment.substr(0, equals);
      const Shown before = show(block, path, form);
      const std::string refusal =
          equals == assignment.npos
              ? "\"" + assignment + "\" is not of the form name=value"
              : Velk::setValue(bytes, block, path, std::string_view(assignment).substr(equals + 1), form);
      if (!refusal.empty()) {
        return refuseChange(session_, input.name, placeText(block) + ": " + refusal, Exit::Usage);
      }
      changes += Velk::blockName(block) + ' ' + changeText(before, show(block, path, form)) + '\n';
    }
    Velk::sealBlock(bytes, block.kind);
    input.file.bytes = std::move(changed);
    return changes;
  }

  /// A value as people write it, and as export shows it if that differs.
  struct Shown {
    std::string path{};
    std::string text{};
    std::string exported{};
  };

  static Shown show(const BlockView& block, std::string_view path, ValueForm form) {
    const Velk::BlockData data(block, Velk::Extent::Capacity);
    const Velk::DataLookup place = Velk::findPlace(data.root(), path);
    if (!place.value) return {};
    if (place.value->kind() != Velk::DataNode::Kind::Value) {
      const Velk::BlockData inUse(block);
      const auto address = Velk::writtenForm(inUse, *Velk::findPlace(inUse.root(), path).value);
      return {place.path, address.value_or("")};
    }
    const Velk::FieldElement& element = place.value->element();
    const bool isBoth = form == ValueForm::Presented && (element.field->notation != Velk::Notation::Plain ||
                                                         Velk::quantityOf(*element.field).isOfSteps());
    return {place.path, valueText(block.bytes, element, form), isBoth ? fieldText(block.bytes, element, form) : ""};
  }

  static std::string changeText(const Shown& before, const Shown& after) {
    std::string text = after.path + ": " + before.text + " -> " + after.text;
    if (!after.exported.empty()) text += " (" + before.exported + " -> " + after.exported + ')';
    return text;
  }

  Session& session_;
  const Inputs& inputs_;
  const Selection& selection_;
  const Edit& edit_;
  const Output& output_;
};

}  // namespace

void addSet(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("set", "Set fields of a block by name and update its checksums");
  const auto inputs = addInputs(*command, 1);
  const auto selection = addBlockSelection(*command);
  const auto edit = std::make_shared<Edit>();
  command->add_option("NAME=VALUE", edit->assignments, "An assignment, such as serialNumber=123456 or values[3]=-17")
      ->required();
  command->add_flag("--stored", edit->stored, "Values are stored numbers, not the scaled ones that export shows");
  command->add_flag("--force", edit->force, "Change the block even if it is not sound");
  const auto output = addOutput(*command);
  command->footer(
      "Names are those that export or print shows; indices count from 0. A value is written as export shows it, as "
      "print\n"
      "shows it (1141.1000.02, 13.00), or in its unit (0.26dB); a change shows both. Either all values are set or "
      "none.\n\n"
      "Examples:\n  velk set module.bin --id IDENT_2 SN=123456 productDate=2017-03-15 -o changed.bin\n"
      "  velk set module.bin --id 2 name=\"RF board\" --in-place --backup");
  command->callback(
      [&session, inputs, selection, edit, output] { Editor(session, *inputs, *selection, *edit, *output).run(); });
}

}  // namespace VelkTool
