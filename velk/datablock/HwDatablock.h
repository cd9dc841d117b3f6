#pragma once

#include <QByteArray>
#include <array>
#include <cstdint>
#include <iosfwd>

#include "velk/bytes/ByteArray.h"
#include "velk/datablock/HwDatablockTypes.h"
#include "velk/diag/HwObject.h"

namespace Velk {

/// One block of a module memory (serial EEPROM or flash sector): an 8-byte header and a payload, which is described by
/// the block id or, in second-edition blocks, by itself. The base of all datablock classes.
///
/// The block holds its bytes in an implicitly shared QByteArray, which is detached before each write. The bytes are not
/// trusted: a header field that is not wholly inside the buffer reads as 0 and is not written, and a block size beyond
/// the buffer is cut to it. Errors are return values, never exceptions. An object may be used by one thread at a time;
/// buffers may be passed between threads freely.
class VELK_EXPORT HwDatablock : public HwObject {
 public:
  /// The characters of an event counter block's identifier, without a terminating zero.
  static constexpr std::array<char, 16> eventCountIdentifier = {'-', 'E', 'V', 'E', 'N', 'T', '-', '-',
                                                                'C', 'O', 'U', 'N', 'T', 'E', 'R', '-'};
  /// The byte table of the standard CRC-32 (reflected polynomial 0xEDB88320).
  static constexpr std::array<std::uint32_t, 256> sTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
      std::uint32_t crc = i;
      for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
      table[i] = crc;
    }
    return table;
  }();

  /// Makes an empty block: a header with id 0 and size 8. The flag tells callers whether converting the block should
  /// stop at an error; the library only stores it.
  explicit HwDatablock(bool stopConversionOnError);

  /// Returns the block's 16-bit checksum and sets the stored one to 0. Store the result with setChecksum.
  virtual unsigned short computeChecksum();
  /// Returns the 16-bit checksum of a record in memory, at any address; the record is only read.
  virtual unsigned short computeChecksum(unsigned short* words, unsigned short byteCount);

  virtual unsigned short getId();
  /// Returns the size that the header claims; 4 for erased memory.
  virtual unsigned short getBlockSize();
  virtual unsigned short getChecksum();
  virtual unsigned short getAlignment();
  /// Returns the block's bytes, detached, for reading and writing in place; valid until the block changes.
  virtual unsigned char* getData();
  virtual QByteArray getByteArrayData();

  /// Return where the caller found the block in its memory.
  virtual unsigned int getEepromAddress();
  virtual unsigned int getEepromSector();
  virtual HwEDataFormatTyp getDataFormatTyp();
  virtual HwEDatablockClassTyp getDatablockClassTyp();
  /// Returns what an event counter block of this size has in place of a CRC-32.
  virtual unsigned int getMagicIdentifierEventCount();
  virtual bool getStopConversionOnError();

  /// Copies the bytes of `other`, and nothing else.
  virtual void replaceDataInList(HwDatablock* other);

  /// Returns whether the block's 16-bit words add up to 0.
  virtual bool verifyChecksum();
  /// Returns whether a record's 16-bit words add up to 0; it may be at any address. The flag has no effect.
  virtual bool verifyChecksum(unsigned short* words, unsigned short byteCount, bool flag);

  /// All but setBlockSizeWithoutCalcChecksumm and setChecksum update the checksum.
  virtual void setBlockId(unsigned short id);
  virtual void setBlockSize(unsigned short size);
  virtual void setBlockSizeWithoutCalcChecksumm(unsigned short size);
  virtual void setChecksum(unsigned short checksum);
  virtual void setAlignment(unsigned short alignment);

  /// Each setData copies the bytes, whatever they are, and returns whether their checksum is valid; false for null.
  virtual bool setData(QByteArray bytes);
  virtual bool setData(HwDatablock* source);
  virtual bool setDataWithoutChecksumCheck(HwDatablock* source);
  virtual bool setData(const unsigned char* bytes, unsigned int count);
  /// Always returns true; does nothing if `bytes` is null.
  virtual bool setDataWithoutChecksumCheck(const unsigned char* bytes, unsigned int count);
  /// Converts `source` itself to the firmware's layout, then copies its bytes.
  virtual void setHwDatablockFirmwareConform(HwDatablock* source);

  virtual bool setEepromAddress(unsigned int address);
  virtual bool setEepromSector(unsigned int sector);
  /// Sets the byte order that the bytes are said to have; does not convert them.
  virtual bool setDataFormatTyp(HwEDataFormatTyp format);
  virtual bool setDatablockClassTyp(HwEDatablockClassTyp type);

  /// Makes the buffer `size` bytes long: zeroes what it adds, frees what it cuts. Does not update the header.
  virtual void resizeData(unsigned int size);

  /// Writes the block's text form; in this class, the raw bytes in lines of 60.
  virtual std::ostream& printToStream(std::ostream& os);

  /// Returns the CRC-32 at bytes 8 to 11, or 0 if the buffer is shorter.
  unsigned int getChecksum32();
  /// Marks the block for its caller; the library itself never uses the mark.
  void setDatablockToCorrupt(bool corrupt);
  /// Writes `count` bytes in hexadecimal to the Console's output, 16 per line.
  void printHexDump(char* bytes, unsigned int count);

  /// Return the CRC-32 of a block image without its bytes 4 to 11.
  unsigned int computeChecksum32();
  unsigned int computeChecksum32(unsigned char* bytes, unsigned int count);
  /// Returns whether the stored CRC-32 is valid or the block has the event counter identifier; in the latter case, sets
  /// the class type.
  bool verifyChecksum32();
  /// Returns whether this block's stored CRC-32 is that of the given image.
  bool verifyChecksum32(unsigned char* bytes, unsigned int count);

  /// Convert a value in place between the stored layout and the host's.
  static void SwapIntel2Ppc(unsigned short& value);
  static void SwapIntel2Ppc(short& value);
  static void SwapIntel2Ppc(unsigned int& value);
  static void SwapIntel2Ppc(unsigned long& value);  ///< of its lower 32 bits
  static void SwapIntel2Ppc(int& value);
  static void SwapIntel2Ppc(float& value);
  static void SwapIntel2Ppc(double& value);
  static void SwapCharString(char* text, unsigned int length);

  /// Converts a second-edition image in place, by its own description.
  void swapBlock(HwEDataFormatTyp target, char* bytes, unsigned short length);
  /// Converts this block, which is a second-edition block, to `target` unless it has that format.
  void swapBlock(HwEDataFormatTyp target, unsigned short id, HwDatablock* block);
  /// Converts `block` to the target format: by its own description if its CRC-32 is valid, otherwise by block id.
  /// Leaves a block with an unknown id unchanged.
  void swapDataTo(HwEDataFormatTyp target, unsigned short id, HwDatablock* block);

  /// Registers the library's error table; call it once at start-up.
  static void registerErrors();

 protected:
  ConstBytes bytes() const { return bytesOf(data_); }
  /// Returns the buffer, detached.
  MutableBytes mutableBytes();

  /// Returns a word of the header; 0 if it is not wholly inside the buffer.
  template <class T>
  T load(std::size_t offset) const {
    return detail::load<T>(bytes(), offset);
  }
  /// Returns a field of a record; missing bytes count as 0.
  template <class T>
  T loadPadded(std::size_t offset) const {
    return detail::loadPadded<T>(bytes(), offset);
  }
  /// Stores a value. Returns false and stores nothing if it would not lie wholly inside the buffer.
  template <class T>
  bool store(std::size_t offset, T value) {
    return detail::fits(bytes().size(), offset, sizeof(T)) && detail::store(mutableBytes(), offset, value);
  }

 private:
  /// Returns the bytes that the header's size covers, cut to the buffer; a cut is reported under the caller's name.
  ConstBytes checkedBytes(unsigned short id, unsigned short blockSize, const char* operation) const;
  void reportWrongChecksum();

  bool stopConversionOnError_;
  unsigned int eepromAddress_ = 0;
  unsigned int eepromSector_ = 0;
  HwEDataFormatTyp dataFormat_ = INTEL_Conform;
  HwEDatablockClassTyp classType_ = HwDatablockClassOrdinary;
  bool corrupt_ = false;
  QByteArray data_;
};

}  // namespace Velk
