#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Session.h"
#include "velk/image/ImageFile.h"
#include "velk/image/MemoryImage.h"

namespace VelkTool {

/// Which files a subcommand reads, and how: the same arguments and options for every subcommand that reads images.
struct Inputs {
  std::vector<std::string> files{};
  std::optional<Velk::ImageFormat> format{};  ///< nothing: told by the contents
  std::uint64_t offset = 0;
  std::uint64_t sectorSize = 0;  ///< or Velk::automaticSectorSize
  bool redacted = false;         ///< as if `velk redact` had gone over them
};

/// Adds the FILE arguments, `count` of them or any number with 0, and the options about them to a subcommand; the
/// values are there when its callback runs.
std::shared_ptr<const Inputs> addInputs(CLI::App& command, int count = 0);

/// Adds the same with --redact.
std::shared_ptr<const Inputs> addRedactableInputs(CLI::App& command);

/// One file of a run, and its image where it could be read.
struct Input {
  std::string name;
  Velk::ImageFile file;
  Velk::MemoryImage image;
  std::uint64_t hidden = 0;  ///< bytes that redaction made zeros, since nothing says what they are
};

/// Looks at a block of an input; what there is to say of it belongs to `session`.
using BlockVisitor = std::function<void(Session& session, const Input& input, const Velk::BlockView& block)>;

/// Reads one file. Why it cannot be read, doubts about it and its gaps are told on standard error; all but gaps count.
Input openInput(Session& session, const Inputs& inputs, const std::string& name);

/// What there is to say of a block that is shown, on standard error: its findings, which count where it is not sound,
/// doubts about its data, and of a redacted one what had to be left, which counts.
void tellOf(Session& session, const Inputs& inputs, const std::string& file, const Velk::BlockView& block);

/// Hands on every input that can be read, in order.
void forEachInput(Session& session, const Inputs& inputs, const std::function<void(const Input& input)>& act);

/// Hands on every input, read or not, on several threads at once; what is said of them comes out in their order.
void forEachInputInTurn(Session& session, const Inputs& inputs,
                        const std::function<void(Session& part, const Input& input)>& act);

}  // namespace VelkTool
