#include "Files.h"

#include <QFileInfo>
#include <QSaveFile>

#include "velk/image/ImageFile.h"

namespace VelkTool {
namespace {

QFileInfo infoOf(const std::string& path) { return QFileInfo(QFile::decodeName(path.c_str())); }

}  // namespace

std::optional<std::string> readText(Session& session, const std::string& path) {
  const Velk::ImageFile file = Velk::readImageFile(path, Velk::ImageFormat::Raw);
  if (file.error.empty()) return file.bytes.toStdString();
  session.complain(path, file.error);
  session.worsen(Exit::NoAccess);
  return std::nullopt;
}

void writeFile(Session& session, const std::string& path, const QByteArray& bytes) {
  QSaveFile file(QFile::decodeName(path.c_str()));
  if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()) return;
  session.complain(path, file.errorString().toStdString());
  session.worsen(Exit::NoAccess);
}

bool isSameFile(const std::string& path, const std::string& other) {
  const QString canonical = infoOf(path).canonicalFilePath();
  return path != "-" && !canonical.isEmpty() && canonical == infoOf(other).canonicalFilePath();
}

}  // namespace VelkTool
