#pragma once

#include <CLI/CLI.hpp>
#include <memory>

#include "velk/checks/Checks.h"

namespace VelkTool {

/// Adds the options that choose checks to a subcommand. They are set when its callback runs.
std::shared_ptr<const Velk::CheckOptions> addCheckOptions(CLI::App& command);

/// Returns `unknown check "list-wihtout-table"; the nearest is list-without-table`.
std::string unknownCheck(const std::string& name);

}  // namespace VelkTool
