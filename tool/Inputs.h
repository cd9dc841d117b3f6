#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Session.h"
#include "velk/containers/ImageFile.h"
#include "velk/image/MemoryImage.h"

namespace VelkTool {

/// The files that a subcommand reads and the options for reading them, common to all subcommands that read images.
struct Inputs {
  std::vector<std::string> files{};
  std::optional<Velk::Container> container{};  ///< nothing: detected from the contents
  std::uint64_t offset = 0;
  std::uint64_t sectorSize = 0;                     ///< or Velk::automaticSectorSize
  bool redacted = false;                            ///< redact the images after reading, as `velk redact` does
  std::vector<std::string> globs{};                 ///< for the names of files in folders; none: every file
  std::map<std::string, std::string> unreadable{};  ///< folders among the files, with the reason
  bool hasFolders = false;                          ///< some of the files were found in folders
  bool showsProgress = true;

  /// Returns whether a report has to say which file it is about.
  bool namesFiles() const { return files.size() > 1 || hasFolders; }
};

/// Adds the FILE arguments (`count` of them, or any number with 0) and their options to a subcommand. The values are
/// set when its callback runs.
std::shared_ptr<const Inputs> addInputs(CLI::App& command, int count = 0);

/// Adds one FILE argument and --input to a subcommand that does not look for blocks.
std::shared_ptr<const Inputs> addPlainInput(CLI::App& command);

/// Adds the same as addInputs, and the options for folders, which withFilesOfFolders replaces by their files.
std::shared_ptr<const Inputs> addFolderInputs(CLI::App& command, int count = 0);

/// Adds the same as addFolderInputs and --redact.
std::shared_ptr<const Inputs> addRedactableInputs(CLI::App& command);

/// One file of a run, and its image if it could be read.
struct Input {
  std::string name;
  Velk::ImageFile file;
  Velk::MemoryImage image;
  std::uint64_t hidden = 0;  ///< number of bytes zeroed by redaction because their meaning is unknown
  std::size_t number = 0;    ///< its index among the files of a run in turn
};

/// Visits a block of an input and reports to `session`.
using BlockVisitor = std::function<void(Session& session, const Input& input, const Velk::BlockView& block)>;

/// Reads one file. Reports errors, doubts and gaps on standard error, and counts all but gaps. Counts the
/// file as read.
Input openInput(Session& session, const Inputs& inputs, const std::string& name);

/// Reports on a block that is shown, on standard error: its findings, which count if it is not sound, doubts about its
/// data, and after redaction the bytes that were left, which count.
void reportBlock(Session& session, const Inputs& inputs, const std::string& file, const Velk::BlockView& block);

/// Calls `act`; if memory runs out, reports it for this file and lets the run continue.
void unlessOutOfMemory(Session& session, const std::string& name, const std::function<void()>& act);

/// Calls `act` with every readable input, in order.
void forEachInput(Session& session, const Inputs& inputs, const std::function<void(const Input& input)>& act);

/// Calls `act` with every input, readable or not, on several threads at once. Output appears in the order of the
/// inputs.
void forEachInputInTurn(Session& session, const Inputs& inputs,
                        const std::function<void(Session& part, const Input& input)>& act);

}  // namespace VelkTool
