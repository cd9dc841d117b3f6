#include <fcntl.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <new>

#include "Commands.h"
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

/// The arguments as the parser takes them, the last first. A file "[name]" gets its folder, or would count as a list.
std::vector<std::string> argumentsOf(int argc, char** argv) {
  std::vector<std::string> arguments;
  for (int i = argc - 1; i > 0; --i) {
    const std::string_view argument = argv[i];
    const bool isBracketed = argument.starts_with('[') && argument.ends_with(']');
    arguments.emplace_back(isBracketed ? "./" : "").append(argument);
  }
  return arguments;
}

/// Says what is wrong with the command line, or what was asked for.
void tell(VelkTool::Session& session, const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    app.exit(error);
    if (!std::cout.flush()) session.worsen(VelkTool::Exit::NoAccess);
    return;
  }
  const VelkTool::UsageError wrong = VelkTool::usageError(app, error);
  session.complain(wrong.place, wrong.what);
  session.worsen(VelkTool::Exit::Usage);
}

/// What a process may lack that was started carelessly: a standard stream that is closed would be the number of the
/// next file that is opened, and a file that becomes too large would end the run.
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
  // What the library has to say of a damaged block the command says itself, with file and offset.
  Velk::Console::redirect([](Velk::Console::Stream, std::string_view) {});

  CLI::App app(
      "Looks into the memory images of instrument modules: lists, checks, prints, exports and changes their "
      "datablocks.",
      "velk");
  app.set_version_flag("--version", "velk " VELK_VERSION);
  app.require_subcommand(1);
  app.option_defaults()->disable_flag_override();
  app.footer("A memory image is a raw dump, an Intel HEX or an S-record file of a module's EEPROM or flash memory.\n" +
             exitCodes() + "\n\"velk COMMAND --help\" tells more and shows an example.");

  WholeSession session;
  addList(app, session);
  addCheck(app, session);
  addPrint(app, session);
  addIds(app, session);
  addExport(app, session);
  addDiff(app, session);
  addSet(app, session);
  addRedact(app, session);
  addRecover(app, session);
  addTable(app, session);
  addCompletion(app, session);
  addManual(app, session);
  addHelp(app, session);
  try {
    app.parse(argumentsOf(argc, argv));
  } catch (const CLI::ParseError& error) {
    tell(session, app, error);
  } catch (const std::bad_alloc&) {
    std::fputs("velk: there is not enough memory to go on\n", stderr);
    session.worsen(Exit::NoAccess);
  }
  session.flush();
  return session.exitCode();
}
