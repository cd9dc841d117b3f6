#pragma once

#include <mutex>
#include <set>

#include "Inputs.h"

namespace VelkTool {

/// Which blocks of each image a run is about: all, unless ids are given. Threads may share it.
struct Selection {
  std::vector<int> ids{};
  unsigned occurrence = 0;  ///< counted from 1 among the blocks of an id; 0: each

  bool isEverything() const { return ids.empty() && occurrence == 0; }
  /// Remembers that an image was looked through, and which ids of selected blocks it has.
  void noteFound(const std::set<int>& found) const;
  /// The ids that were asked for and are in none of the images; none without an image.
  std::set<int> missing() const;
  /// Whether there were images, and no block of theirs was selected.
  bool isInVain() const;

 private:
  mutable std::mutex mutex_;
  mutable std::set<int> found_;
  mutable bool searched_ = false;
};

/// Adds --id and --nth to a subcommand; the values are there when its callback runs.
std::shared_ptr<const Selection> addSelection(CLI::App& command);

/// The same for a subcommand that is about one block, whose id has to be given.
std::shared_ptr<const Selection> addBlockSelection(CLI::App& command);

/// Calls `act` with every selected block, in the order of the image.
void forEachBlock(const Velk::MemoryImage& image, const Selection& selection,
                  const std::function<void(const Velk::BlockView& block)>& act);

/// "has no block of id 77", and with an occurrence "has no block no. 2 of id 77".
std::string noSuchBlock(int id, unsigned occurrence = 0);

/// Tells which blocks were asked for that no image has, and counts it.
void tellMissing(Session& session, const Inputs& inputs, const Selection& selection);

}  // namespace VelkTool
