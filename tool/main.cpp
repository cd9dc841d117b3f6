#include <fcntl.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <new>

#include "Commands.h"
#include "Containers.h"
#include "UsageError.h"
#include "velk/platform/Console.h"

namespace {

std::string exitCodes() {
  std::string text = "Exit codes:";
  for (const VelkTool::ExitMeaning& exit : VelkTool::exitMeanings) {
    text += (exit.code == VelkTool::Exit::Good ? " " : "; ") + std::to_string(static_cast<int>(exit.code)) + ' ' +
            exit.meaning;
  }
  return text + '.';
}

/// Returns the arguments as the parser expects them, last first. Prefixes "[name]" with "./", or it would be parsed as
/// a list.
std::vector<std::string> argumentsOf(int argc, char** argv) {
  std::vector<std::string> arguments;
  for (int i = argc - 1; i > 0; --i) {
    const std::string_view argument = argv[i];
    const bool isBracketed = argument.starts_with('[') && argument.ends_with(']');
    arguments.emplace_back(isBracketed ? "./" : "").append(argument);
  }
  return arguments;
}

/// Reports a usage error, or prints the requested help or version.
void report(VelkTool::Session& session, const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    app.exit(error);
    if (!std::cout.flush()) session.worsen(VelkTool::Exit::NoAccess);
    return;
  }
  const VelkTool::UsageError wrong = VelkTool::usageError(app, error);
  session.complain(wrong.place, wrong.what);
  session.worsen(VelkTool::Exit::Usage);
}

/// Opens closed standard streams, or the next opened file would take their number, and ignores SIGXFSZ, so that a file
/// that grows too large is an error and does not end the run.
void prepareProcess() {
  for (int stream = 0; stream <= 2; ++stream) {
    if (fcntl(stream, F_GETFD) < 0) static_cast<void>(open("/dev/null", (stream == 0 ? O_WRONLY : O_RDONLY)));
  }
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace VelkTool;
  prepareProcess();
  // The command reports damaged blocks itself, with file and offset.
  Velk::Console::redirect([](Velk::Console::Stream, std::string_view) {});

  CLI::App app("Lists, checks, prints, exports and changes the datablocks in memory images of instrument modules.",
               "velk");
  app.set_version_flag("--version", "velk " VELK_VERSION);
  app.require_subcommand(1);
  app.option_defaults()->disable_flag_override();
  app.footer("A memory image is a file of a module's EEPROM or flash memory: " + containerTitles() + ".\n" +
             exitCodes() + "\nSee \"velk COMMAND --help\" for details and examples.");

  WholeSession session;
  addList(app, session);
  addCheck(app, session);
  addExplain(app, session);
  addPrint(app, session);
  addDump(app, session);
  addIds(app, session);
  addExport(app, session);
  addGet(app, session);
  addDiff(app, session);
  addSet(app, session);
  addAdd(app, session);
  addCopy(app, session);
  addRemove(app, session);
  addRedact(app, session);
  addRecover(app, session);
  addConvert(app, session);
  addTable(app, session);
  addCompletion(app, session);
  addComplete(app, session);
  addManual(app, session);
  addHelp(app, session);
  try {
    app.parse(argumentsOf(argc, argv));
  } catch (const CLI::ParseError& error) {
    report(session, app, error);
  } catch (const std::bad_alloc&) {
    std::fputs("velk: out of memory\n", stderr);
    session.worsen(Exit::NoAccess);
  }
  session.flush();
  return session.exitCode();
}
