#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "Colours.h"
#include "Columns.h"
#include "Commands.h"
#include "FindingReport.h"
#include "Folders.h"
#include "Images.h"
#include "Layout.h"
#include "Plural.h"
#include "Selection.h"
#include "Utf8.h"
#include "ValueText.h"
#include "velk/bytes/HexText.h"
#include "velk/checks/FindingTable.h"
#include "velk/data/AnnotatedBytes.h"
#include "velk/fields/Notation.h"

namespace VelkTool {
namespace {

using Velk::AnnotatedSpan;
using Velk::AnnotatedValue;
using Velk::BlockView;
using Velk::ByteRole;
using Velk::CheckFinding;
using Velk::ConstBytes;

constexpr std::size_t bytesPerLine = 8;
constexpr std::size_t noteColumn = 37;
constexpr std::size_t pageWidth = 80;
constexpr std::size_t indent = 12;

/// Returns the width of the terminal on standard output; the highest number if it is none.
std::size_t terminalWidth() {
  winsize size{};
  const bool isKnown = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col != 0;
  return isKnown ? size.ws_col : ~std::size_t{0};
}

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

/// Calls `act` with the offset and the text of each line of bytes. Of long runs of equal bytes, and of all bytes if
/// `shortens` is set, two lines are shown, and then their number.
template <class Act>
void forEachLine(ConstBytes bytes, bool shortens, Act act) {
  constexpr std::size_t shown = 2 * bytesPerLine;
  constexpr std::size_t longest = 2 * shown;
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

/// Returns the columns at the right of the bytes: the type, the path, and the value or what else there is to say.
std::string note(std::string_view type, std::string_view path, std::string_view text) {
  constexpr std::size_t pathColumn = 6;
  constexpr std::size_t textColumn = 28;
  std::string columns(type);
  padTo(columns, pathColumn);
  columns += path;
  padTo(columns, textColumn);
  return columns.append(text);
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

std::string findingText(const CheckFinding& finding) {
  return std::string(Velk::severityName(finding.severity)) + ": " + finding.text + " [" + finding.kind->code + ']';
}

/// Separates the parts of the output by empty lines.
class Parts {
 public:
  explicit Parts(Session& session) : session_(session) {}

  void begin() {
    if (!std::exchange(isFirst_, false)) session_.write("\n");
  }

 private:
  Session& session_;
  bool isFirst_ = true;
};

/// Writes the lines of a block.
class BlockDump {
 public:
  BlockDump(Session& session, const BlockView& block, std::size_t width)
      : session_(session), block_(block), width_(width) {}

  void write(const std::vector<CheckFinding>& findings) {
    writeHeading();
    for (const CheckFinding& finding : findings) {
      const std::string path = pathOf(finding);
      path.empty() ? writeFinding(finding) : about_[path].push_back(finding);
    }
    for (const AnnotatedSpan& span : annotatedBytes(block_)) writeSpan(span);
    for (const auto& [path, rest] : about_) writeFindings(rest);
  }

  void writeSpan(const AnnotatedSpan& span) {
    const bool hasParts = !span.values.empty() && !bitsOf(span.values.front()).empty();
    std::string first = span.values.empty() ? note("", roleText(span.role), "")
                        : hasParts          ? note(typeOf(span.values.front()), "", "")
                                            : noteOn(span, span.values.front());
    const bool shortens = span.role == ByteRole::Unused || span.role == ByteRole::Stray;
    forEachLine(block_.bytes.subspan(span.offset, span.size), shortens, [&](std::size_t at, const std::string& text) {
      writeLine(offsetText(block_.offset + span.offset + at) + "  " + text, std::exchange(first, {}));
    });
    for (std::size_t i = hasParts ? 0 : 1; i < span.values.size(); ++i) {
      writeLine(std::string(indent, ' ') + bitsOf(span.values[i]), noteOn(span, span.values[i]));
    }
    for (const AnnotatedValue& value : span.values) writeFindingsAbout(value.path);
  }

 private:
  void writeHeading() {
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

  std::string noteOn(const AnnotatedSpan& span, const AnnotatedValue& value) const {
    const bool isPart = !bitsOf(value).empty();
    return note(isPart ? "" : typeOf(value), value.path, textOf(block_, span.role, value));
  }

  void writeLine(std::string line, const std::string& atRight) {
    if (!atRight.empty()) {
      padTo(line, noteColumn);
      line += atRight;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    cutTo(line, width_);
    session_.write(line += '\n');
  }

  /// Writes what was found about a value, or about a list or record of which it is the first one shown.
  void writeFindingsAbout(const std::string& path) {
    for (std::size_t end = 0; end < path.size() && !about_.empty();) {
      end = std::min(path.find_first_of(".[", end + 1), path.size());
      const auto found = about_.find(path.substr(0, end));
      if (found == about_.end()) continue;
      writeFindings(found->second);
      about_.erase(found);
    }
  }

  void writeFindings(const std::vector<CheckFinding>& findings) {
    for (const CheckFinding& finding : findings) writeFinding(finding);
  }

  void writeFinding(const CheckFinding& finding) {
    const std::string text = findingText(finding);
    session_.writeVerdict(wrapped(text, pageWidth, indent), verdictOf(finding.severity));
  }

  Session& session_;
  const BlockView& block_;
  std::size_t width_;
  std::map<std::string, std::vector<CheckFinding>> about_;  ///< not yet written, by path
};

/// Writes the blocks of an image.
class ImageDump {
 public:
  ImageDump(Session& session, Parts& parts, const Input& input)
      : session_(session),
        parts_(parts),
        input_(input),
        options_(checksFor(input, {})),
        checker_(input.image, options_) {
    examineImage();
  }

  void write(SearchedBlocks& searched) {
    const bool isWhole = searched.selection().isEverything();
    if (isWhole) regions_ = input_.image.regions();
    searched.forEach(input_.image, [&](const BlockView& block) { writeBlock(block); });
    if (!isWhole) return;
    writeErasedUpTo(input_.image.bytes().size());
    const std::vector<CheckFinding> rest = takeFindings(noOffset);
    if (!rest.empty()) parts_.begin();
    for (const CheckFinding& finding : rest)
      session_.writeVerdict(wrapped(findingText(finding), pageWidth), verdictOf(finding.severity));
    countErrors(session_, rest);
  }

 private:
  static constexpr std::uint64_t noOffset = ~std::uint64_t{0};

  /// Finds what concerns several blocks before the first of them is written.
  void examineImage() {
    Velk::ImageChecker checker(input_.image, options_);
    for (const BlockView& block : input_.image) checker.check(block);
    for (CheckFinding& finding : checker.finish())
      findings_[finding.offset.value_or(noOffset)].push_back(std::move(finding));
  }

  std::vector<CheckFinding> takeFindings(std::uint64_t offset) {
    const auto found = findings_.find(offset);
    return found == findings_.end() ? std::vector<CheckFinding>() : std::move(found->second);
  }

  void writeBlock(const BlockView& block) {
    writeErasedUpTo(block.offset);
    std::vector<CheckFinding> findings = checker_.check(block);
    std::ranges::move(takeFindings(block.offset), std::back_inserter(findings));
    parts_.begin();
    BlockDump(session_, block, width_).write(findings);
    countErrors(session_, findings);
    written_ = block.offset + block.bytes.size();
  }

  /// Writes the erased memory in front of an offset, which no block covers.
  void writeErasedUpTo(std::uint64_t offset) {
    for (; region_ < regions_.size() && regions_[region_].offset < offset; ++region_) {
      const Velk::Region& region = regions_[region_];
      if (region.offset < written_) continue;  // bytes that are no block are regions too
      parts_.begin();
      session_.write(offsetText(region.offset) + "  " + Velk::lookName(region.look) + ", " +
                     counted(region.size, "byte", "bytes") + '\n');
      const BlockView bytes{.offset = region.offset, .bytes = input_.image.bytes().subspan(region.offset, region.size)};
      BlockDump(session_, bytes, width_).writeSpan({0, bytes.bytes.size(), ByteRole::Unused});
    }
  }

  Session& session_;
  Parts& parts_;
  const Input& input_;
  Velk::CheckOptions options_;
  Velk::ImageChecker checker_;
  std::size_t width_ = terminalWidth();
  std::map<std::uint64_t, std::vector<CheckFinding>> findings_;  ///< about several blocks, by the offset of one
  std::vector<Velk::Region> regions_;
  std::size_t region_ = 0;     ///< the next one
  std::uint64_t written_ = 0;  ///< end of the last block
};

}  // namespace

void addDump(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("dump", "The bytes of memory images, and what each of them is");
  const auto given = addFolderInputs(*command);
  const auto selection = addSelection(*command);
  addColours(*command, session);
  command->footer(
      "A line has up to eight bytes, their type (u16: unsigned, 16 bits), the path of the field and its value. Fields\n"
      "that share bytes follow them on lines of their own. What is wrong is reported below the bytes that it is "
      "about;\n"
      "the name of the check is in brackets. Bytes that are not in use, or all equal, are shortened after two lines.\n"
      "Damaged blocks are shown as far as they go. The exit code is 1 if an error is reported.\n\n"
      "Examples:\n  velk dump module.bin | less\n  velk dump --id IDENT_2 module.bin\n"
      "  velk dump --id '*_FREQ' --nth 1 module.bin");
  command->callback([&session, given, selection] {
    const Inputs inputs = withFilesOfFolders(session, *given);
    SearchedBlocks searched(*selection);
    Parts parts(session);
    forEachInput(session, inputs, [&](const Input& input) {
      if (inputs.namesFiles()) {
        parts.begin();
        session.write(input.name + ":\n");
      }
      ImageDump(session, parts, input).write(searched);
    });
    reportMissing(session, inputs, searched);
  });
}

}  // namespace VelkTool
