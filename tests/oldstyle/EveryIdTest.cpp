// What the old-style interpreter does with every block id: which ids it prints and which it converts, and how, whatever
// the length of the block.
#include <random>

#include "CatalogueSupport.h"
#include "FieldSupport.h"
#include "RecordSupport.h"
#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"
#include "velk/records/HwDatablockIdent.h"
#include "velk/tables/QelRfboTables.h"

namespace Velk {
namespace {

using VelkTest::ConsoleCapture;
using VelkTest::fromHex;
using VelkTest::hexOf;

constexpr int lastId = 65535;

struct IdRange {
  int first;
  int last;
};

/// The ids that are printed, and those whose blocks are converted: two lists, and neither holds the other.
constexpr IdRange printedIds[] = {
    {2, 10},        {100, 100},     {110, 110},     {120, 120},     {200, 209},     {299, 300},     {10000, 10003},
    {10300, 10316}, {10500, 10504}, {10601, 10605}, {10900, 10902}, {11001, 11001}, {11200, 11200}, {11202, 11204},
    {11300, 11307}, {11310, 11313}, {12000, 12001}, {12004, 12004}, {12040, 12047}, {12050, 12053}, {12060, 12063},
    {12070, 12071}, {12080, 12081}, {12090, 12091}, {12095, 12096}, {12100, 12103}, {12110, 12113}, {12120, 12123},
    {12130, 12133}, {12140, 12143}, {12150, 12153}, {12160, 12163}, {12170, 12173}, {12180, 12183}, {12190, 12193},
    {12200, 12203}, {12210, 12213}, {12220, 12223}, {12230, 12233}, {12240, 12243}, {12250, 12253}, {12260, 12263},
    {12270, 12273}, {12280, 12280}, {12290, 12293}, {12300, 12308}, {12310, 12315}, {12500, 12500}, {13000, 13000},
    {13050, 13050}, {13100, 13103}, {13500, 13500}, {13600, 13600}, {13700, 13700}, {13800, 13800}, {13900, 13900},
    {14000, 14000}, {14100, 14100}, {14200, 14200}, {14300, 14300}, {14400, 14400}, {14500, 14500}, {14600, 14600},
    {14700, 14700}, {14800, 14806}, {15000, 15002}, {15020, 15028}, {15650, 15650}, {15652, 15652}, {15690, 15690},
    {15700, 15701}, {15705, 15706}, {15710, 15710}, {15715, 15716}, {15720, 15721}, {15725, 15726}, {15730, 15731},
    {15735, 15735}, {15740, 15740}, {15745, 15745}, {15750, 15750}, {15755, 15756}, {15760, 15761}, {15770, 15771},
    {15798, 15801}, {15810, 15811}, {15820, 15821}, {15830, 15831}, {15840, 15845}, {15850, 15852}, {16000, 16003},
    {65535, 65535},
};
constexpr IdRange convertedIds[] = {
    {2, 10},        {100, 100},     {110, 110},     {120, 120},     {200, 209},     {300, 300},
    {11310, 11313}, {12000, 12001}, {15690, 15690}, {15700, 15701}, {15705, 15706}, {15710, 15710},
    {15715, 15716}, {15720, 15721}, {15725, 15726}, {15730, 15731}, {15735, 15735}, {15740, 15740},
    {15745, 15745}, {15750, 15750}, {15755, 15756}, {15760, 15761}, {15770, 15771}, {15798, 15801},
    {15810, 15811}, {15820, 15821}, {15830, 15831}, {15840, 15845}, {15850, 15862}, {16000, 16003},
};

bool contains(std::span<const IdRange> ranges, int id) {
  return std::ranges::any_of(ranges, [&](IdRange range) { return id >= range.first && id <= range.last; });
}

/// Calls `visit` with every id of the dictionary and the other rows, and its row.
template <class Visit>
void forEachId(Visit visit) {
  for (const CatalogueRow& row : VelkTest::allRows()) {
    for (int id = row.firstId; id <= row.lastId; ++id) {
      SCOPED_TRACE(std::string(row.className) + ", id " + std::to_string(id));
      visit(row, static_cast<unsigned short>(id));
    }
  }
}

HwDatablock blockOf(const QByteArray& bytes) {
  HwDatablock block(false);
  block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(bytes.constData()),
                                    static_cast<unsigned>(bytes.size()));
  return block;
}

TEST(EveryId, IsPrintedIfItIsInTheDictionary) {
  HwDatablockOldStyleInterpreter interpreter;
  int printed = 0;
  for (int id = 0; id <= lastId; ++id) {
    HwDatablock block(false);
    block.setBlockId(static_cast<unsigned short>(id));
    std::ostringstream os;
    const bool isPrinted = interpreter.printHwDatablockOldStyleInfo(&block, os);
    EXPECT_EQ(isPrinted, contains(printedIds, id)) << id;
    EXPECT_EQ(isPrinted, !os.str().empty()) << id;
    printed += isPrinted ? 1 : 0;
  }
  EXPECT_EQ(printed, 283);
}

/// Lengths at which a block of the row ends before and inside its first value, one in the middle and its last.
std::vector<qsizetype> shorterLengths(const CatalogueRow& row) {
  std::vector<qsizetype> lengths;
  VelkTest::forEachField(row.fields, row.size, [&](const std::string& /*path*/, const FieldElement& element) {
    lengths.push_back(static_cast<qsizetype>(element.offset));
    lengths.push_back(static_cast<qsizetype>(element.offset + element.size / 2));
  });
  std::erase_if(lengths, [](qsizetype length) { return length < qsizetype{sizeof(HwSDatablockHeader)}; });
  if (lengths.empty()) return lengths;
  std::ranges::sort(lengths);
  const std::size_t middle = lengths.size() / 2;
  return {lengths[0], lengths[1], lengths[middle - 1], lengths[middle], lengths[lengths.size() - 2], lengths.back()};
}

TEST(EveryId, PrintsLikeItsClassWhateverIsMissingOrTooMuch) {
  ConsoleCapture console;
  HwDatablockOldStyleInterpreter interpreter;
  const auto textOf = [&](const QByteArray& bytes) {
    HwDatablock block = blockOf(bytes);
    std::ostringstream os;
    EXPECT_TRUE(interpreter.printHwDatablockOldStyleInfo(&block, os));
    block.setDataFormatTyp(PPC_Conform);
    std::ostringstream ofOtherFormat;
    EXPECT_TRUE(interpreter.printHwDatablockOldStyleInfo(&block, ofOtherFormat));
    EXPECT_EQ(ofOtherFormat.str(), os.str());
    EXPECT_EQ(block.getByteArrayData(), bytes) << "printing leaves the block alone";
    return os.str();
  };
  for (const CatalogueRow& row : dictionaryRows()) {
    constexpr unsigned short withoutText = 12004;  // prints its bytes, as many as there are
    for (int id = row.firstId; id <= row.lastId; ++id) {
      SCOPED_TRACE(std::string(row.className) + ", id " + std::to_string(id));
      const std::unique_ptr<HwDatablock> block = row.make(static_cast<unsigned short>(id));
      VelkTest::fillFields(*block, row.fields);
      block->setBlockId(static_cast<unsigned short>(id));
      const QByteArray whole = block->getByteArrayData();
      EXPECT_EQ(textOf(whole), VelkTest::printed(*block));
      if (id == withoutText) continue;
      for (const qsizetype length : shorterLengths(row)) {
        const QByteArray zeros(whole.size() - length, '\0');
        EXPECT_EQ(textOf(whole.first(length)), textOf(whole.first(length) + zeros)) << length << " bytes";
      }
      if (!row.others.longer) {
        EXPECT_EQ(textOf(whole + "\x01\x02\x03"), textOf(whole)) << "bytes after the block";
      }
    }
  }
}

TEST(EveryId, IsPrintedByTheClassOfTheDictionary) {
  HwDatablockOldStyleInterpreter interpreter;
  const auto firstKeyLine = [&](unsigned short id, unsigned size) {
    HwDatablock block(false);
    block.resizeData(size);
    block.setBlockSize(static_cast<unsigned short>(size));
    block.setBlockId(id);
    std::ostringstream os;
    interpreter.printHwDatablockOldStyleInfo(&block, os);
    std::istringstream lines(os.str());
    std::string line;
    while (std::getline(lines, line) && line.starts_with('#')) continue;
    return line;
  };
  EXPECT_EQ(firstKeyLine(10000, 16), "ID:            SSYN_OCXO_REF_CAL_VALUE");
  EXPECT_EQ(firstKeyLine(10000, 56), "ID:            SSYN_OCXO_REF_CAL_VALUE") << "though another class has this size";
  EXPECT_EQ(firstKeyLine(12306, 40016), "ID:  LOOPGAIN_P_VALUE_BASE_PK_LIST");
  EXPECT_EQ(findDictionaryRow(14801)->className, "HwDatablockDacbIqImbalanceRearPh");
  EXPECT_EQ(firstKeyLine(14801, 112), firstKeyLine(14800, 112));
}

TEST(EveryId, DictionaryOwnsItsBlocksAndMayHoldNulls) {
  static int alive = 0;
  struct Counted : HwDatablock {
    Counted() : HwDatablock(false) { ++alive; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() override { --alive; }
  };
  {
    IdHwDatablockOldStyleClassDict dictionary;
    dictionary[7] = new Counted;
    dictionary[3] = new Counted;
    EXPECT_EQ(dictionary[5], nullptr);
    EXPECT_EQ(alive, 2);
    EXPECT_EQ(dictionary.begin()->first, 3);
  }
  EXPECT_EQ(alive, 0);
}

TEST(EveryId, IsConvertedIfItIsInTheListOfConversions) {
  for (int id = -1; id <= lastId + 1; ++id) {
    HwDatablock block(true);
    const bool isConverted = HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, id, &block);
    EXPECT_EQ(isConverted, contains(convertedIds, id)) << id;
    EXPECT_EQ(block.getDataFormatTyp(), isConverted ? PPC_Conform : INTEL_Conform) << id;
  }
}

/// The bytes of a block of `id`, `size` long, that hold anything, with a right size field.
QByteArray anything(std::mt19937& random, unsigned short id, unsigned size) {
  QByteArray bytes(static_cast<qsizetype>(size), '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  const auto store = [&](qsizetype offset, unsigned value) {
    for (qsizetype i = 0; i < 2 && offset + i < bytes.size(); ++i)
      bytes[offset + i] = static_cast<char>(value >> 8 * i);
  };
  store(0, id);
  store(2, size);
  return bytes;
}

/// What a conversion leaves of a block that has the row's layout: of its words the size and the alignment may change,
/// and a name ends at its first zero byte.
QByteArray converted(QByteArray bytes, const CatalogueRow& row, unsigned short id) {
  const bool isIdent = id <= 10;
  const bool isTable = id >= 15690 || (id >= 11310 && id <= 11313);
  if (id == 120) return bytes;
  if (!isTable) {
    bytes[2] = static_cast<char>(row.size);
    bytes[3] = static_cast<char>(row.size >> 8);
  }
  if (!isIdent) bytes[6] = bytes[7] = 0;
  const qsizetype nameOffset = isIdent ? 30 : 8;
  const qsizetype nameLength = isIdent ? 14 : id == 12001 ? 31 : 0;
  const QByteArray name = bytes.mid(nameOffset, nameLength);
  const QByteArray kept(name.constData(), static_cast<qsizetype>(qstrlen(name.constData())));
  return bytes.replace(nameOffset, nameLength, kept.leftJustified(nameLength, '\0'));
}

TEST(EveryId, ConversionChangesWhatItsRuleSaysAndNoOtherByte) {
  ConsoleCapture console;
  std::mt19937 random(3);
  forEachId([&](const CatalogueRow& row, unsigned short id) {
    for (const unsigned size : {0U, 1U, 7U, 8U, row.size - 1U, row.size + 0U, row.size + 5U}) {
      SCOPED_TRACE(std::to_string(size) + " bytes");
      QByteArray before = anything(random, id, size);
      if (size > 35) before[35] = 0;
      HwDatablock block = blockOf(before);
      const bool known = contains(convertedIds, id);
      EXPECT_EQ(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, id, &block), known);
      EXPECT_EQ(block.getDataFormatTyp(), known ? PPC_Conform : INTEL_Conform);
      const QByteArray once = block.getByteArrayData();
      EXPECT_EQ(once, known && size >= row.size ? converted(before, row, id) : before);
      HwDatablockOldStyleInterpreter::swapHwDatablock(INTEL_Conform, id, &block);
      EXPECT_EQ(block.getByteArrayData(), once) << "the way back changes nothing more";
      EXPECT_EQ(block.getDataFormatTyp(), INTEL_Conform);
      block.setDataFormatTyp(PPC_Conform);
      block.verifyChecksum();
      block.setBlockId(id);
      EXPECT_EQ(block.getDataFormatTyp(), PPC_Conform);
    }
  });
}

