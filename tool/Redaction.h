#pragma once

#include <QByteArray>
#include <functional>
#include <string>
#include <vector>

#include "Inputs.h"

namespace VelkTool {

/// What redaction did to one block.
struct Redaction {
  const Velk::BlockView& block;
  std::vector<std::string> taken;  ///< the fields that held something
};

/// Whether bytes may hold anything, since nothing says what they are: those of a block whose size is damaged, or of no
/// block. Erased memory and zeros hold nothing.
bool isUninterpreted(const Velk::BlockView& block);

/// Redacts every block of an image in place; `tell` sees each block, as it was.
void redactImage(const Inputs& inputs, QByteArray& image, const std::function<void(const Redaction& redaction)>& tell);

/// Redacts an image that is shown and not written: uninterpreted bytes become zeros as well. Returns how many.
std::uint64_t redactForShow(const Inputs& inputs, QByteArray& image);

/// Reports which bytes of a block redaction leaves because their meaning is unknown, and counts it.
void tellLeft(Session& session, const std::string& name, const Velk::BlockView& block);

}  // namespace VelkTool
