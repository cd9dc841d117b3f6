#pragma once

#include <atomic>

#include "Inputs.h"

namespace VelkTool {

/// Which blocks of each image a run is about: all, unless ids are given.
struct Selection {
  std::vector<int> ids{};
  unsigned occurrence = 0;                 ///< counted from 1 among the blocks of an id; 0: each
  mutable std::atomic<bool> found{false};  ///< some image has such a block
};

/// Adds --id and --nth to a subcommand; the values are there when its callback runs.
std::shared_ptr<const Selection> addSelection(CLI::App& command);

/// The same for a subcommand that is about one block, whose id has to be given.
std::shared_ptr<const Selection> addBlockSelection(CLI::App& command);

/// Calls `act` with every selected block, in the order of the image.
void forEachBlock(const Velk::MemoryImage& image, const Selection& selection,
                  const std::function<void(const Velk::BlockView& block)>& act);

/// Tells where blocks were asked for that no image has, and counts it.
void tellIfNothingFound(Session& session, const Inputs& inputs, const Selection& selection);

}  // namespace VelkTool
