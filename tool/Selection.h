#pragma once

#include <mutex>
#include <set>

#include "Inputs.h"
#include "velk/data/BlockPattern.h"

namespace VelkTool {

/// The options that select blocks of each image; all, unless patterns are given.
struct Selection {
  std::vector<Velk::BlockPattern> patterns{};
  unsigned occurrence = 0;  ///< counted from 1 among the blocks with the same id; 0: all

  bool isEverything() const { return patterns.empty() && occurrence == 0; }
  /// Returns whether one of the patterns matches, or there is none.
  bool matches(const Velk::BlockView& block) const;
};

/// Adds --id and --nth to a subcommand. The values are set when its callback runs.
std::shared_ptr<const Selection> addSelection(CLI::App& command);

/// Adds the same options to a subcommand for a single block; --id is required.
std::shared_ptr<const Selection> addBlockSelection(CLI::App& command);

/// Returns the check for blocks that a user names, as BlockPattern reads them.
CLI::Validator blockName();

/// Calls `act` with every selected block, in image order.
void forEachBlock(const Velk::MemoryImage& image, const Selection& selection,
                  const std::function<void(const Velk::BlockView& block)>& act);

/// Records what a selection finds in the images of a run. Threads may share it.
class SearchedBlocks {
 public:
  explicit SearchedBlocks(Selection selection) : selection_(std::move(selection)) {}

  const Selection& selection() const { return selection_; }
  /// Calls `act` with every selected block, in image order, and records which patterns matched.
  void forEach(const Velk::MemoryImage& image, const std::function<void(const Velk::BlockView& block)>& act);
  /// Returns the patterns that no block of any image matches; none if no image was searched.
  std::vector<Velk::BlockPattern> missing() const;
  /// Returns whether images were searched and no block was selected.
  bool isInVain() const;

 private:
  Selection selection_;
  mutable std::mutex mutex_;
  std::set<std::size_t> found_;  ///< indices of patterns
  bool foundAny_ = false;
  bool searched_ = false;
};

/// Returns a block as "block of id 77", or "block IDENT_3".
std::string blockText(const Velk::BlockPattern& pattern, unsigned occurrence = 0);

/// Returns "has no block of id 77", or with an occurrence "has no block no. 2 of id 77".
std::string noSuchBlock(const Velk::BlockPattern& pattern, unsigned occurrence = 0);

/// Reports and counts the requested blocks that no image has.
void reportMissing(Session& session, const Inputs& inputs, const SearchedBlocks& searched);

}  // namespace VelkTool
