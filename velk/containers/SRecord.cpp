#include "velk/containers/SRecord.h"

#include "velk/bytes/ByteArray.h"
#include "velk/containers/ContentGuess.h"
#include "velk/containers/RecordReader.h"
#include "velk/containers/RecordWriter.h"

namespace Velk::detail {
namespace {

/// Bytes of the address, or of what stands in its place, by the digit after the S; 0 if there is no such record.
constexpr std::size_t addressLengths[] = {2, 2, 3, 4, 0, 2, 3, 4, 3, 2};

constexpr bool isData(unsigned type) { return type >= 1 && type <= 3; }
constexpr bool isEnd(unsigned type) { return type >= 7; }
/// Returns the end record that goes with each kind of data record.
constexpr unsigned endOf(unsigned dataType) { return 10 - dataType; }

unsigned typeOf(const Record& record) { return static_cast<unsigned>(record.type - '0'); }

class SRecordReader : public RecordReader {
 public:
  using RecordReader::RecordReader;

 protected:
  std::size_t findMark(std::string_view line, std::size_t from) const override {
    for (; from + 1 < line.size(); ++from) {
      const bool isMark = line[from] == 'S' || line[from] == 's';
      if (isMark && line[from + 1] >= '0' && line[from + 1] <= '9') return from;
    }
    return line.npos;
  }
  std::size_t markLength() const override { return 2; }
  std::string markName() const override { return "S and digit"; }

  std::string problemOf(const Record& record) const override {
    const unsigned type = typeOf(record);
    const std::size_t addressLength = addressLengths[type];
    if (addressLength == 0) return "record type S" + std::to_string(type) + " is unknown";
    const ConstBytes bytes = record.view();
    if (bytes.size() < addressLength + 2 || bytes.size() != bytes[0] + 1U) return "length of the record is wrong";
    const unsigned char stored = bytes.back();
    const unsigned sum = sumOfBytes(bytes.first(bytes.size() - 1));
    if (((sum + stored) & 0xFFU) != 0xFF) return checksumProblem(stored, ~sum);
    const std::size_t dataLength = bytes.size() - addressLength - 2;
    if (type >= 5 && dataLength != 0) return "length does not fit record type S" + std::to_string(type);
    if (isOfOtherType(record)) {
      return "record type is S" + std::to_string(type) + ", as S" + std::to_string(lastType_) +
             " it continues the lines before it";
    }
    const bool isTooHigh = isData(type) && std::uint64_t{addressOf(record)} + dataLength > std::uint64_t{1} << 32U;
    return isTooHigh ? "goes beyond the last address" : "";
  }

  void take(const Record& record) override {
    const unsigned type = typeOf(record);
    const std::uint32_t address = addressOf(record);
    const std::size_t first = 1 + addressLengths[type];
    const ConstBytes data = record.view().subspan(first, record.count - first - 1);
    if (isData(type)) {
      ++dataRecords_;
      lastType_ = type;
      noteLength(data.size());
      noteAddress(addressLengths[type]);
      place(address, data, record, first);
    } else if (type == 0) {
      result_.details.header = toByteArray(data);
    } else if (isEnd(type)) {
      result_.details.entry = {.address = address};
      isEnded_ = true;
    } else {
      takeCount(record, address);
    }
  }

  std::optional<AddressRange> claimOf(const Record& record) const override {
    const std::size_t addressLength = addressLengths[typeOf(record)];
    if (!isData(typeOf(record))) return AddressRange{};
    if (record.count < 1 + addressLength || record.bytes[0] < addressLength + 1) return std::nullopt;
    return AddressRange{addressOf(record), record.bytes[0] - addressLength - 1};
  }

 private:
  static std::uint32_t addressOf(const Record& record) { return addressOf(record, typeOf(record)); }
  static std::uint32_t addressOf(const Record& record, unsigned type) {
    return bigEndian(record.view().subspan(1, addressLengths[type]));
  }

