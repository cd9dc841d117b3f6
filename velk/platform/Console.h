#pragma once

#include <functional>
#include <string_view>

#include "velk/Export.h"

namespace Velk {

/// The only way in which the library itself writes to standard output or standard error: diagnostics of damaged blocks,
/// messages of the text readers, hex dumps. A program can redirect it to label, collect or drop that text.
class VELK_EXPORT Console {
 public:
  enum class Stream { Output, Error };
  /// Receives text as it is written: whole lines or pieces of one, with their line breaks.
  using Handler = std::function<void(Stream, std::string_view)>;

  static void write(Stream stream, std::string_view text);

  /// Sends all further text to `handler`; an empty handler restores the standard streams. Returns the previous handler.
  static Handler redirect(Handler handler);
};

}  // namespace Velk
