#include <memory>

#include "Commands.h"
#include "Numbers.h"
#include "TableCommands.h"

namespace VelkTool {
namespace {

void addTableExport(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("export", "Write a table of a memory image as text");
  const auto inputs = addInputs(*command, 1);
  const auto selection = addBlockSelection(*command);
  const auto out = std::make_shared<std::string>();
  command->add_option("-o,--output", *out, "The file to write instead of standard output")
      ->check(CLI::Validator([](const std::string& name) { return name.empty() ? "the file name is empty" : ""; }, ""))
      ->type_name("TEXT");
  command->footer("Example:\n  velk table export rf_board.bin --id 15799 -o registers.txt");
  command->callback([&session, inputs, selection, out] { exportTable(session, *inputs, *selection, *out); });
}

void addTableImport(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("import", "Import the tables of a text into a memory image");
  const auto options = std::make_shared<TableImport>();
  const auto inputs = addInputs(*command, 1);
  command->add_option("TEXT", options->text, "Text of one or more tables; - is standard input")->required();
  command->add_option("--id", options->id, "Read the text as the table with this id only")
      ->transform(blockId())
      ->type_name("N");
  command->add_flag("--force", options->force, "Write what could be read from a faulty text");
  command->add_flag("--append", options->append, "Add a table that is missing in the image after its last block");
  const auto output = addOutput(*command);
  command->footer(
      "A table replaces the first block with its id. All other bytes stay. Errors in the text are reported, and "
      "nothing\n"
      "is written.\n\n"
      "Examples:\n  velk table import rf_board.bin registers.txt -o changed.bin\n"
      "  velk table import rf_board.bin registers.txt --in-place --backup");
  command->callback([&session, inputs, options, output] { importTable(session, *inputs, *options, *output); });
}

}  // namespace

void addTable(CLI::App& app, Session& session) {
  CLI::App* const command =
      app.add_subcommand("table", "Export calibration tables as editable text, and import them again");
  command->require_subcommand(1);
  addTableExport(*command, session);
  addTableImport(*command, session);
  command->footer(
      "Tables with a text form: RFBO_ATTREG_DATA (15750), BLOCK_LORN_RFBO_ATT_CAL_FREQ (15760),\n"
      "BLOCK_LORN_RFBO_TEMP_COMP_FREQ (15770), BLOCK_LORN_RFBO_TEMP_COMP_DATA (15771),\n"
      "LORN_RFBO_ATTREG_ATTENUATION (15798), LORN_RFBO_ATTREG_DATA (15799).\n"
      "\"velk table export --help\" and \"velk table import --help\" show examples.");
}

}  // namespace VelkTool
