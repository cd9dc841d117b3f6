#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "Session.h"
#include "velk/files/FileLock.h"
#include "velk/files/FileTarget.h"
#include "velk/image/ImageFile.h"

namespace VelkTool {

/// Where the changed image of one run goes. A file that is changed in place is locked from before it is read until it
/// is written, so that of two changes at once none is lost.
class Destination {
 public:
  /// Writes the image in the container that it was read from, whole or not at all, and `report`, which says in lines
  /// what has changed: on standard error where the image goes to a stream. A failure is reported and counted.
  void write(Session& session, const Velk::ImageFile& image, std::string_view report) const;

 private:
  friend class Output;
  Destination(std::string input, std::string name) : input_(std::move(input)), name_(std::move(name)) {}

  bool locate(Session& session);
  bool lock(Session& session);
  bool keepBackup(Session& session) const;

  std::string input_;
  std::string name_;
  Velk::FileTarget target_{};
  std::optional<Velk::FileTarget> backup_{};
  Velk::FileLock lock_{};
};

/// The options that say where a changed image goes: to another file, or over the one that was read, which may be kept
/// beside it.
class Output {
 public:
  /// The destination of an image that is read from `input`, changed by what `others` say. To be opened before any of
  /// them is read, none of which is written over; what cannot be done is reported and counted.
  std::optional<Destination> open(Session& session, const std::string& input,
                                  std::span<const std::string> others = {}) const;

 private:
  friend std::shared_ptr<const Output> addOutput(CLI::App& command);
  friend std::shared_ptr<const Output> addOutputFile(CLI::App& command);
  bool accepts(Session& session, const Destination& destination) const;
  bool openBackup(Session& session, Destination& destination) const;

  std::string file_{};
  bool inPlace_ = false;
  bool backup_ = false;
};

/// Adds -o, --in-place and --backup to a subcommand, one of the first two being required.
std::shared_ptr<const Output> addOutput(CLI::App& command);

/// Adds -o, which is required, to a subcommand that never changes its input.
std::shared_ptr<const Output> addOutputFile(CLI::App& command);

}  // namespace VelkTool
