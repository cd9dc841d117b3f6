#include "Images.h"

#include <charconv>

#include "velk/image/ImageFile.h"

namespace VelkTool {

void forEachImage(Session& session, const std::vector<std::string>& files,
                  const std::function<void(const std::string& file, const Velk::MemoryImage& image)>& act) {
  for (const std::string& file : files) {
    Velk::ImageFile read = Velk::readImageFile(file);
    if (read.error.empty()) {
      act(file, Velk::MemoryImage(std::move(read.bytes)));
    } else {
      session.complain(file, read.error);
      session.worsen(Exit::NoAccess);
    }
  }
}

std::string offsetText(std::uint64_t offset) {
  constexpr std::size_t width = 8;
  char digits[16];
  const auto end = std::to_chars(digits, digits + sizeof digits, offset, 16).ptr;
  std::string text(digits, end);
  for (char& digit : text) digit = digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return "0x" + text;
}

std::string placeText(const Velk::BlockView& block) {
  const std::string place = "offset " + offsetText(block.offset);
  return block.kind == Velk::BlockKind::Stray ? place : place + ", id " + std::to_string(block.id);
}

void complainOf(Session& session, const std::string& file, const Velk::BlockView& block) {
  if (block.isSound()) return;
  session.worsen(Exit::Findings);
  for (std::size_t i = 0; i < Velk::findingCount; ++i) {
    const auto finding = static_cast<Velk::Finding>(i);
    if (block.has(finding)) session.complain(file, placeText(block) + ": " + Velk::describe(block, finding));
  }
}

}  // namespace VelkTool
