#include "velk/diag/HwObject.h"

#include <QObject>

#include "velk/diag/HwDebug.h"

namespace Velk {

const char* const HwObject::levelDisplayStr[] = {
    "++ CRITICAL ++: *** ",
    "         Error:     ",
    "       Warning:     ",
    "          Info:     ",
    "         Trace:     ",
    "         Debug:     ",
    nullptr,
};

const char* const HwObject::classDisplayStr[] = {
    "    DriverAccess, ",
    "  HardwareAccess, ",
    "            Jtag, ",
    "      Repository, ",
    "             Spi, ",
    " MicroController, ",
    "       SerialBus, ",
    "           Timer, ",
    "          Eeprom, ",
    "       JamPlayer, ",
    "       Interrupt, ",
    "",  // number 11 is not used
    "        Diagnose, ",
    nullptr,
};

HwObject::~HwObject() = default;

int HwObject::getDebugLevel() { return HwProtocolLevelDebug; }

bool HwObject::chkdbg(int type) { return HwDebug::checkOutput(type, getDebugLevel()); }

bool HwObject::chkdbg(int type, int level) const { return HwDebug::checkOutput(type, level); }

void HwObject::dbgout(const QString& text) const {
  HwDebug::println(HwDebug::getLastClass(), HwDebug::getLastLevel(), text);
}

void HwObject::dbgout(int level, const QString& text) const { HwDebug::println(HwDebug::getLastClass(), level, text); }

QString HwObject::getClassName(const QString& prefix) {
  const auto* const object = dynamic_cast<QObject*>(this);
  return prefix + (object != nullptr ? object->objectName() : QStringLiteral("<no QObject class>"));
}

}  // namespace Velk
