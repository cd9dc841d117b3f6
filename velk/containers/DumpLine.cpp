#include "velk/containers/DumpLine.h"

#include <algorithm>
#include <utility>

#include "velk/containers/HexDigits.h"
#include "velk/containers/TextLines.h"

namespace Velk::detail {
namespace {

bool isHex(std::string_view word) { return !word.empty() && std::ranges::all_of(word, isHexDigit); }
bool isAlphanumeric(char c) { return (c >= '0' && c <= '9') || ((c | 0x20) >= 'a' && (c | 0x20) <= 'z'); }

/// Whether a word is what damage may make of `length` hexadecimal digits.
bool isNearlyHex(std::string_view word, std::size_t length) {
  const auto digits = static_cast<std::size_t>(std::ranges::count_if(word, isHexDigit));
  return word.size() + 1 >= length && word.size() <= length + 1 && digits > 0 && digits * 2 >= word.size();
}

class Parser {
 public:
  Parser(std::string_view line, const DumpForm* dump) : line_(line), dump_(dump) {
    margin_ = std::min(line.find_first_not_of(marginMarks), line.size());
    const std::size_t last = line.find_last_not_of(blanks);
    bodyEnd_ = last == line.npos ? margin_ : std::max(margin_, last + 1);
  }

  DumpLine parse() {
    if (line_.substr(margin_, bodyEnd_ - margin_) == "*") return {.kind = DumpLine::Kind::Repeat};
    for (std::size_t at = margin_; at < bodyEnd_; at = wordAfter(at)) {
      if (takeFrom(at)) return result_;
    }
    if (dump_ != nullptr) takeDamaged();
    return result_;
  }

 private:
  std::size_t wordEnd(std::size_t at) const { return std::min(line_.find_first_of(" \t|", at), bodyEnd_); }
  std::size_t wordAfter(std::size_t at) const {
    return std::min(line_.find_first_not_of(marginMarks, std::max(wordEnd(at), at + 1)), bodyEnd_);
  }
  std::string_view wordAt(std::size_t at) const { return line_.substr(at, wordEnd(at) - at); }
  std::size_t afterSpaces(std::size_t at) const { return std::min(line_.find_first_not_of(' ', at), bodyEnd_); }

  /// Takes an offset that begins here and what follows it. Returns false if there is none.
  bool takeFrom(std::size_t at) {
    constexpr std::size_t longest = 16;
    std::string_view word = wordAt(at);
    const bool isWhole = at == margin_ && at + word.size() == bodyEnd_;
    if (word.starts_with("0x")) word.remove_prefix(2);
    DumpForm& form = result_.form;
    form.hasColon = word.ends_with(':');
    if (form.hasColon) word.remove_suffix(1);
    form.width = word.size();
    if (!isHex(word) || word.size() > longest || (dump_ != nullptr && dump_->hasColon != form.hasColon)) return false;
    if (!form.hasColon && word.size() < shortestOffset) return false;
    if (isWhole && !form.hasColon) {
      result_.kind = DumpLine::Kind::Offset;
    } else if (!takeDigits(afterSpaces(wordEnd(at)))) {
      return false;
    }
    result_.offset = word;
    result_.isDoubtful = result_.isDoubtful || std::ranges::any_of(line_.substr(0, at), isAlphanumeric);
    return true;
  }

  /// Takes the bytes of a line. Returns false if none begin here.
  bool takeDigits(std::size_t begin) {
    DumpForm& form = result_.form;
    const std::string_view first = wordAt(begin);
    form.group = dump_ != nullptr ? dump_->group : first.size();
    const bool isGroup = isHex(first) && first.size() % 2 == 0 && (form.hasColon || form.group == 2 || form.group == 4);
    const bool isDamaged = dump_ != nullptr && isNearlyHex(first, form.group);
    if (!isGroup && !isDamaged) return false;
    result_.problem = readGroups(begin);
    if (result_.problem != nullptr) {
      result_.kind = DumpLine::Kind::Wrong;
      result_.count = roomFor(begin);
      return dump_ != nullptr;
    }
    result_.kind = DumpLine::Kind::Bytes;
    result_.digits = line_.substr(begin, result_.end - begin);
    return form.width >= (dump_ != nullptr ? std::min(dump_->width, shortestOffset) : shortestWidth());
  }

  /// Returns how many digits the offset of a line must have at least to be believed.
  std::size_t shortestWidth() const {
    constexpr std::size_t longLine = 8;
    return result_.form.hasColon && result_.count >= longLine ? 2 : shortestOffset;
  }

