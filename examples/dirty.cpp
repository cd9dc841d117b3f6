// Dumps as people hold them, of memories that are among the other examples.
#include "Images.h"

namespace Examples {
namespace {

constexpr char erased = '\xFF';

}  // namespace

/// Sectors of 1 KiB: an RF board's, an erased one, a DAC board's, and a boot text that is no block.
QByteArray flashDump() {
  const QByteArray boot = "boot loader 1.04, build 2018-06-21; waiting for the monitor\r\n";
  QByteArray flash = rfBoard() + QByteArray(1024, erased) + dacBoard() + boot.repeated(17);
  return flash.leftJustified(4096, erased, true);
}

/// A page of 256 bytes erased in the middle of a synthesizer's blocks.
QByteArray erasedPage() { return synthesizer().replace(512, 256, QByteArray(256, erased)); }

/// A DAC board read twice: once with a bit flipped, once with a byte lost.
QByteArray firstRead() {
  QByteArray dump = dacBoard();
  dump[20] = static_cast<char>(dump[20] ^ 1);
  return dump;
}
QByteArray secondRead() { return dacBoard().remove(300, 1); }

}  // namespace Examples
