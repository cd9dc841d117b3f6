#include "Commands.h"
#include "FindingReport.h"
#include "Images.h"
#include "Inputs.h"
#include "Numbers.h"
#include "Selection.h"
#include "velk/bytes/HexText.h"
#include "velk/data/DataLookup.h"
#include "velk/data/WrittenForm.h"
#include "velk/fields/Notation.h"

namespace VelkTool {
namespace {

using Velk::BlockView;
using Velk::FieldElement;

struct Query {
  std::vector<std::string> paths{};
  unsigned occurrence = 0;
  bool stored = false;
};

/// Splits "IDENT_2.SN" at its first point.
std::pair<std::string, std::string> splitPath(const std::string& path) {
  const std::size_t point = std::min(path.find('.'), path.size());
  return {path.substr(0, point), path.substr(std::min(point + 1, path.size()))};
}

CLI::Validator pathToValue() {
  return {[check = blockName()](std::string& path) { return check(splitPath(path).first); }, ""};
}

/// Escapes the control bytes of a value, which could otherwise take several lines.
std::string oneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    byte < ' ' ? void(line.append("\\x").append(Velk::detail::hexText(byte, 2).substr(2))) : line.push_back(c);
  }
  return line + '\n';
}

/// Writes the values of one input.
class ValueWriter {
 public:
  ValueWriter(Session& session, const Inputs& inputs, const Input& input, const Query& query)
      : session_(session), inputs_(inputs), input_(input), query_(query) {}

  void write(const std::string& path) {
    const std::pair<std::string, std::string> parts = splitPath(path);
    std::string error;
    const Selection selection{{*Velk::BlockPattern::parse(parts.first, error)}, query_.occurrence};
    bool isThere = false;
    forEachBlock(input_.image, selection, [&](const BlockView& block) {
      writeOf(block, parts.second);
      isThere = true;
    });
    if (!isThere) miss(noSuchBlock(selection.patterns.front(), query_.occurrence));
  }

 private:
  void writeOf(const BlockView& block, const std::string& path) {
    const Velk::BlockData data(block);
    const auto place = query_.stored ? std::nullopt : Velk::findPlace(data.root(), path).value;
    const auto written = place ? Velk::writtenForm(data, *place) : std::nullopt;
    if (written) {
      session_.write(oneLine(*written));
    } else {
      const std::string complaint = Velk::forEachFound(
          data.root(), path,
          [&](const Velk::DataPath& here, const FieldElement& element) { writeValue(block, here, element); });
      if (!complaint.empty()) miss(placeText(block) + ": " + complaint);
    }
    reportBlock(session_, inputs_, input_.name, block);
  }

  void writeValue(const BlockView& block, const Velk::DataPath& path, const FieldElement& element) {
    if (!element.isInside(block.bytes.size())) {
      return miss(placeText(block) + ": " + path.text() + ": the block ends before it");
    }
    session_.write(oneLine(query_.stored ? fieldText(block.bytes, element, Velk::ValueForm::Stored)
                                         : writtenText(block.bytes, element)));
  }

  void miss(const std::string& what) {
    session_.complain(input_.name, what);
    session_.worsen(Exit::Findings);
  }

  Session& session_;
  const Inputs& inputs_;
  const Input& input_;
  const Query& query_;
};

}  // namespace

void addGet(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("get", "Values of a memory image, one per line, for scripts");
  const auto inputs = addInputs(*command, 1);
  const auto query = std::make_shared<Query>();
  command
      ->add_option("PATH", query->paths,
                   "A block and the path of a value in it, such as IDENT_2.SN or 13600.values[0:5]")
      ->required()
      ->check(pathToValue());
  command->add_option("--nth", query->occurrence, "Only the K-th block of those with the same id, from 1")
      ->transform(plainNumber(1, 65536))
      ->type_name("K");
  command->add_flag("--stored", query->stored, "Stored numbers, not the ones that export or print shows");
  command->footer(
      "The block is an id, a name, a class or a pattern of names. Names of values are those that export or print "
      "shows;\n"
      "lists and records give all their values. Texts have their control bytes as \\xNN. The exit code is 1 if a "
      "value\n"
      "is not there or its block is not sound.\n\n"
      "Examples:\n  velk get module.bin IDENT_2.SN IDENT_2.PARTNUMBER\n"
      "  velk get module.bin 'DACB_FREQUENCY_COMP_AMP.values[0:5]'");
  command->callback([&session, inputs, query] {
    forEachInput(session, *inputs, [&](const Input& input) {
      ValueWriter writer(session, *inputs, input, *query);
      for (const std::string& path : query->paths) writer.write(path);
    });
  });
}

}  // namespace VelkTool