TEST(EveryId, TheChecksumIsThatOfTheStoredLayout) {
  ConsoleCapture console;
  const auto verifies = [](HwDatablock& block, HwEDataFormatTyp format) {
    block.setDataFormatTyp(format);
    const bool right = block.verifyChecksum();
    EXPECT_EQ(block.getDataFormatTyp(), format);
    return right;
  };
  HwDatablockStereocoderCo table(false);
  table.setStoredValue(1200, 0, 0);
  table.setAlignment(5);
  const QByteArray before = table.getByteArrayData();
  EXPECT_TRUE(verifies(table, INTEL_Conform));
  EXPECT_EQ(table.getByteArrayData(), before);
  EXPECT_FALSE(verifies(table, PPC_Conform)) << "the conversion clears the alignment and keeps the checksum";
  EXPECT_EQ(table.getByteArrayData(), QByteArray(before).replace(6, 1, QByteArray(1, '\0')));

  HwDatablockIdent ident;
  ident.setName("BOARD");
  ident.setAlignment(5);
  const QByteArray kept = ident.getByteArrayData();
  EXPECT_TRUE(verifies(ident, PPC_Conform)) << "its conversion keeps the alignment";
  EXPECT_EQ(ident.getByteArrayData(), kept);
}

TEST(EveryId, ConversionTakesTheLayoutOfTheGivenIdAndKeepsTheHeaders) {
  HwDatablock block = blockOf(fromHex("39 30 0C 00 34 12 05 00 01 02 03 04"));
  EXPECT_TRUE(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, 2, &block));
  EXPECT_EQ(hexOf(block), "39 30 0C 00 34 12 05 00 01 02 03 04") << "shorter than an ident block";
  EXPECT_TRUE(HwDatablockOldStyleInterpreter::swapHwDatablock(INTEL_Conform, 120, &block));
  EXPECT_EQ(hexOf(block), "39 30 0C 00 34 12 05 00 01 02 03 04");
  EXPECT_TRUE(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, 300, &block));
  EXPECT_EQ(hexOf(block), "39 30 0C 00 34 12 00 00 01 02 03 04");
}

}  // namespace
}  // namespace Velk
