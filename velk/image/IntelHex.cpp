#include "velk/image/IntelHex.h"

#include "velk/image/TextRecords.h"

namespace Velk {
namespace {

enum RecordType : unsigned { Data, End, SegmentBase, SegmentEntry, LinearBase, LinearEntry };

/// Bytes of the records of each type but Data.
constexpr std::size_t lengths[] = {0, 0, 2, 4, 2, 4};

/// Length, two bytes of address and type before the data; the checksum after it.
constexpr std::size_t beforeData = 4;
constexpr std::size_t around = beforeData + 1;

/// The part of the address space that 16-bit addresses of records are counted in: beyond its end they start again at
/// its beginning.
struct Window {
  std::uint64_t start;
  std::uint64_t size;
  std::uint64_t base;
};

class IntelHexReader : public detail::RecordReader {
 protected:
  std::string take(std::string_view line) override {
    Record record;
    if (!line.starts_with(':')) return "no ':' at its start";
    if (std::string error = decode(line.substr(1), record); !error.empty()) return error;
    const ConstBytes bytes = record.view();
    if (bytes.size() < around || bytes.size() != bytes[0] + around) return "length of the record is wrong";
    const unsigned char stored = bytes.back();
    const unsigned sum = detail::sumOfBytes(bytes.first(bytes.size() - 1));
    if (((sum + stored) & 0xFFU) != 0) return wrongChecksum(stored, 0U - sum);
    return act(bytes[3], detail::bigEndian(bytes.subspan(1, 2)), bytes.subspan(beforeData, bytes[0]));
  }

 private:
  std::string act(unsigned type, std::uint64_t address, ConstBytes data) {
    if (type >= std::size(lengths)) return "record type " + std::to_string(type) + " is unknown";
    if (type == Data) return takeData(address, data);
    if (data.size() != lengths[type]) return "length does not fit record type " + std::to_string(type);
    const std::uint32_t value = detail::bigEndian(data);
    switch (type) {
      case End:
        details_.ended = true;
        break;
      case SegmentBase:
        window_ = {.start = std::uint64_t{value} << 4U, .size = 0x10000, .base = 0};
        break;
      case LinearBase:
        window_ = {.start = 0, .size = std::uint64_t{1} << 32U, .base = std::uint64_t{value} << 16U};
        break;
      default:
        details_.entry = {.address = value, .segmented = type == SegmentEntry};
    }
    return {};
  }

  std::string takeData(std::uint64_t address, ConstBytes data) {
    noteLength(data.size());
    const std::uint64_t at = window_.base + address;
    const std::size_t inside = std::min<std::uint64_t>(data.size(), window_.size - at);
    std::string error = put(window_.start + at, data.first(inside));
    return error.empty() ? put(window_.start, data.subspan(inside)) : error;
  }

  Window window_{.start = 0, .size = 0x10000, .base = 0};
};

class IntelHexWriter {
 public:
  explicit IntelHexWriter(const ContainerDetails& details) : records_(details) {}

  void data(std::uint64_t address, ConstBytes bytes) {
    const std::uint64_t upper = address >> 16U;
    if (upper != upper_) number(LinearBase, upper);
    upper_ = upper;
    start(Data, bytes.size(), address & 0xFFFFU).bytes(bytes);
    finish();
  }
  void number(RecordType type, std::uint64_t value) {
    const auto count = static_cast<unsigned>(lengths[type]);
    start(type, count, 0).number(value, count);
    finish();
  }
  QByteArray take() { return records_.take(); }

 private:
  detail::RecordWriter& start(RecordType type, std::size_t length, std::uint64_t address) {
    return records_.mark(":").number(length, 1).number(address, 2).number(type, 1);
  }
  void finish() { records_.number(0U - records_.sum(), 1).endLine(); }

  detail::RecordWriter records_;
  std::uint64_t upper_ = 0;
};

}  // namespace

SparseImage readIntelHex(std::string_view text) { return IntelHexReader().read(text); }

QByteArray writeIntelHex(const SparseImage& image) {
  IntelHexWriter writer(image.details);
  detail::forEachPiece(image.segments, image.details.recordLength,
                       [&](std::uint64_t address, ConstBytes bytes) { writer.data(address, bytes); });
  if (const auto& entry = image.details.entry) {
    writer.number(entry->segmented ? SegmentEntry : LinearEntry, entry->address);
  }
  writer.number(End, 0);
  return writer.take();
}

}  // namespace Velk
