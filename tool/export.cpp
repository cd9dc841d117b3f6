#include <filesystem>
#include <map>

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
#include "UnusedNames.h"

namespace VelkTool {
namespace {

using Velk::BlockView;

enum class Format { Json, JsonLines, Csv };

struct Export {
  Format format = Format::Json;
  bool stored = false;
  std::string folder{};
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

std::string existingFolder(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_directory(path, error) ? ""
                                                    : (path.empty() ? "\"\"" : path) + " is not an existing folder";
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
      const CsvTable csv(data, table, options_.stored);
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

}  // namespace

void addExport(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("export", "Export the fields and tables of blocks as JSON or CSV");
  const auto given = addRedactableInputs(*command);
  const auto selection = addSelection(*command);
  const auto options = std::make_shared<Export>();
  addChoice<Format>(
      *command, "--format", {{"json", Format::Json}, {"jsonl", Format::JsonLines}, {"csv", Format::Csv}},
      [options](Format chosen) { options->format = chosen; },
      "One JSON document (the default), one line of JSON per block, or one CSV table per block");
  command->add_flag("--stored", options->stored, "Also export the stored numbers of scaled values");
  command
      ->add_option("-o,--output", options->folder, "The folder for CSV files; a single table may go to standard output")
      ->check(CLI::Validator(existingFolder, ""))
      ->type_name("DIR");
  command->footer(
      "Lists, rows and columns that have a count end with the elements in use; those without one are exported whole.\n"
      "Damaged blocks are exported too, and reported on standard error.\n\n"
      "Examples:\n  velk export --format csv --id 15750 board.bin > attenuators.csv\n"
      "  velk export --format jsonl fleet > fleet.jsonl");
  command->callback([&session, given, selection, options] {
    if (!options->folder.empty() && options->format != Format::Csv) {
      throw CLI::ValidationError("--output", "applies to CSV only; JSON goes to standard output");
    }
    const Inputs inputs = withFilesOfFolders(session, *given);
    SearchedBlocks searched(*selection);
    if (options->format != Format::Csv) {
      writeJson(session, inputs, searched, *options);
    } else {
      CsvExporter(session, inputs, searched, *options).exportAll();
    }
    reportMissing(session, inputs, searched);
  });
}

}  // namespace VelkTool
