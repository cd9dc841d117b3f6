#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include "TestSupport.h"

namespace VelkTest {

struct Outcome {
  int exitCode;
  std::string output;
  std::string errors;
};

/// Runs a program, by default the velk command, in the folder of the example images.
inline Outcome run(const QStringList& arguments, const QByteArray& input = {}, const char* program = VELK_COMMAND) {
  QProcess process;
  process.setWorkingDirectory(VELK_SOURCE_DIR "/examples/images");
  process.start(program, arguments);
  process.write(input);
  process.closeWriteChannel();
  EXPECT_TRUE(process.waitForFinished());
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  return {process.exitCode(), process.readAllStandardOutput().toStdString(),
          process.readAllStandardError().toStdString()};
}

/// Base of tests of the command that create files.
class Command : public testing::Test {
 protected:
  QString file(const QString& name, const QByteArray& bytes) {
    QString path = directory_.filePath(name);
    QFile out(path);
    EXPECT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(bytes);
    return path;
  }

  QTemporaryDir directory_;
};

}  // namespace VelkTest
