#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "Session.h"
#include "velk/image/ImageFile.h"

namespace VelkTool {

/// Where a changed image goes: to another file, or over the one that was read, which may be kept beside it.
class Output {
 public:
  /// Whether this can be done with an image that is read from `input`, and a text from `text`; it is told and counted
  /// where it cannot.
  bool accepts(Session& session, const std::string& input, const std::string& text = {}) const;

  /// Writes the image in the container that it was read from, whole or not at all; then `report`, which says in lines
  /// what has changed: on standard error where the image takes standard output. A failure is told and counted.
  void write(Session& session, const std::string& input, const Velk::ImageFile& image, std::string_view report) const;

 private:
  friend std::shared_ptr<const Output> addOutput(CLI::App& command);

  std::string file_{};
  bool inPlace_ = false;
  bool backup_ = false;
};

/// Adds -o, --in-place and --backup to a subcommand, one of the first two being required.
std::shared_ptr<const Output> addOutput(CLI::App& command);

}  // namespace VelkTool
