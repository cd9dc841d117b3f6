#pragma once

#include <CLI/CLI.hpp>

#include "Session.h"

namespace VelkTool {

/// Each function adds one subcommand to the command line. The subcommand runs while the line is parsed.
void addList(CLI::App& app, Session& session);
void addCheck(CLI::App& app, Session& session);
void addExplain(CLI::App& app, Session& session);
void addPrint(CLI::App& app, Session& session);
void addDump(CLI::App& app, Session& session);
void addIds(CLI::App& app, Session& session);
void addTable(CLI::App& app, Session& session);
void addExport(CLI::App& app, Session& session);
void addGet(CLI::App& app, Session& session);
void addDiff(CLI::App& app, Session& session);
void addSet(CLI::App& app, Session& session);
void addAdd(CLI::App& app, Session& session);
void addCopy(CLI::App& app, Session& session);
void addRemove(CLI::App& app, Session& session);
void addConvert(CLI::App& app, Session& session);
void addRecover(CLI::App& app, Session& session);
void addRedact(CLI::App& app, Session& session);
void addCompletion(CLI::App& app, Session& session);
/// Adds the hidden command that the completion scripts call.
void addComplete(CLI::App& app, Session& session);
void addManual(CLI::App& app, Session& session);
/// Adds `help`. Call it last: it offers the commands that were added before it.
void addHelp(CLI::App& app, Session& session);

}  // namespace VelkTool
