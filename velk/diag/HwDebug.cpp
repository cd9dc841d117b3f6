#include "velk/diag/HwDebug.h"

#include <QDateTime>
#include <QFile>

#include "velk/platform/Debug.h"
#include "velk/platform/TarnProperties.h"

namespace Velk {
namespace {

// The library's number among the modules that the debug service knows.
constexpr int moduleId = 2;
constexpr int endedByNull = -1;

}  // namespace

int HwDebug::lastClass = HwProtocolTypeAllTypes;
int HwDebug::lastLevel = HwProtocolLevelDebug;

void HwDebug::init() {
  Debug::initDebug();
  Debug::setMessageLevelDescriptions(moduleId, levelDisplayStr, endedByNull);
  Debug::setMessageClassDescriptions(moduleId, classDisplayStr, endedByNull);
}

void HwDebug::exit() { Debug::exitDebug(); }

bool HwDebug::checkOutput(int type, int level) {
  lastClass = type;
  lastLevel = level;
  return Debug::isActive(moduleId, level, type);
}

void HwDebug::println(int type, int level, const QString& text) {
  if (checkOutput(type, level)) {
    Debug::println(moduleId, type, QString::fromLocal8Bit(text.toLocal8Bit()), level, 0, nullptr, -1);
  }
}

void HwDebug::println(const QString& text) { println(lastClass, lastLevel, text); }

void HwDebug::setDebugLevel(int level) { Debug::setClippingLevel(moduleId, level); }

void HwDebug::setDebugMask(int mask) { Debug::enableMessageClassType(moduleId, mask); }

int HwDebug::getLastClass() { return lastClass; }

int HwDebug::getLastLevel() { return lastLevel; }

void HwDebug::srvExtFileOutput(const char* text) {
  QFile log(TarnProperties::getSystemRwPath() + "/SrvExt.log");
  if (!log.open(QIODevice::WriteOnly | QIODevice::Append)) return;
  const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd; hh:mm"));
  log.write(time.toLocal8Bit() + " -- " + text + "\r\n");
}

}  // namespace Velk
