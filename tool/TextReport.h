#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "Inputs.h"
#include "Verdict.h"

namespace VelkTool {

/// The lines of a report about one image. Unset functions add nothing.
struct ImageLines {
  /// Appends the line about a block, including the line break, and returns what it comes to.
  std::function<Verdict(std::string& text, const Velk::BlockView& block)> ofBlock;
  /// Called after the line about a block was written.
  std::function<void(const Velk::BlockView& block)> afterBlock{};
  /// Appends the lines after the last block, and returns what they come to.
  std::function<Verdict(std::string& text)> ofImage{};
};

/// Begins the report about an input; messages go to `session`.
using BeginImage = std::function<ImageLines(Session& session, const Input& input)>;

/// Which lines of a report are written.
enum class Amount { All, Unsound, Nothing };

/// Writes one line of text for each block of the inputs, after the heading and, with several files, the file name.
void writeTextReport(Session& session, const Inputs& inputs, std::string_view heading, const BeginImage& begin,
                     Amount amount = Amount::All);

}  // namespace VelkTool
