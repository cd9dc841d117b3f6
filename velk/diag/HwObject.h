#pragma once

#include <QString>

#include "velk/Export.h"

namespace Velk {

/// The root of the class tree: lets every object check whether a debug line is wanted, and write it.
///
/// Check first and format only if needed: `if (chkdbg(type, level)) dbgout(text);`. The check stores its class and
/// level for the dbgout that follows, so both must be called on one thread.
class VELK_EXPORT HwObject {
 public:
  /// How severe a line is; lower is more severe.
  static constexpr int HwProtocolLevelCritical = 0;
  static constexpr int HwProtocolLevelError = 1;
  static constexpr int HwProtocolLevelWarning = 2;
  static constexpr int HwProtocolLevelInfo = 3;
  static constexpr int HwProtocolLevelTrace = 4;
  static constexpr int HwProtocolLevelDebug = 5;

  /// The hardware area that a line concerns.
  static constexpr int HwProtocolTypeAllTypes = -1;
  static constexpr int HwProtocolTypeDriverAccess = 0;
  static constexpr int HwProtocolTypeHardwareAccess = 1;
  static constexpr int HwProtocolTypeJtag = 2;
  static constexpr int HwProtocolTypeRepository = 3;
  static constexpr int HwProtocolTypeSpi = 4;
  static constexpr int HwProtocolTypeMicroController = 5;
  static constexpr int HwProtocolTypeSerialBus = 6;
  static constexpr int HwProtocolTypeTimer = 7;
  static constexpr int HwProtocolTypeEeprom = 8;
  static constexpr int HwProtocolTypeJamPlayer = 9;
  static constexpr int HwProtocolTypeInterrupt = 10;
  static constexpr int HwProtocolTypeDiagnose = 12;

  /// Texts before a line, by level and by type; a null pointer ends each array.
  static const char* const levelDisplayStr[];
  static const char* const classDisplayStr[];

  virtual ~HwObject();
  virtual int getDebugLevel();

  bool chkdbg(int type);
  bool chkdbg(int type, int level) const;
  void dbgout(const QString& text) const;
  void dbgout(int level, const QString& text) const;

  /// Returns `prefix` and the object name of a QObject; for other objects, a text in place of the name.
  QString getClassName(const QString& prefix);
};

}  // namespace Velk
