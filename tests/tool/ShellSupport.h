#pragma once

#include "CommandSupport.h"

namespace VelkTest {

/// Base of tests that run scripts over files.
class Shell : public Command {
 protected:
  /// Runs a script of the shell in the test's folder. $velk is the command, $images the folder of the example images,
  /// $board one of them. `terminal COMMAND` runs a command on a terminal.
  Outcome shell(const QString& script) {
    const QString start = "cd '" + directory_.path() +
                          "' && velk=" VELK_COMMAND " images=" VELK_SOURCE_DIR "/examples/images board=" VELK_SOURCE_DIR
                          "/examples/images/rf_board.bin\n"
                          "terminal() { TERM=${TERM_OF_TEST-xterm} " VELK_PYTHON
                          " -c 'import pty, sys; sys.exit(pty.spawn(sys.argv[1:]) >> 8)' \"$@\" | tr -d '\\r'; }\n";
    return run({"-c", start + script}, {}, "/bin/bash");
  }
};

}  // namespace VelkTest
