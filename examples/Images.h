#pragma once

#include <QByteArray>

#include "velk/records/HwDatablockIdent.h"

namespace Examples {

/// The memories of example modules, written with the classes of the library.
QByteArray rfBoard();
QByteArray synthesizer();
QByteArray iqModule();
QByteArray mainboard();
QByteArray dacBoard();
QByteArray detector();
/// An RF board with calibration tables of every layout.
QByteArray rfBoardTables();
/// A block of every id that has a class, with a few values in each; not the memory of a real module.
QByteArray everyId();

/// Damaged dumps: a flash, a memory with an erased page, two reads of one memory.
QByteArray flashDump();
QByteArray erasedPage();
QByteArray firstRead();
QByteArray secondRead();

/// The attenuator registers of rfBoardTables() as text, with one value corrected.
QByteArray attenuatorRegisters();

/// Returns an ident block with this name, part number and serial number, in a memory of this size.
Velk::HwDatablockIdent identOf(const char* name, unsigned partNumber, unsigned serialNumber, unsigned eepromSize);

}  // namespace Examples
