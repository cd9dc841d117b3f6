#pragma once

#include <mutex>
#include <set>

#include "Inputs.h"

namespace VelkTool {

/// The options that select blocks of each image; all, unless ids are given.
struct Selection {
  std::vector<int> ids{};
  unsigned occurrence = 0;  ///< counted from 1 among the blocks with the same id; 0: all

  bool isEverything() const { return ids.empty() && occurrence == 0; }
};

/// Adds --id and --nth to a subcommand. The values are set when its callback runs.
std::shared_ptr<const Selection> addSelection(CLI::App& command);

/// Adds the same options to a subcommand for a single block; --id is required.
std::shared_ptr<const Selection> addBlockSelection(CLI::App& command);

/// Calls `act` with every selected block, in image order.
void forEachBlock(const Velk::MemoryImage& image, const Selection& selection,
                  const std::function<void(const Velk::BlockView& block)>& act);

/// Records what a selection finds in the images of a run. Threads may share it.
class SearchedBlocks {
 public:
  explicit SearchedBlocks(Selection selection) : selection_(std::move(selection)) {}

  const Selection& selection() const { return selection_; }
  /// Calls `act` with every selected block, in image order, and records their ids.
  void forEach(const Velk::MemoryImage& image, const std::function<void(const Velk::BlockView& block)>& act);
  /// Returns the requested ids that no image has; empty if no image was searched.
  std::set<int> missing() const;
  /// Returns whether images were searched and no block was selected.
  bool isInVain() const;

 private:
  Selection selection_;
  mutable std::mutex mutex_;
  std::set<int> found_;
  bool searched_ = false;
};

/// Returns "has no block of id 77", or with an occurrence "has no block no. 2 of id 77".
std::string noSuchBlock(int id, unsigned occurrence = 0);

/// Reports and counts the requested blocks that no image has.
void reportMissing(Session& session, const Inputs& inputs, const SearchedBlocks& searched);

}  // namespace VelkTool
