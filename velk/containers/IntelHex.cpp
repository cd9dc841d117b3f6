#include "velk/containers/IntelHex.h"

#include "velk/bytes/ByteArray.h"
#include "velk/bytes/HexText.h"
#include "velk/containers/ContentGuess.h"
#include "velk/containers/RecordReader.h"
#include "velk/containers/RecordWriter.h"

namespace Velk::detail {
namespace {

enum RecordType : unsigned { Data, End, SegmentBase, SegmentEntry, LinearBase, LinearEntry };

/// Bytes of the records of each type but Data.
constexpr std::size_t lengths[] = {0, 0, 2, 4, 2, 4};

/// Length, two bytes of address and type before the data; the checksum after it.
constexpr std::size_t beforeData = 4;
constexpr std::size_t around = beforeData + 1;

/// Addresses that a record can tell apart.
constexpr std::uint64_t reach = 0x10000;

/// The part of the address space that 16-bit addresses of records are counted in: past its end they start again at its
/// beginning.
struct Window {
  std::uint64_t start = 0;
  std::uint64_t size = reach;
  std::uint64_t base = 0;  ///< from the start

  std::uint64_t origin() const { return start + base; }
};

class IntelHexReader : public RecordReader {
 public:
  using RecordReader::RecordReader;

 protected:
  std::size_t findMark(std::string_view line, std::size_t from) const override { return line.find(':', from); }
  std::size_t markLength() const override { return 1; }
  std::string markName() const override { return "':'"; }

  std::string problemOf(const Record& record) const override {
    const ConstBytes bytes = record.view();
    if (bytes.size() < around || bytes.size() != bytes[0] + around) return "length of the record is wrong";
    const unsigned char stored = bytes.back();
    const unsigned sum = sumOfBytes(bytes.first(bytes.size() - 1));
    if (((sum + stored) & 0xFFU) != 0) return checksumProblem(stored, 0U - sum);
    const unsigned type = bytes[3];
    if (type >= std::size(lengths)) return "record type " + std::to_string(type) + " is unknown";
    if (type != Data && bytes[0] != lengths[type]) return "length does not fit record type " + std::to_string(type);
    return {};
  }

  void take(const Record& record) override {
    const ConstBytes data = record.view().subspan(beforeData, record.bytes[0]);
    const unsigned type = record.bytes[3];
    if (type == Data) return takeData(record, data);
    const std::uint32_t value = bigEndian(data);
    switch (type) {
      case End:
        isEnded_ = true;
        window_ = {};
        break;
      case SegmentBase:
        window_ = {.start = std::uint64_t{value} << 4U};
        upper_.reset();
        break;
      case LinearBase:
        takeLinearBase(value);
        break;
      default:
        result_.details.entry = {.address = value, .segmented = type == SegmentEntry};
    }
    isAtWindowEnd_ = false;
  }

  std::optional<AddressRange> claimOf(const Record& record) const override {
    if (record.count < beforeData) return std::nullopt;
    const ConstBytes bytes = record.view();
    if (bytes[3] != Data) return AddressRange{};
    return AddressRange{window_.origin() + bigEndian(bytes.subspan(1, 2)), bytes[0]};
  }

 private:
  void takeData(const Record& record, ConstBytes data) {
    const std::uint64_t address = bigEndian(record.view().subspan(1, 2));
    if (isAtWindowEnd_ && address == 0) goOnWithoutBase();
    if (lateBase_ && result_.places.back().end() == address) {
      report("base address " + hexText(window_.origin(), 8) + " comes after lines that it is for");
      moveToBase(*lateBase_);
    }
    lateBase_.reset();
    noteLength(data.size());
    result_.upperAddress = upper_;
    const std::uint64_t at = window_.base + address;
    const std::size_t inside = std::min<std::uint64_t>(data.size(), window_.size - at);
    place(window_.start + at, data.first(inside), record, beforeData);
    place(window_.start, data.subspan(inside), record, beforeData + inside);
    isAtWindowEnd_ = address + data.size() == reach;
  }

  void takeLinearBase(std::uint32_t upper) {
    const bool isFirst = !hasBase_ && !result_.places.empty();
    const bool isFar = std::uint64_t{upper} << 16U > freelySpanned;
    hasBase_ = true;
    placesBeforeBase_ = result_.places.size();
    window_ = {.start = 0, .size = std::uint64_t{1} << 32U, .base = std::uint64_t{upper} << 16U};
    upper_ = upper;
    if (isFirst && isAtWindowEnd_ && upper > 1 && (isFar || beginsWithWrongLine())) {
      report("base address before this line is missing, taken as " + hexText(window_.base - reach, 8));
      moveToBase(upper - 1);
    } else if (isFirst && isFar) {
      lateBase_ = upper;
    }
  }

