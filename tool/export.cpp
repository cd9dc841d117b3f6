#include <filesystem>
#include <map>
#include <optional>

#include "Choices.h"
#include "Commands.h"
#include "Csv.h"
#include "DataJson.h"
#include "Files.h"
#include "Folders.h"
#include "Images.h"
#include "JsonReport.h"
#include "Plural.h"
#include "Selection.h"
#include "Tidy.h"
#include "TidyFolder.h"
#include "TidyText.h"
#include "UnusedNames.h"

namespace VelkTool {
namespace {

using Velk::BlockView;

enum class Format { Json, JsonLines, Csv, Tidy, Table };

struct Export {
  Format format = Format::Json;
  bool stored = false;
  std::string folder{};
  std::optional<char> delimiter{};
  std::optional<char> decimal{};

  bool isSeparated() const { return format == Format::Csv || format == Format::Tidy; }
  CsvForm csvForm() const {
    const bool hasComma = decimal == ',';
    return {.delimiter = delimiter.value_or(hasComma ? ';' : ','), .decimal = hasComma ? ',' : '.'};
  }
};

void writeJson(Session& session, const Inputs& inputs, SearchedBlocks& searched, const Export& options) {
  const DescribeBlock describe = [&](JsonWriter& json, Session& part, const Input& input, const BlockView& block) {
    const Velk::BlockData data(block);
    json.key("fields");
    writeData(json, data, Velk::ValueForm::Presented);
    writeDataNotes(json, data, options.stored);
    reportBlock(part, inputs, input.name, block);
  };
  if (options.format == Format::JsonLines) return writeJsonLines(session, inputs, searched, describe);
  writeJsonReport(session, inputs, searched, plainChecks(), describe);
}

std::string possibleFolder(const std::string& path) {
  std::error_code error;
  const bool isOther = std::filesystem::exists(path, error) && !std::filesystem::is_directory(path, error);
  return !path.empty() && !isOther ? "" : (path.empty() ? "\"\"" : path) + " is not a folder";
}

/// Writes each table to a file of its own, or a single table to standard output.
class CsvExporter {
 public:
  CsvExporter(Session& session, const Inputs& inputs, SearchedBlocks& searched, const Export& options)
      : session_(session), inputs_(inputs), searched_(searched), options_(options) {}

  void exportAll() {
    forEachInput(session_, inputs_, [&](const Input& input) {
      if (options_.folder.empty() && !hasOneTable(input)) return;
      std::map<std::string, unsigned> seen;
      searched_.forEach(input.image, [&](const BlockView& block) {
        const unsigned occurrence = ++seen[Velk::blockName(block)];
        if (isWanted(block)) exportBlock(input, block, occurrence);
      });
    });
  }

 private:
  /// Skips the end block unless its id is requested.
  bool isWanted(const BlockView& block) const {
    return block.kind != Velk::BlockKind::End || !searched_.selection().patterns.empty();
  }

  bool hasOneTable(const Input& input) {
    std::size_t tables = 0;
    searched_.forEach(input.image, [&](const BlockView& block) {
      if (isWanted(block)) tables += CsvTable::count(Velk::BlockData(block));
    });
    if (tables == 1 && inputs_.files.size() == 1) return true;
    const char* const advice = inputs_.files.size() > 1
                                   ? "; use -o to name a folder for the tables of several files"
                                   : "; use -o to name a folder for them, or --id and --nth to choose a block";
    session_.complain(input.name, "has " + counted(tables, "table", "tables") + advice);
    session_.worsen(Exit::Usage);
    return false;
  }

  void exportBlock(const Input& input, const BlockView& block, unsigned occurrence) {
    const Velk::BlockData data(block);
    const std::size_t tables = CsvTable::count(data);
    for (std::size_t table = 0; table < tables; ++table) {
      const CsvTable csv(data, table, options_.stored, options_.csvForm());
      if (options_.folder.empty()) {
        csv.write([&](std::string_view text) { session_.write(text); });
      } else {
        std::string name = stem(input.name) + '.' + printable(Velk::blockName(block));
        if (occurrence > 1) name += '-' + std::to_string(occurrence);
        if (tables > 1) name += ".table" + std::to_string(table);
        QByteArray contents;
        csv.write([&](std::string_view text) { contents.append(text.data(), static_cast<qsizetype>(text.size())); });
        writeFile(session_, options_.folder + '/' + names_.take(name) + ".csv", contents);
      }
    }
    reportBlock(session_, inputs_, input.name, block);
  }

  /// Returns a file name without its folder and extension.
  static std::string stem(const std::string& path) {
    if (path == "-") return "stdin";
    const std::string name = path.substr(path.find_last_of('/') + 1);
    return name.substr(0, std::max<std::size_t>(name.find_last_of('.'), 1));
  }

  static std::string printable(std::string name) {
    for (char& c : name) {
      const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-';
      if (!plain) c = '_';
    }
    return name;
  }

