// Damaged and incomplete dumps of the memories of the other examples.
#include "Images.h"

namespace Examples {
namespace {

constexpr char erased = '\xFF';

}  // namespace

/// A flash with sectors of 1 KiB: an RF board, an erased sector, a DAC board, and a boot message that is not a block.
QByteArray flashDump() {
  const QByteArray boot = "boot loader 1.04, build 2018-06-21; waiting for the monitor\r\n";
  QByteArray flash = rfBoard() + QByteArray(1024, erased) + dacBoard() + boot.repeated(17);
  return flash.leftJustified(4096, erased, true);
}

/// A synthesizer with an erased page of 256 bytes among its blocks.
QByteArray erasedPage() { return synthesizer().replace(512, 256, QByteArray(256, erased)); }

/// Two reads of a DAC board: one with a flipped bit, one with a missing byte.
QByteArray firstRead() {
  QByteArray dump = dacBoard();
  dump[20] = static_cast<char>(dump[20] ^ 1);
  return dump;
}
QByteArray secondRead() { return dacBoard().remove(300, 1); }

}  // namespace Examples
