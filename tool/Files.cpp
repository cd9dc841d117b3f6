#include "Files.h"

#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>

namespace VelkTool {
namespace {

QFileInfo infoOf(const std::string& path) { return QFileInfo(QFile::decodeName(path.c_str())); }

}  // namespace

std::optional<std::string> readText(Session& session, const std::string& path) {
  std::ifstream file;
  if (path != "-") file.open(path, std::ios::binary);
  std::istream& text = path == "-" ? std::cin : file;
  std::string whole(std::istreambuf_iterator<char>(text), {});
  if (text && !infoOf(path).isDir()) return whole;
  session.complain(path, std::strerror(infoOf(path).isDir() ? EISDIR : errno));
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
