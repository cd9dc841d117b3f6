#pragma once

#include <QByteArray>

#include "velk/records/HwDatablockIdent.h"

namespace Examples {

/// The memories of example modules, as the library's own classes write them.
QByteArray rfBoard();
QByteArray synthesizer();
QByteArray iqModule();
QByteArray mainboard();
QByteArray dacBoard();
QByteArray detector();

/// What the examples have in common: an ident block with a name, a part number and a serial number.
Velk::HwDatablockIdent identOf(const char* name, unsigned partNumber, unsigned serialNumber);

}  // namespace Examples
