#include "ImageBuilder.h"
#include "Images.h"
#include "SecondEditionBuilder.h"
#include "velk/edition2/HwDatablockEventCount.h"

namespace Examples {
namespace {

using namespace Velk;

/// Correction values over frequency for two ranges, and when they were taken.
HwDatablock2Edition corrections() {
  return SecondEditionBuilder(1040, 123)
      .add({.rowIdType = TYPE_ID_UINT32,
            .rowIds = {100000, 1000000, 10000000, 100000000},
            .columnIdType = TYPE_ID_STRING,
            .columnIds = {"LOW", "HIGH", "POINTS"},
            .columnTypes = {TYPE_ID_FLOAT, TYPE_ID_DOUBLE, TYPE_ID_UINT16},
            .rows = {{0.25, 0.125, 10}, {0.5, -0.0625, 10}, {1.75, 0.1, 20}, {-2.5, 1e-9, 40}}})
      .add({.columnTypes = {TYPE_ID_CHAR10, TYPE_ID_STRING},
            .rows = {{"2018-06-21", "calibration hall, place 7"}, {"2019-01-09", "after repair"}}})
      .add({.columnIdType = TYPE_ID_CHAR5, .columnIds = {"USER"}, .columnTypes = {TYPE_ID_FLOAT}})
      .finish();
}

/// The least and the greatest value of every type, and a table without columns.
HwDatablock2Edition everyType() {
  Table table{.rowIdType = TYPE_ID_CHAR5, .rowIds = {"LEAST", "MOST"}};
  for (int type = TYPE_ID_UINT8; type <= TYPE_ID_STRING; ++type) table.columnTypes.push_back(ETypeId(type));
  table.rows = {
      {0,     -128,   0,       -32768,  0,       -2147483648.0, 0,   -2147483648.0, -1.5, -2.5, -0.3L, -12.3, -1.23,
       -0.12, -0.012, -1234.5, -123.45, -12.345, -1.2345,       "a", "b",           "c",  "de", "fgh", ""},
      {255,
       127,
       65535,
       32767,
       4294967295.0,
       2147483647,
       4294967295.0,
       2147483647,
       1.5,
       2.5,
       0.3L,
       12.3,
       1.23,
       0.12,
       0.012,
       1234.5,
       123.45,
       12.345,
       1.2345,
       "z",
       "ABCDE",
       "ABCDEFGHIJ",
       "ABCDEFGHIJKLMNO",
       "ABCDEFGHIJKLMNOPQRST",
       "a string"}};
  return SecondEditionBuilder(1041, 25).add(table).add({.rows = {{}, {}}}).finish();
}

/// How often the input was switched and overloaded.
HwDatablockEventCount eventCounts() {
  const unsigned char bytes[] = {0x12, 0x04, 20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xD2, 0x04, 0, 0, 7, 0, 0, 0};
  HwDatablockEventCount block;
  block.setData(bytes, sizeof bytes);
  block.setChecksum(block.computeChecksum());
  return block;
}

}  // namespace

/// A power detector with its calibration in second-edition blocks.
QByteArray detector() {
  HwDatablockIdent ident = identOf("DETECTOR", 14225300, 100871, 1024);
  HwDatablock2Edition correctionBlock = corrections();
  HwDatablock2Edition typeBlock = everyType();
  HwDatablockEventCount counterBlock = eventCounts();
  return ImageBuilder().add(ident).add(correctionBlock).add(typeBlock).add(counterBlock).finish(1024);
}

}  // namespace Examples
