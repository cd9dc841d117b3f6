#pragma once

#include "velk/diag/HwObject.h"

namespace Velk {

/// The channel between the library and the firmware's debug service. The firmware calls init() before it wants output
/// and exit() at shutdown. The class and level of the most recent check or line are process-wide and not locked.
class VELK_EXPORT HwDebug : public HwObject {
 public:
  static void init();
  static void exit();

  /// Returns whether the service would show a line of this type and level; remembers both.
  static bool checkOutput(int type, int level);
  /// Writes a line if the service would show it; remembers type and level in any case.
  static void println(int type, int level, const QString& text);
  /// The same with the remembered type and level.
  static void println(const QString& text);

  static void setDebugLevel(int level);
  static void setDebugMask(int mask);
  static int getLastClass();
  static int getLastLevel();

  /// Appends a time-stamped line to the service-extension log, the file SrvExt.log in the writable system directory.
  /// Without a writable file the line is lost.
  static void srvExtFileOutput(const char* text);

 private:
  static int lastClass;
  static int lastLevel;
};

}  // namespace Velk
