#pragma once

#include <mutex>
#include <set>

#include "Inputs.h"

namespace VelkTool {

/// Selects the blocks of each image; all, unless ids are given. Threads may share it.
struct Selection {
  std::vector<int> ids{};
  unsigned occurrence = 0;  ///< counted from 1 among the blocks with the same id; 0: all

  bool isEverything() const { return ids.empty() && occurrence == 0; }
  /// Records that an image was searched, and the ids of the selected blocks in it.
  void noteFound(const std::set<int>& found) const;
  /// Returns the requested ids that no image has; empty if no image was searched.
  std::set<int> missing() const;
  /// Returns whether images were searched and no block was selected.
  bool isInVain() const;

 private:
  mutable std::mutex mutex_;
  mutable std::set<int> found_;
  mutable bool searched_ = false;
};

/// Adds --id and --nth to a subcommand. The values are set when its callback runs.
std::shared_ptr<const Selection> addSelection(CLI::App& command);

/// Adds the same options to a subcommand for a single block; --id is required.
std::shared_ptr<const Selection> addBlockSelection(CLI::App& command);

/// Calls `act` with every selected block, in image order.
void forEachBlock(const Velk::MemoryImage& image, const Selection& selection,
                  const std::function<void(const Velk::BlockView& block)>& act);

/// Returns "has no block of id 77", or with an occurrence "has no block no. 2 of id 77".
std::string noSuchBlock(int id, unsigned occurrence = 0);

/// Reports and counts the requested blocks that no image has.
void reportMissing(Session& session, const Inputs& inputs, const Selection& selection);

}  // namespace VelkTool
