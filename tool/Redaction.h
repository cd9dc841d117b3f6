#pragma once

#include <QByteArray>
#include <functional>
#include <string>
#include <vector>

#include "Session.h"
#include "velk/image/MemoryImage.h"

namespace VelkTool {

/// What redaction did to one block.
struct Redaction {
  const Velk::BlockView& block;
  bool isKnown;                    ///< otherwise nobody knows which of its bytes are personal, and all were left
  std::vector<std::string> taken;  ///< the fields that held something
};

/// Tells on standard error where a block was left because nobody knows what its bytes tell.
void tellLeft(Session& session, const std::string& file, const Redaction& redaction);

/// Redacts every block of an image in place; `tell` sees each block.
void redactImage(QByteArray& image, std::uint64_t start, std::uint64_t sectorSize,
                 const std::function<void(const Redaction& redaction)>& tell);

}  // namespace VelkTool
