#pragma once

#include <QByteArray>
#include <string_view>

#include "velk/bytes/Bytes.h"

namespace Velk {

/// The bytes of an array, valid until it changes.
inline ConstBytes bytesOf(const QByteArray& array) {
  return {reinterpret_cast<const unsigned char*>(array.constData()), static_cast<std::size_t>(array.size())};
}

/// The bytes of an array to be changed: it no longer shares them with copies made before.
inline MutableBytes mutableBytesOf(QByteArray& array) {
  return {reinterpret_cast<unsigned char*>(array.data()), static_cast<std::size_t>(array.size())};
}

inline std::string_view textOf(const QByteArray& array) {
  return {array.constData(), static_cast<std::size_t>(array.size())};
}

inline QByteArray toByteArray(ConstBytes bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

}  // namespace Velk
