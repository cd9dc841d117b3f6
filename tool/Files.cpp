#include "Files.h"

#include <QFileInfo>
#include <QSaveFile>
#include <filesystem>
#include <memory>

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

bool writeFile(Session& session, const std::string& path, const QByteArray& bytes, const std::string& like) {
  if (path == standardOutput) {
    session.write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    return true;
  }
  const bool replaces = !isStream(path);
  const QString name = QFile::decodeName(path.c_str());
  const std::unique_ptr<QFileDevice> file =
      replaces ? std::unique_ptr<QFileDevice>(std::make_unique<QSaveFile>(name)) : std::make_unique<QFile>(name);
  auto* const saved = qobject_cast<QSaveFile*>(file.get());
  const auto takePermissions = [&] { return like.empty() || file->setPermissions(infoOf(like).permissions()); };
  if (file->open(QIODevice::WriteOnly) && takePermissions() && file->write(bytes) == bytes.size() &&
      (saved != nullptr ? saved->commit() : file->flush())) {
    return true;
  }
  session.complain(path, file->errorString().toStdString());
  session.worsen(Exit::NoAccess);
  return false;
}

bool copyFile(Session& session, const std::string& from, const std::string& to) {
  const std::optional<std::string> contents = readText(session, from);
  // What the owner kept from others stays so.
  return contents && writeFile(session, to, QByteArray::fromStdString(*contents), from);
}

bool isStream(const std::string& path) {
  return path == standardOutput || (infoOf(path).exists() && !infoOf(path).isFile());
}

bool isPipe(const std::string& path) {
  std::error_code unknown;
  return std::filesystem::is_fifo(path, unknown);
}

bool isSameFile(const std::string& path, const std::string& other) {
  const QString canonical = infoOf(path).canonicalFilePath();
  return path != "-" && other != standardOutput && !canonical.isEmpty() &&
         canonical == infoOf(other).canonicalFilePath();
}

}  // namespace VelkTool
