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
/// An RF board with calibration tables of every layout.
QByteArray rfBoardTables();
/// No module's: a block of every id that has a class, with a few values in each.
QByteArray everyId();

/// Dumps that are not clean: a flash, a memory with an erased page, two of one memory.
QByteArray flashDump();
QByteArray erasedPage();
QByteArray firstRead();
QByteArray secondRead();

/// The attenuator registers of that board as text, with one of them corrected.
QByteArray attenuatorRegisters();

/// What the examples have in common: an ident block with a name, a part number and a serial number.
Velk::HwDatablockIdent identOf(const char* name, unsigned partNumber, unsigned serialNumber);

}  // namespace Examples
