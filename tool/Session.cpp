#include "Session.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "Utf8.h"
#include "velk/bytes/HexText.h"
#include "velk/files/Descriptor.h"

namespace VelkTool {
namespace {

constexpr std::size_t pieceSize = 64 * 1024;

void appendEscapes(std::string& to, std::string_view bytes) {
  constexpr std::string_view digits = Velk::detail::lowerHexDigits;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    (to += "\\x") += {digits[byte >> 4U], digits[byte & 0xFU]};
  }
}

/// Appends text with control characters escaped as \xNN, except tabs and `kept`. Invalid UTF-8 is handled per byte.
void appendEscaped(std::string& to, std::string_view text, std::string_view kept) {
  while (!text.empty()) {
    const Character character = takeUtf8(text).value_or(Character{1, static_cast<unsigned char>(text.front())});
    const std::string_view bytes = text.substr(0, character.length);
    const bool escapes = isControl(character.code) && bytes != "\t" && bytes != kept;
    escapes ? appendEscapes(to, bytes) : void(to += bytes);
    text.remove_prefix(character.length);
  }
}

/// Returns whether the user's environment lets programs use colours on a terminal.
bool allowsColours() {
  const char* const refusal = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  const bool refuses = refusal != nullptr && *refusal != '\0';
  return !refuses && terminal != nullptr && std::string_view(terminal) != "dumb";
}

constexpr std::string_view colourOf(Verdict verdict) {
  return verdict == Verdict::Sound ? "" : verdict == Verdict::Warnings ? "\x1B[33m" : "\x1B[31m";
}

}  // namespace

WholeSession::WholeSession() : terminal_(isatty(STDOUT_FILENO) != 0), colours_(terminal_ && allowsColours()) {}

void WholeSession::writeVerdict(std::string_view text, Verdict verdict) {
  const std::string_view colour = colours_ ? colourOf(verdict) : "";
  if (colour.empty()) return write(text);
  const bool endsLine = text.ends_with('\n');
  if (endsLine) text.remove_suffix(1);
  pending_ += colour;
  write(text);
  pending_.append("\x1B[0m").append(endsLine ? "\n" : "");
}

void WholeSession::write(std::string_view text) {
  if (terminal_ || colours_) {
    appendEscaped(pending_, text, "\n");
  } else if (text.size() >= pieceSize) {
    putPending();
    put(text);
  } else {
    pending_ += text;
  }
  if (pending_.size() >= pieceSize) putPending();
}

bool WholeSession::flush() {
  putPending();
  progress_.erase();
  // Some file systems report a full disk only on close.
  if (std::exchange(hasWritten_, false) && !outputLost_ && !Velk::Descriptor::duplicate(STDOUT_FILENO).close())
    loseOutput(errno);
  return !outputLost_;
}

void WholeSession::putPending() {
  put(pending_);
  pending_.clear();
}

void WholeSession::put(std::string_view text) {
  if (outputLost_ || text.empty()) return;
  hasWritten_ = true;
  progress_.erase();
  if (!Velk::Descriptor::writeTo(STDOUT_FILENO, text)) loseOutput(errno);
}

void WholeSession::loseOutput(int reason) {
  outputLost_ = true;
  progress_.erase();
  worsen(Exit::NoAccess);
  std::fprintf(stderr, "velk: standard output: %s\n", std::strerror(reason));
}

void WholeSession::complain(std::string_view file, std::string_view what) {
  putPending();
  progress_.erase();
  std::string line = "velk: ";
  appendEscaped(line, file, {});
  if (!file.empty()) line += ": ";
  appendEscaped(line, what, {});
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

void WholeSession::worsen(Exit exit) { exit_ = std::max(exit_, exit); }

}  // namespace VelkTool