  bool beginsWithWrongLine() const { return !result_.wrongLines.empty() && result_.wrongLines[0].before == 0; }

  /// Lines fill 64 KiB and go on from its start without a base address: it is missing, or came before the last line.
  void goOnWithoutBase() {
    const bool isEarly = placesBeforeBase_ > 0 && result_.places.size() == placesBeforeBase_ + 1 &&
                         result_.places.back().address == result_.places[placesBeforeBase_ - 1].end() + reach;
    if (isEarly) {
      result_.places.back().address -= reach;
      return report("base address " + hexText(window_.origin(), 8) + " comes a line too early");
    }
    window_.start += window_.size == reach ? reach : 0;
    window_.base += window_.size == reach ? 0 : reach;
    report("base address is missing, taken as " + hexText(window_.origin(), 8));
    if (upper_) ++*upper_;
  }

  /// Moves the lines before the first base address to one.
  void moveToBase(std::uint64_t upper) {
    for (PlacedBytes& place : result_.places) place.address += upper << 16U;
    for (WrongLine& line : result_.wrongLines) {
      if (line.claimed) line.claimed->address += upper << 16U;
    }
  }

  Window window_{};
  bool isAtWindowEnd_ = false;  ///< the last line's bytes end where 16-bit addresses do
  bool hasBase_ = false;
  std::optional<std::uint64_t> upper_{0};    ///< upper 16 bits of linear addresses, if they are in force
  std::size_t placesBeforeBase_ = 0;         ///< number of placed bytes before the last base address
  std::optional<std::uint32_t> lateBase_{};  ///< the first one, far from the lines before it, until a line follows
};

class IntelHexWriter {
 public:
  IntelHexWriter(const ContainerDetails& details, std::optional<std::uint64_t> upper)
      : details_(details), records_(details), upper_(upper) {}

  void data(std::span<const Stretch> stretches) {
    forEachPiece(stretches, details_.recordLength, [&](std::uint64_t address, ConstBytes bytes) {
      const std::uint64_t upper = address >> 16U;
      if (upper != upper_) number(LinearBase, upper);
      upper_ = upper;
      start(Data, bytes.size(), address & 0xFFFFU).bytes(bytes);
      finish();
      ++count_;
    });
  }
  void number(RecordType type, std::uint64_t value) {
    const auto count = static_cast<unsigned>(lengths[type]);
    start(type, count, 0).number(value, count);
    finish();
  }
  std::size_t count() const { return count_; }
  QByteArray take() { return records_.take(); }

 private:
  RecordWriter& start(RecordType type, std::size_t length, std::uint64_t address) {
    return records_.mark(":").number(length, 1).number(address, 2).number(type, 1);
  }
  void finish() { records_.number(0U - records_.sum(), 1).endLine(); }

  const ContainerDetails& details_;
  RecordWriter records_;
  std::optional<std::uint64_t> upper_;
  std::size_t count_ = 0;
};

AddedLines addLines(std::span<const Stretch> stretches, const ImageFile& image, const ContainerText& read) {
  IntelHexWriter writer(image.details, read.upperAddress);
  writer.data(stretches);
  return {writer.take(), writer.count()};
}

}  // namespace

bool isIntelHex(std::string_view contents) { return looksLikeText(contents) && IntelHexReader(contents).hasRecord(); }

ImageFile readIntelHex(QByteArray contents) {
  ImageFile image = imageOfText(IntelHexReader(textOf(contents)).read(), Container::IntelHex);
  if (image.error.empty()) image.text = std::move(contents);
  return image;
}

QByteArray writeIntelHex(const ImageFile& image) {
  if (!image.text.isEmpty()) return writeBack(image, IntelHexReader(textOf(image.text)).read(), addLines);
  IntelHexWriter writer(image.details, 0);
  writer.data(stretchesOf(image));
  if (const auto& entry = image.details.entry) {
    writer.number(entry->segmented ? SegmentEntry : LinearEntry, entry->address);
  }
  writer.number(End, 0);
  return writer.take();
}

}  // namespace Velk::detail
