#include "velk/platform/TarnProperties.h"

#include <QDir>

namespace Velk {
namespace {

QString& systemRwPath() {
  static QString path = QDir::tempPath();
  return path;
}

}  // namespace

QString TarnProperties::getSystemRwPath() { return systemRwPath(); }

void TarnProperties::setSystemRwPath(const QString& path) { systemRwPath() = path; }

}  // namespace Velk
