#pragma once

#include <CLI/CLI.hpp>

#include "Session.h"

namespace VelkTool {

/// Each adds one subcommand to the command line; its work is done while the line is parsed.
void addList(CLI::App& app, Session& session);
void addCheck(CLI::App& app, Session& session);
void addPrint(CLI::App& app, Session& session);
void addIds(CLI::App& app, Session& session);
void addTable(CLI::App& app, Session& session);
void addExport(CLI::App& app, Session& session);
void addDiff(CLI::App& app, Session& session);
void addSet(CLI::App& app, Session& session);
void addRecover(CLI::App& app, Session& session);
void addRedact(CLI::App& app, Session& session);
void addCompletion(CLI::App& app, Session& session);
void addManual(CLI::App& app, Session& session);
/// To be added last: it offers the names of those before it.
void addHelp(CLI::App& app, Session& session);

}  // namespace VelkTool
