#include "velk/image/SRecord.h"

#include "velk/bytes/ByteArray.h"
#include "velk/image/TextRecords.h"

namespace Velk {
namespace {

/// Bytes of the address, or of what stands in its place, by the digit after the S; 0 where there is no such record.
constexpr std::size_t addressLengths[] = {2, 2, 3, 4, 0, 2, 3, 4, 3, 2};

constexpr bool isData(unsigned type) { return type >= 1 && type <= 3; }
constexpr bool isEnd(unsigned type) { return type >= 7; }
/// The end record that goes with each kind of data record.
constexpr unsigned endOf(unsigned dataType) { return 10 - dataType; }

class SRecordReader : public detail::RecordReader {
 protected:
  std::string take(std::string_view line) override {
    Record record;
    if (line.size() < 2 || line[0] != 'S' || line[1] < '0' || line[1] > '9') return "no S and digit at its start";
    const auto type = static_cast<unsigned>(line[1] - '0');
    const std::size_t addressLength = addressLengths[type];
    if (addressLength == 0) return "record type S" + std::to_string(type) + " is unknown";
    if (std::string error = decode(line.substr(2), record); !error.empty()) return error;
    const ConstBytes bytes = record.view();
    if (bytes.size() < addressLength + 2 || bytes.size() != bytes[0] + 1U) return "length of the record is wrong";
    const unsigned char stored = bytes.back();
    const unsigned sum = detail::sumOfBytes(bytes.first(bytes.size() - 1));
    if (sum + stored != 0xFF) return wrongChecksum(stored, ~sum);
    return act(type, detail::bigEndian(bytes.subspan(1, addressLength)),
               bytes.subspan(1 + addressLength, bytes.size() - addressLength - 2));
  }

 private:
  std::string act(unsigned type, std::uint32_t address, ConstBytes data) {
    if (isData(type)) return takeData(address, data);
    if (type == 0) {
      details_.header = QByteArray(reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size()));
      return {};
    }
    if (!data.empty()) return "length does not fit record type S" + std::to_string(type);
    if (isEnd(type)) {
      details_.entry = {.address = address};
      details_.ended = true;
    } else if (address != count_) {
      return std::to_string(address) + " data records are counted, there are " + std::to_string(count_);
    }
    return {};
  }

  std::string takeData(std::uint64_t address, ConstBytes data) {
    ++count_;
    noteLength(data.size());
    if (address + data.size() > std::uint64_t{1} << 32U) return "goes beyond the last address";
    return put(address, data);
  }

  std::uint64_t count_ = 0;
};

/// The data record of the shortest addresses that reach everything.
unsigned dataTypeFor(const SparseImage& image) {
  const std::uint64_t entry = image.details.entry ? image.details.entry->address : 0;
  const std::uint64_t last = image.segments.empty() ? 0 : image.segments.back().end() - 1;
  const std::uint64_t highest = std::max(entry, last);
  if (highest > 0xFFFFFF) return 3;
  return highest > 0xFFFF ? 2 : 1;
}

void writeRecord(detail::RecordWriter& records, unsigned type, std::uint64_t address, ConstBytes data) {
  const std::size_t addressLength = addressLengths[type];
  const char mark[] = {'S', static_cast<char>('0' + type)};
  records.mark({mark, sizeof mark}).number(addressLength + data.size() + 1, 1);
  records.number(address, static_cast<unsigned>(addressLength)).bytes(data);
  records.number(0xFFU - records.sum(), 1).endLine();
}

}  // namespace

SparseImage readSRecords(std::string_view text) { return SRecordReader().read(text); }

QByteArray writeSRecords(const SparseImage& image) {
  constexpr std::size_t longestRecord = 255;
  const unsigned type = dataTypeFor(image);
  const std::size_t longest =
      std::min<std::size_t>(image.details.recordLength, longestRecord - 1 - addressLengths[type]);
  detail::RecordWriter records(image.details);
  if (const QByteArray& header = image.details.header; !header.isEmpty()) {
    writeRecord(records, 0, 0, bytesOf(header));
  }
  detail::forEachPiece(image.segments, longest,
                       [&](std::uint64_t address, ConstBytes bytes) { writeRecord(records, type, address, bytes); });
  writeRecord(records, endOf(type), image.details.entry ? image.details.entry->address : 0, {});
  return records.take();
}

}  // namespace Velk
