#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QDir>
#include <fstream>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

#include "velk/datablock/HwDatablock.h"
#include "velk/platform/Console.h"
#include "velk/platform/ErrorManager.h"

namespace VelkTest {

/// Collects the output of the library to the standard streams during its lifetime.
class ConsoleCapture {
 public:
  ConsoleCapture()
      : former_(Velk::Console::redirect([this](Velk::Console::Stream stream, std::string_view text) {
          (stream == Velk::Console::Stream::Output ? output : error) += text;
        })) {}
  ConsoleCapture(const ConsoleCapture&) = delete;
  ConsoleCapture& operator=(const ConsoleCapture&) = delete;
  ~ConsoleCapture() { Velk::Console::redirect(former_); }

  std::string output;
  std::string error;

 private:
  Velk::Console::Handler former_;
};

/// Collects the errors that are signalled during its lifetime, as "1040001:text".
class ErrorCapture {
 public:
  ErrorCapture()
      : former_(Velk::ErrorManager()->setSink([this](int id, const QString& detail) {
          errors.push_back(std::to_string(id) + ":" + detail.toStdString());
        })) {}
  ErrorCapture(const ErrorCapture&) = delete;
  ErrorCapture& operator=(const ErrorCapture&) = delete;
  ~ErrorCapture() { Velk::ErrorManager()->setSink(former_); }

  std::vector<std::string> errors;

 private:
  Velk::CErrorManager::Sink former_;
};

/// Returns the bytes of a text such as "01 00 FF".
inline QByteArray fromHex(const char* text) { return QByteArray::fromHex(text); }

inline std::string hexOf(Velk::HwDatablock& block) {
  return block.getByteArrayData().toHex(' ').toUpper().toStdString();
}

inline std::string printed(Velk::HwDatablock& block) {
  std::ostringstream os;
  block.printToStream(os);
  return os.str();
}

/// Returns a stream with a decimal comma, digit grouping and every format flag that could affect a text.
inline std::ostringstream hostileStream() {
  class Comma : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  std::ostringstream os;
  os.imbue(std::locale(os.getloc(), new Comma));
  os << std::hex << std::showbase << std::showpos << std::uppercase << std::left << std::scientific;
  os.fill('*');
  os.precision(1);
  os.width(30);
  return os;
}

inline std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Returns the file names of all example images.
inline QStringList exampleImages() {
  return QDir(VELK_SOURCE_DIR "/examples/images").entryList({"*.bin"}, QDir::Files, QDir::Name);
}

inline QByteArray exampleImage(const QString& name) {
  return QByteArray::fromStdString(readFile((VELK_SOURCE_DIR "/examples/images/" + name).toStdString()));
}

/// Returns the expected text in tests/golden/. If VELK_UPDATE_GOLDEN is set in the environment, writes `actual` to it
/// first.
inline std::string golden(const std::string& name, const std::string& actual) {
  const std::string path = std::string(VELK_SOURCE_DIR "/tests/golden/") + name;
  if (std::getenv("VELK_UPDATE_GOLDEN") != nullptr) std::ofstream(path, std::ios::binary) << actual;
  return readFile(path);
}

/// Returns whether two texts are equal, and reports the first different line. EXPECT_EQ would print a long text whole.
inline testing::AssertionResult isSameText(const std::string& actual, const std::string& expected) {
  if (actual == expected) return testing::AssertionSuccess();
  std::istringstream actualLines(actual);
  std::istringstream expectedLines(expected);
  std::string actualLine;
  std::string expectedLine;
  int number = 0;
  do {
    actualLine = expectedLine = "(end)";
    std::getline(actualLines, actualLine);
    std::getline(expectedLines, expectedLine);
    ++number;
  } while (actualLine == expectedLine && (actualLines || expectedLines));
  return testing::AssertionFailure() << "line " << number << " is\n  " << actualLine << "\nand not\n  " << expectedLine;
}

/// Returns whether a text equals the expected one in tests/golden/.
inline testing::AssertionResult isGolden(const std::string& name, const std::string& actual) {
  return isSameText(actual, golden(name, actual)) << "\nin " << name;
}

}  // namespace VelkTest
