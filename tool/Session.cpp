#include "Session.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "velk/datablock/HexText.h"

namespace VelkTool {
namespace {

constexpr std::size_t pieceSize = 64 * 1024;

bool isControl(unsigned char byte) { return (byte < 0x20 && byte != '\n' && byte != '\t') || byte == 0x7F; }

/// The control characters U+0080 to U+009F, in UTF-8.
bool isControlPair(unsigned char first, unsigned char second) {
  return first == 0xC2 && second >= 0x80 && second < 0xA0;
}

void appendEscaped(std::string& to, std::string_view text) {
  constexpr std::string_view digits = Velk::detail::lowerHexDigits;
  const auto escape = [&](unsigned char byte) { (to += "\\x") += {digits[byte >> 4U], digits[byte & 0xFU]}; };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
    if (isControl(byte)) {
      escape(byte);
    } else if (isControlPair(byte, next)) {
      escape(byte);
      escape(next);
      ++i;
    } else {
      to += text[i];
    }
  }
}

}  // namespace

WholeSession::WholeSession() : terminal_(isatty(STDOUT_FILENO) != 0) {}

void WholeSession::write(std::string_view text) {
  if (terminal_) {
    appendEscaped(pending_, text);
  } else if (text.size() >= pieceSize) {
    flush();
    return put(text);
  } else {
    pending_ += text;
  }
  if (pending_.size() >= pieceSize) flush();
}

void WholeSession::flush() {
  put(pending_);
  pending_.clear();
}

void WholeSession::put(std::string_view text) {
  const std::size_t written = std::fwrite(text.data(), 1, text.size(), stdout);
  const bool failed = written != text.size() || std::fflush(stdout) != 0;
  if (!failed || outputLost_) return;
  outputLost_ = true;
  worsen(Exit::NoAccess);
  std::fprintf(stderr, "velk: standard output: %s\n", std::strerror(errno));
}

void WholeSession::complain(std::string_view file, std::string_view what) {
  flush();
  std::string line = "velk: ";
  appendEscaped(line, file);
  line += ": ";
  appendEscaped(line, what);
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

void WholeSession::worsen(Exit exit) { exit_ = std::max(exit_, exit); }

}  // namespace VelkTool
