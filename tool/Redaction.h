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

/// Redacts every block of an image in place; `tell` sees each block, as it was.
void redactImage(const Inputs& inputs, QByteArray& image, const std::function<void(const Redaction& redaction)>& tell);

/// Tells which bytes of a block redaction leaves because nobody knows what they tell, and counts it.
void tellLeft(Session& session, const std::string& name, const Velk::BlockView& block);

}  // namespace VelkTool
