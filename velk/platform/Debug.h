#pragma once

#include <QString>

#include "velk/Export.h"

namespace Velk {

/// Debug output of the firmware, filtered for each module by level and message class.
///
/// A line is shown if its level is at most the module's clipping level (lower numbers are more severe) and its message
/// class is enabled. A module that is not configured shows errors of every class. Lines go to the Console's error
/// stream. Integrators replace this service with their own.
class VELK_EXPORT Debug {
 public:
  static void initDebug();
  /// Forgets every module's configuration.
  static void exitDebug();

  static bool isActive(int moduleId, int level, int messageClass);

  /// Writes one line, filtered or not: callers ask isActive first. `options`, `file` and `line` are passed on by
  /// callers for services that record where a line came from; this one does not.
  static void println(int moduleId, int messageClass, const QString& text, int level, int options, const char* file,
                      int line);

  static void setClippingLevel(int moduleId, int level);
  /// Bit n of `mask` enables message class n; -1 enables all of them.
  static void enableMessageClassType(int moduleId, int mask);

  /// Texts put before a line, by level and by message class. `count` -1 means that a null pointer ends the array, which
  /// must live as long as lines are written.
  static void setMessageLevelDescriptions(int moduleId, const char* const* descriptions, int count);
  static void setMessageClassDescriptions(int moduleId, const char* const* descriptions, int count);

  /// Shows a message to whoever watches the firmware. The arguments after the texts say how a service with windows
  /// shows the box; this one writes the texts to the Console.
  static void debugMessageBox(const char* title, const char* text, bool modal, int icon, int buttons, int x, int y);
};

}  // namespace Velk