  Session& session_;
  const Inputs& inputs_;
  SearchedBlocks& searched_;
  const Export& options_;
  UnusedNames names_;  ///< images in different folders may have the same name
};

void writeTidy(Session& session, const Inputs& inputs, SearchedBlocks& searched, const Export& options) {
  const TidyTable table(options.csvForm(), axisHeadings(searched.selection()));
  session.write(table.heading());
  forEachInputInTurn(session, inputs, [&](Session& part, const Input& input) {
    forEachTidyBlock(part, inputs, input, searched, [&](const TidyBlock& block) {
      table.write(block, [&](std::string_view text) { part.write(text); });
    });
  });
}

void writeTidyFolder(Session& session, const Inputs& inputs, SearchedBlocks& searched, const Export& options) {
  TidyFolder folder(session, options.folder, options.csvForm());
  forEachInput(session, inputs, [&](const Input& input) {
    forEachTidyBlock(session, inputs, input, searched, [&](const TidyBlock& block) { folder.add(block); });
  });
  folder.commit();
}

void writeTables(Session& session, const Inputs& inputs, SearchedBlocks& searched) {
  const std::size_t width = lineWidth();
  forEachInputInTurn(session, inputs, [&](Session& part, const Input& input) {
    forEachTidyBlock(part, inputs, input, searched,
                     [&](const TidyBlock& block) { part.write(tidyText(block, width)); });
  });
}

/// Replaces a delimiter by its name.
std::string nameDelimiter(std::string& text) {
  if (text == ",") text = "comma";
  if (text == ";") text = "semicolon";
  return {};
}

void refuseWrongOptions(const Export& options) {
  using CLI::ValidationError;
  if (!options.folder.empty() && !options.isSeparated()) {
    throw ValidationError("--output", "applies to csv and tidy only; other formats go to standard output");
  }
  if ((options.delimiter || options.decimal) && !options.isSeparated()) {
    throw ValidationError(options.delimiter ? "--delimiter" : "--decimal", "applies to csv and tidy only");
  }
  if (options.delimiter == ',' && options.decimal == ',') {
    throw ValidationError(
        "--delimiter", "a comma cannot be the decimal sign, too; without --delimiter, semicolons separate the values");
  }
  if (options.stored && (options.format == Format::Tidy || options.format == Format::Table)) {
    throw ValidationError("--stored", "applies to json, jsonl and csv only");
  }
}

void exportBlocks(Session& session, const Inputs& given, const Selection& selection, const Export& options) {
  refuseWrongOptions(options);
  if (!options.folder.empty() && !makeFolder(session, options.folder)) return;
  const Inputs inputs = withFilesOfFolders(session, given);
  SearchedBlocks searched(selection);
  switch (options.format) {
    case Format::Csv:
      CsvExporter(session, inputs, searched, options).exportAll();
      break;
    case Format::Tidy:
      options.folder.empty() ? writeTidy(session, inputs, searched, options)
                             : writeTidyFolder(session, inputs, searched, options);
      break;
    case Format::Table:
      writeTables(session, inputs, searched);
      break;
    default:
      writeJson(session, inputs, searched, options);
  }
  reportMissing(session, inputs, searched);
}

}  // namespace

void addExport(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("export", "Export the fields and tables of blocks as JSON or tables");
  const auto given = addRedactableInputs(*command);
  const auto selection = addSelection(*command);
  const auto options = std::make_shared<Export>();
  addChoice<Format>(
      *command, "--format",
      {{"json", Format::Json},
       {"jsonl", Format::JsonLines},
       {"csv", Format::Csv},
       {"tidy", Format::Tidy},
       {"table", Format::Table}},
      [options](Format chosen) { options->format = chosen; },
      "One JSON document (the default), one line of JSON per block, one CSV table per block, one CSV table with a line "
      "per value, or tables to read");
  command->add_flag("--stored", options->stored, "Also export the stored numbers of scaled values");
  addChoice<char>(
      *command, "--delimiter", {{"comma", ','}, {"semicolon", ';'}, {"tab", '\t'}},
      [options](char chosen) { options->delimiter = chosen; },
      "What separates the values of csv and tidy; may also be given as , or ;")
      ->transform(CLI::Validator(nameDelimiter, ""));
  addChoice<char>(
      *command, "--decimal", {{"point", '.'}, {"comma", ','}}, [options](char chosen) { options->decimal = chosen; },
      "The decimal sign of csv and tidy; with comma, a semicolon separates the values");
  command
      ->add_option("-o,--output", options->folder,
                   "The folder for the files of csv (one per table) or tidy (one per class), made if missing")
      ->check(CLI::Validator(possibleFolder, ""))
      ->type_name("DIR");
  command->footer(
      "Lists, rows and columns that have a count end with the elements in use; those without one are exported whole.\n"
      "Damaged blocks are exported too, and reported on standard error.\n\n"
      "tidy writes a line for each value: its module, block, field, row and column, the points that it lies over, "
      "such\n"
      "as its frequency, and the value in its unit. The columns depend only on --id. table shows the same values for\n"
      "reading. Both leave out bytes of unknown meaning.\n\n"
      "Examples:\n  velk export --format tidy --id '*_COMP_AMP' fleet > corrections.csv\n"
      "  velk export --format table --id 13600 board.bin\n"
      "  velk export --format csv --id 15750 board.bin > attenuators.csv\n"
      "  velk export --format jsonl fleet > fleet.jsonl");
  command->callback([&session, given, selection, options] { exportBlocks(session, *given, *selection, *options); });
}

}  // namespace VelkTool
