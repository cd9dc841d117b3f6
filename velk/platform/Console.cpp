#include "velk/platform/Console.h"

#include <cstdio>
#include <utility>

namespace Velk {
namespace {

Console::Handler& currentHandler() {
  static Console::Handler handler;
  return handler;
}

}  // namespace

void Console::write(Stream stream, std::string_view text) {
  if (const Handler& handler = currentHandler()) {
    handler(stream, text);
    return;
  }
  std::FILE* const file = stream == Stream::Output ? stdout : stderr;
  std::fwrite(text.data(), 1, text.size(), file);
}

Console::Handler Console::redirect(Handler handler) { return std::exchange(currentHandler(), std::move(handler)); }

}  // namespace Velk