  /// The checksum does not cover the type. A record is damaged there if it continues the lines before it once it is
  /// read as one of theirs, and only then.
  bool isOfOtherType(const Record& record) const {
    if (lastType_ == 0 || typeOf(record) == lastType_ || result_.places.empty()) return false;
    if (record.count <= addressLengths[lastType_] + 2) return false;
    const std::uint64_t next = result_.places.back().end();
    return addressOf(record, lastType_) == next && addressOf(record) != next;
  }

  void noteAddress(std::size_t length) {
    result_.details.addressBytes = std::max(result_.details.addressBytes, static_cast<unsigned char>(length));
  }

  void takeCount(const Record& record, std::uint32_t count) {
    if (count != dataRecords_) {
      report(std::to_string(count) + " data records are counted, there are " + std::to_string(dataRecords_));
    }
    result_.count = {.digits = record.digitsOf(1), .size = static_cast<unsigned>(addressLengths[typeOf(record)])};
    isCounted_ = true;
  }

  std::uint64_t dataRecords_ = 0;
  unsigned lastType_ = 0;  ///< of the data records, 0 before the first
};

/// Returns the data record whose addresses reach everything.
unsigned dataTypeFor(const ImageFile& image) {
  const std::uint64_t entry = image.details.entry ? image.details.entry->address : 0;
  const std::uint64_t end = image.address + static_cast<std::uint64_t>(image.bytes.size());
  const std::uint64_t highest = std::max(entry, end == 0 ? 0 : end - 1);
  const unsigned needed = highest > 0xFFFFFF ? 3 : highest > 0xFFFF ? 2 : 1;
  const unsigned addressBytes = image.details.addressBytes;
  return std::max(needed, addressBytes == 0 ? 0 : addressBytes - 1);
}

void writeRecord(RecordWriter& records, unsigned type, std::uint64_t address, ConstBytes data) {
  const std::size_t addressLength = addressLengths[type];
  const char mark[] = {'S', static_cast<char>('0' + type)};
  records.mark({mark, sizeof mark}).number(addressLength + data.size() + 1, 1);
  records.number(address, static_cast<unsigned>(addressLength)).bytes(data);
  records.number(0xFFU - records.sum(), 1).endLine();
}

/// Writes the data records of stretches. Returns their number.
std::size_t writeData(RecordWriter& records, unsigned type, std::span<const Stretch> stretches,
                      const ImageFile& image) {
  constexpr std::size_t longestRecord = 255;
  const std::size_t longest =
      std::min<std::size_t>(image.details.recordLength, longestRecord - 1 - addressLengths[type]);
  std::size_t count = 0;
  forEachPiece(stretches, longest, [&](std::uint64_t address, ConstBytes bytes) {
    writeRecord(records, type, address, bytes);
    ++count;
  });
  return count;
}

AddedLines addLines(std::span<const Stretch> stretches, const ImageFile& image, const ContainerText&) {
  RecordWriter records(image.details);
  const std::size_t count = writeData(records, dataTypeFor(image), stretches, image);
  return {records.take(), count};
}

}  // namespace

bool isSRecord(std::string_view contents) { return looksLikeText(contents) && SRecordReader(contents).hasRecord(); }

ImageFile readSRecord(QByteArray contents) {
  ImageFile image = imageOfText(SRecordReader(textOf(contents)).read(), Container::SRecord);
  if (image.error.empty()) image.text = std::move(contents);
  return image;
}

QByteArray writeSRecord(const ImageFile& image) {
  if (!image.text.isEmpty()) return writeBack(image, SRecordReader(textOf(image.text)).read(), addLines);
  const unsigned type = dataTypeFor(image);
  RecordWriter records(image.details);
  if (const QByteArray& header = image.details.header; !header.isEmpty()) writeRecord(records, 0, 0, bytesOf(header));
  writeData(records, type, stretchesOf(image), image);
  writeRecord(records, endOf(type), image.details.entry ? image.details.entry->address : 0, {});
  return records.take();
}

}  // namespace Velk::detail
