// This file is built at -O3, where the loop over the bytes of every file vectorises.
#include "velk/containers/ContentGuess.h"

#include <algorithm>

namespace Velk {
namespace {

using namespace std::string_view_literals;

/// Without branches: the bytes of a memory cannot be predicted. In bytes, for vector code.
bool isTextByte(char c) {
  const auto fromBlank = static_cast<unsigned char>(c - ' ');
  const auto fromTab = static_cast<unsigned char>(c - '\t');
  return (unsigned{fromBlank < '\x7F' - ' '} | unsigned{fromTab <= '\r' - '\t'}) != 0;
}

constexpr std::size_t countedAtOnce = 128;

/// Returns how many of at most 255 bytes are no text, in a loop that compilers make vector code of.
unsigned char countOthers(std::string_view bytes) {
  unsigned char count = 0;
  for (const char c : bytes) count = static_cast<unsigned char>(count + (isTextByte(c) ? 0 : 1));
  return count;
}

bool isAllText(std::string_view contents) {
  return !contents.empty() && std::ranges::all_of(contents.substr(0, 4096), isTextByte);
}

bool isBase64(std::string_view contents) {
  constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=\r\n";
  constexpr std::size_t shortest = 40;
  const std::string_view start = contents.substr(0, 4096);
  return start.size() >= shortest && start.find_first_not_of(digits) == start.npos;
}

/// The first bytes of files that people take for dumps.
struct Signature {
  std::string_view bytes;
  const char* what;
};

constexpr Signature signatures[] = {
    {"\x1F\x8B"sv, "gzip"},
    {"PK\x03\x04"sv, "a ZIP archive"},
    {"\x7F"
     "ELF"sv,
     "an ELF file"},
    {"%PDF-"sv, "a PDF document"},
    {"BZh"sv, "bzip2"},
    {"\xFD"
     "7zXZ"sv,
     "xz"},
    {"\x28\xB5\x2F\xFD"sv, "zstd"},
    {"7z\xBC\xAF"sv, "a 7z archive"},
    {"SQLite format 3"sv, "an SQLite database"},
    {"\x89PNG"sv, "a PNG picture"},
};

}  // namespace

bool looksLikeText(std::string_view contents) {
  const std::string_view start = contents.substr(0, 4096);
  // gzip may hold text as it is.
  if (start.empty() || start.starts_with("\x1F\x8B"sv)) return false;
  // Memories show after a few hundred bytes that they are none.
  std::size_t others = 0;
  for (std::size_t at = 0; at < start.size() && others * 8 <= start.size(); at += countedAtOnce) {
    others += countOthers(start.substr(at, countedAtOnce));
  }
  return others * 8 <= start.size();
}

std::string guessContents(std::string_view contents) {
  const auto begins = [&](const Signature& signature) { return contents.starts_with(signature.bytes); };
  const auto* const found = std::ranges::find_if(signatures, begins);
  const char* const what = found != std::end(signatures) ? found->what
                           : isBase64(contents)          ? "base64 text"
                           : isAllText(contents)         ? "text"
                                                         : nullptr;
  return what == nullptr ? std::string() : std::string("looks like ") + what + "; taken as a raw dump";
}

}  // namespace Velk