  /// Reads groups of digits up to two blanks, a bar or a word that is none. Returns what is wrong with them, or null.
  const char* readGroups(std::size_t at) {
    const DumpForm& form = result_.form;
    bool isLast = false;
    result_.count = 0;
    result_.isDoubtful = false;
    while (at < bodyEnd_) {
      const std::string_view word = wordAt(at);
      const bool fits = word.size() == form.group || (form.hasColon && word.size() < form.group);
      if (!isHex(word) && isNearlyHex(word, form.group)) return "not hexadecimal";
      if (!isHex(word)) {
        result_.isDoubtful = !word.empty() && !word.starts_with('>');
        return nullptr;
      }
      if (word.size() % 2 != 0) return "an odd number of digits";
      if (isLast || !fits) return "its groups of digits differ in length";
      isLast = word.size() < form.group;
      result_.count += word.size() / 2;
      result_.end = at + word.size();
      const std::size_t next = afterSpaces(result_.end);
      if (next == result_.end || (next > result_.end + 1 && !isHalfway(next))) {
        // More than the bytes as text.
        result_.isDoubtful = bodyEnd_ - next > result_.count + 2;
        return nullptr;
      }
      at = next;
    }
    return nullptr;
  }

  /// Whether the second half of a line of 16 bytes begins here, after two blanks.
  bool isHalfway(std::size_t at) const {
    return !result_.form.hasColon && result_.form.group == 2 && result_.count == 8 && at == result_.end + 2 &&
           wordAt(at).size() == 2 && isNearlyHex(wordAt(at), 2);
  }

  /// Returns how many bytes the digits of a damaged line seem to be.
  std::size_t roomFor(std::size_t begin) const {
    const bool isPairs = !result_.form.hasColon && result_.form.group == 2;
    const std::size_t end = std::min(isPairs ? line_.find_first_of("|>", begin) : line_.find("  ", begin), bodyEnd_);
    const auto spaces = std::ranges::count(line_.substr(begin, end - begin), ' ');
    return (end - begin - static_cast<std::size_t>(spaces) + 1) / 2;
  }

  /// Takes a line of which the offset is damaged or missing.
  void takeDamaged() {
    constexpr std::size_t fewBytes = 4;
    result_ = {.form = *dump_};
    std::string_view word = wordAt(margin_);
    const bool isGroup = isHex(word) && word.size() == dump_->group;
    const std::size_t begin = isGroup ? margin_ : afterSpaces(wordEnd(margin_));
    if (word.ends_with(':')) word.remove_suffix(1);
    if (!isGroup && !isNearlyHex(word, dump_->width)) return;
    const bool isWrong = readGroups(begin) == nullptr && result_.count >= fewBytes;
    if (!isWrong) return;
    result_.kind = DumpLine::Kind::Wrong;
    result_.problem = isGroup ? "no offset at its start" : "its offset is damaged";
  }

  static constexpr std::size_t shortestOffset = 6;

  std::string_view line_;
  const DumpForm* dump_;
  std::size_t margin_ = 0;   ///< offset of what is neither indentation nor quotation
  std::size_t bodyEnd_ = 0;  ///< offset after the last word
  DumpLine result_{};
};

}  // namespace

DumpLine parseDumpLine(std::string_view line, const DumpForm* dump) { return Parser(line, dump).parse(); }

void DumpLine::appendBytes(QByteArray& bytes) const {
  const qsizetype begin = bytes.size();
  appendHexBytes(bytes, digits);
  if (!form.printsWords()) return;
  for (auto* word = bytes.data() + begin; word < bytes.data() + bytes.size(); word += 2) std::swap(word[0], word[1]);
}

std::optional<bool> DumpLine::textAgrees(std::string_view line, ConstBytes bytes) const {
  const std::size_t ends = form.hasColon ? 0 : 1;  // characters around the text
  if (line.size() < end + bytes.size() + 2 + 2 * ends) return std::nullopt;
  const std::size_t begin = line.size() - ends - bytes.size();
  if (line.substr(end, begin - ends - end).find_first_not_of(' ') != line.npos) return std::nullopt;
  if (ends > 0 && !(line[begin - 1] == '|' && line.back() == '|') && !(line[begin - 1] == '>' && line.back() == '<')) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (line[begin + i] != (isShown(bytes[i]) ? static_cast<char>(bytes[i]) : '.')) return false;
  }
  return true;
}

}  // namespace Velk::detail
