#pragma once

#include <QByteArray>
#include <functional>
#include <string>
#include <vector>

#include "Session.h"
#include "velk/image/MemoryImage.h"

namespace VelkTool {

/// The result of redacting one block.
struct Redaction {
  const Velk::BlockView& block;
  std::vector<std::string> taken;  ///< names of the fields that were not empty
};

/// Returns whether the meaning of the bytes is unknown: those of a block with a damaged size, or of no block. Erased
/// memory and zeros hold nothing.
bool isUninterpreted(const Velk::BlockView& block);

/// Redacts every block of `image` in `bytes`, a copy of its bytes. Calls `report` for each block, with the block as it
/// was.
void redactImage(const Velk::MemoryImage& image, QByteArray& bytes,
                 const std::function<void(const Redaction& redaction)>& report);

/// Redacts `image` for display: zeros uninterpreted bytes as well. Returns the number of these.
std::uint64_t redactForShow(const Velk::MemoryImage& image, QByteArray& bytes);

/// Reports and counts the bytes of a block that redaction leaves because their meaning is unknown. Returns whether
/// there are any.
bool reportLeft(Session& session, const std::string& name, const Velk::BlockView& block);

}  // namespace VelkTool
