#pragma once

#include "Choices.h"
#include "Session.h"

namespace VelkTool {

/// Adds --color to a subcommand that writes verdicts.
inline void addColours(CLI::App& command, Session& session) {
  enum class When { Automatic, Always, Never };
  addChoice<When>(
      command, "--color", {{"auto", When::Automatic}, {"always", When::Always}, {"never", When::Never}},
      [&session](When when) {
        if (when != When::Automatic) session.setColours(when == When::Always);
      },
      "Whether lines about damage and warnings have a colour; auto, the default: on a terminal, unless NO_COLOR is "
      "set");
}

}  // namespace VelkTool
