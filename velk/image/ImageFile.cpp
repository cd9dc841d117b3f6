#include "velk/image/ImageFile.h"

#include <QFile>
#include <cstdio>

namespace Velk {

ImageFile readImageFile(const std::string& path) {
  QFile file(QFile::decodeName(path.c_str()));
  const bool opened = path == "-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
  if (!opened) return {{}, file.errorString().toStdString()};
  ImageFile image{file.readAll(), {}};
  if (file.error() != QFileDevice::NoError) image.error = file.errorString().toStdString();
  return image;
}

}  // namespace Velk
