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

/// Redacts every block of an image in place; `tell` sees each block. Bytes that are left because nobody knows what they
/// tell are told on standard error and count.
void redactImage(Session& session, const Inputs& inputs, const std::string& name, QByteArray& image,
                 const std::function<void(const Redaction& redaction)>& tell);

}  // namespace VelkTool
