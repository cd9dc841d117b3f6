#include "BlockDump.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "Columns.h"
#include "FindingReport.h"
#include "Images.h"
#include "Layout.h"
#include "Plural.h"
#include "Utf8.h"
#include "ValueText.h"
#include "velk/bytes/HexText.h"
#include "velk/checks/FindingTable.h"
#include "velk/fields/Notation.h"

namespace VelkTool {
namespace {

using Velk::AnnotatedSpan;
using Velk::AnnotatedValue;
using Velk::BlockView;
using Velk::ByteRole;
using Velk::CheckFinding;
using Velk::ConstBytes;

constexpr std::size_t pageWidth = 80;
constexpr std::size_t indent = 12;  ///< of the bytes

/// Cuts a line to a number of characters.
void cutTo(std::string& line, std::size_t width) {
  constexpr std::string_view mark = "...";
  std::size_t cut = 0;
  std::size_t characters = 0;
  for (std::size_t at = 0; at < line.size(); ++characters) {
    if (characters + mark.size() <= width) cut = at;
    const auto character = takeUtf8(std::string_view(line).substr(at));
    at += character ? character->length : 1;
  }
  if (characters > width) line.replace(cut, line.npos, mark);
}

/// Returns how many bytes from an offset on are equal.
std::size_t equalFrom(ConstBytes bytes, std::size_t at) {
  const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(at);
  const auto other = std::find_if(first, bytes.end(), [&](unsigned char byte) { return byte != *first; });
  return static_cast<std::size_t>(other - first);
}

/// Calls `act` with the offset and the text of each line of at most `bytesPerLine` bytes. Of long runs of equal bytes,
/// and of all bytes if `shortens` is set, two lines are shown, and then their number.
template <class Act>
void forEachLine(ConstBytes bytes, std::size_t bytesPerLine, bool shortens, Act act) {
  const std::size_t shown = 2 * bytesPerLine;
  const std::size_t longest = 2 * shown;
  const auto showLine = [&](std::size_t at) {
    std::string text;
    for (const unsigned char byte : bytes.subspan(at, std::min(bytesPerLine, bytes.size() - at))) {
      if (!text.empty()) text += ' ';
      text += {Velk::detail::hexDigits[byte >> 4U], Velk::detail::hexDigits[byte & 0xFU]};
    }
    act(at, text);
  };
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t rest = bytes.size() - at;
    const std::size_t equal = equalFrom(bytes, at);
    const std::size_t run = shortens || equal == rest ? rest : equal / bytesPerLine * bytesPerLine;
    showLine(at);
    if (run > longest) {
      showLine(at + bytesPerLine);
      const std::string number = std::to_string(run - shown);
      act(at + shown, "... " + number + " more" + (equal >= run ? ", all " + Velk::detail::hexText(bytes[at], 2) : ""));
      at += run;
    } else {
      at += std::min(bytesPerLine, rest);
    }
  }
}

const char* roleText(ByteRole role) {
  switch (role) {
    case ByteRole::Padding:
      return "padding";
    case ByteRole::Uncovered:
      return "bytes that no field covers";
    case ByteRole::Stray:
      return "bytes of no block";
    default:
      return "";
  }
}

std::string typeOf(const AnnotatedValue& value) {
  if (!value.element) return "";
  switch (value.element->field->kind) {
    case Velk::FieldKind::Text:
      return "text";
    case Velk::FieldKind::Date:
      return "date";
    default:
      return typeCode(value.element->field->type);
  }
}

/// Returns which bits of its bytes a value has; empty if it has all.
std::string bitsOf(const AnnotatedValue& value) {
  return value.element && value.element->field->bits.width != 0 ? bitsText(*value.element->field) : "";
}

std::string textOf(const BlockView& block, ByteRole role, const AnnotatedValue& value) {
  if (!value.element) return role == ByteRole::Unknown ? "" : "unused";
  const Velk::FieldElement& element = *value.element;
  const bool isAddress = element.field->notation == Velk::Notation::Address && !value.isCut;
  std::string text;
  if (role == ByteRole::Checksum && !value.isCut) {
    text = Velk::detail::hexText(static_cast<std::uint64_t>(integerValue(block.bytes, element)),
                                 static_cast<unsigned>(2 * element.size));
  } else if (isAddress) {
    text = Velk::addressText(block.bytes.subspan(element.offset, element.size));
  } else if (!value.isCut || element.field->kind == Velk::FieldKind::Text) {
    text = valueText(block.bytes, element, Velk::ValueForm::Presented);
  }
  if (value.isCut) text += text.empty() ? "cut off" : ", cut off";
  return text;
}

/// Returns the path of what a finding is about; empty if that is the whole block.
std::string pathOf(const CheckFinding& finding) {
  const std::size_t index = *Velk::findKind(finding.kind->code);
  return index < Velk::findingCount ? Velk::headerPathOf(static_cast<Velk::Finding>(index)) : finding.path;
}

}  // namespace

