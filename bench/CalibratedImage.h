#pragma once

#include <QByteArray>

namespace VelkBench {

/// Returns sound blocks of random classes of the dictionary, one after another, up to `size` bytes. Their values look
/// like calibration data.
QByteArray calibratedImage(qsizetype size);

}  // namespace VelkBench
