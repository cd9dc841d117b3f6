#pragma once

#include <functional>
#include <string_view>

#include "velk/Export.h"

namespace Velk {

/// The one way on which the library writes to standard output or standard error by itself: diagnostics of damaged
/// blocks, messages of the text readers, hex dumps. A program redirects it to label, collect or drop that text.
class VELK_EXPORT Console {
 public:
  enum class Stream { Output, Error };
  /// Receives text as it is written: whole lines or pieces of one, with their line breaks.
  using Handler = std::function<void(Stream, std::string_view)>;

  static void write(Stream stream, std::string_view text);

  /// Sends all further text to `handler`; an empty handler restores the standard streams. Returns the former handler.
  static Handler redirect(Handler handler);
};

}  // namespace Velk