DumpColumns DumpColumns::ofOutput() {
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return {};
  if (size.ws_col >= pageWidth) return {.width = size.ws_col};
  return {.width = size.ws_col, .bytes = 4, .path = 17};
}

void BlockDump::write(const std::vector<CheckFinding>& findings) {
  writeHeading();
  for (const CheckFinding& finding : findings) {
    const std::string path = pathOf(finding);
    path.empty() ? writeFinding(session_, finding, columns_, indent) : about_[path].push_back(finding);
  }
  for (const AnnotatedSpan& span : annotatedBytes(block_)) writeSpan(span);
  for (const auto& [path, rest] : about_) {
    for (const CheckFinding& finding : rest) writeFinding(session_, finding, columns_, indent);
  }
}

void BlockDump::writeSpan(const AnnotatedSpan& span) {
  const bool hasParts = !span.values.empty() && !bitsOf(span.values.front()).empty();
  std::string first = span.values.empty() ? note("", roleText(span.role), "")
                      : hasParts          ? note(typeOf(span.values.front()), "", "")
                                          : noteOn(span, span.values.front());
  const bool shortens = span.role == ByteRole::Unused || span.role == ByteRole::Stray;
  forEachLine(block_.bytes.subspan(span.offset, span.size), columns_.bytes, shortens,
              [&](std::size_t at, const std::string& text) {
                writeLine(offsetText(block_.offset + span.offset + at) + "  " + text, std::exchange(first, {}));
              });
  for (std::size_t i = hasParts ? 0 : 1; i < span.values.size(); ++i) {
    writeLine(std::string(indent, ' ') + bitsOf(span.values[i]), noteOn(span, span.values[i]));
  }
  for (const AnnotatedValue& value : span.values) writeFindingsAbout(value.path);
}

void BlockDump::writeHeading() {
  const bool isStray = block_.kind == Velk::BlockKind::Stray;
  std::string name = Velk::blockName(block_);
  name.erase(name.find_last_not_of(' ') + 1);
  std::string line = offsetText(block_.offset) + "  " + name;
  if (!isStray) line += ", id " + std::to_string(block_.id);
  line += std::string(", ") + Velk::kindName(block_.kind) + ", " + counted(block_.bytes.size(), "byte", "bytes");
  if (block_.found == Velk::Found::OutOfSequence) line += ", out of sequence";
  line += std::string(": ") + Velk::verdictName(block_) + '\n';
  session_.writeVerdict(line, block_.isSound() ? Verdict::Sound : Verdict::Damaged);
}

/// Returns the columns at the right of the bytes: the type, the path, and the value or what else there is to say.
std::string BlockDump::note(std::string_view type, std::string_view path, std::string_view text) const {
  constexpr std::size_t pathColumn = 6;
  std::string columns(type);
  padTo(columns, pathColumn);
  columns += path;
  padTo(columns, pathColumn + columns_.path);
  return columns.append(text);
}

std::string BlockDump::noteOn(const AnnotatedSpan& span, const AnnotatedValue& value) const {
  const bool isPart = !bitsOf(value).empty();
  return note(isPart ? "" : typeOf(value), value.path, textOf(block_, span.role, value));
}

void BlockDump::writeLine(std::string line, const std::string& atRight) {
  if (!atRight.empty()) {
    padTo(line, indent + 3 * columns_.bytes + 1);
    line += atRight;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  cutTo(line, columns_.width);
  session_.write(line += '\n');
}

/// Writes what was found about a value, or about a list or record of which it is the first one shown.
void BlockDump::writeFindingsAbout(const std::string& path) {
  for (std::size_t end = 0; end < path.size() && !about_.empty();) {
    end = std::min(path.find_first_of(".[", end + 1), path.size());
    const auto found = about_.find(path.substr(0, end));
    if (found == about_.end()) continue;
    for (const CheckFinding& finding : found->second) writeFinding(session_, finding, columns_, indent);
    about_.erase(found);
  }
}

void writeFinding(Session& session, const CheckFinding& finding, const DumpColumns& columns, std::size_t blanks) {
  const std::string text =
      std::string(Velk::severityName(finding.severity)) + ": " + finding.text + " [" + finding.kind->code + ']';
  session.writeVerdict(wrapped(text, std::min(columns.width, pageWidth), blanks), verdictOf(finding.severity));
}

}  // namespace VelkTool
