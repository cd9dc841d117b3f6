#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "Session.h"
#include "velk/containers/ImageFile.h"
#include "velk/files/FileLock.h"
#include "velk/files/FileTarget.h"

namespace VelkTool {

/// The destination of the changed image. A file that is changed in place stays locked from before it is read until it
/// is written, so that concurrent changes are not lost.
class Destination {
 public:
  /// Writes the image, as a whole or not at all, and `report`, the lines that describe the changes; these go to
  /// standard error if the image goes to a stream. The container is the one that was asked for, or that it was read in;
  /// if that cannot be written, the one that the name of the file says. Reports and counts a failure.
  void write(Session& session, Velk::ImageFile image, std::string_view report) const;

 private:
  friend class Output;
  Destination(std::string input, std::string name) : input_(std::move(input)), name_(std::move(name)) {}

  bool locate(Session& session);
  bool lock(Session& session);
  bool keepBackup(Session& session) const;
  bool chooseContainer(Session& session, Velk::ImageFile& image) const;

  std::string input_;
  std::string name_;
  Velk::FileTarget target_{};
  std::optional<Velk::FileTarget> backup_{};
  Velk::FileLock lock_{};
  std::optional<Velk::Container> container_{};
};

/// The options for the destination of a changed image: another file, or the input itself, optionally with a backup.
class Output {
 public:
  /// Opens the destination of an image that is read from `input` and changed according to the files `others`. Call it
  /// before reading any of them. Refuses to overwrite one of them. Reports and counts a failure.
  std::optional<Destination> open(Session& session, const std::string& input,
                                  std::span<const std::string> others = {}) const;

  /// Returns the folder that -o names if the input is a folder; empty if there is none.
  std::string folder() const { return file_ == "-" ? "" : file_; }
  /// Returns the same options for another file in place of that of -o.
  Output to(const std::string& file) const;

 private:
  friend std::shared_ptr<const Output> addOutput(CLI::App& command);
  friend std::shared_ptr<const Output> addOutputFile(CLI::App& command);
  friend std::shared_ptr<const Output> addConvertedOutput(CLI::App& command);
  bool accepts(Session& session, const Destination& destination) const;
  bool openBackup(Session& session, Destination& destination) const;

  std::string file_{};
  std::optional<Velk::Container> container_{};
  bool inPlace_ = false;
  bool backup_ = false;
  bool followsName_ = false;  ///< the name of the file says the container unless --container does
};

/// Adds -o, --in-place and --backup to a subcommand; one of the first two is required.
std::shared_ptr<const Output> addOutput(CLI::App& command);

/// Adds a required -o to a subcommand that never changes its input.
std::shared_ptr<const Output> addOutputFile(CLI::App& command);

/// Adds the same for a subcommand that writes the container that the name of the file says.
std::shared_ptr<const Output> addConvertedOutput(CLI::App& command);

}  // namespace VelkTool
