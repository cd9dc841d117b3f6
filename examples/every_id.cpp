#include <algorithm>
#include <stdexcept>
#include <string_view>

#include "ImageBuilder.h"
#include "Images.h"
#include "velk/data/BlockEdit.h"
#include "velk/oldstyle/BlockCatalogue.h"

namespace Examples {
namespace {

using Velk::CatalogueRow;
using Velk::FieldInfo;

/// Values of each list, rows and columns of each table that are used.
constexpr int used = 3;

constexpr std::string_view rowCounts[] = {"count",  "counts",   "rows", "validFreqs", "numberOfOperatingStates",
                                          "length", "macLength"};
constexpr std::string_view columnCounts[] = {"cols", "steps"};

bool isCount(const FieldInfo& field) {
  return std::ranges::count(rowCounts, field.name) != 0 || std::ranges::count(columnCounts, field.name) != 0;
}

/// What a count says: how much of the block's first list or table of numbers is used.
int countOf(const FieldInfo& count, std::span<const FieldInfo> fields) {
  const auto values = std::ranges::find_if(fields, [](const FieldInfo& field) {
    return field.rank > 0 && field.kind == Velk::FieldKind::Number && !isCount(field);
  });
  const bool ofColumns = std::ranges::count(columnCounts, count.name) != 0;
  return std::min<int>(used, ofColumns ? values->cols : values->rows);
}

/// The value of the field that is filled as the number-th: each of a block's values is another one.
std::string valueOf(const FieldInfo& field, int number) {
  if (field.kind == Velk::FieldKind::Date) return "2019-05-" + std::to_string(1 + number % 28);
  if (field.kind == Velk::FieldKind::Text) return "T" + std::to_string(number);
  if (field.type == Velk::ScalarType::F32 || field.type == Velk::ScalarType::F64)
    return std::to_string(number) + ".625";
  using enum Velk::ScalarType;
  const bool isSigned = field.bits.isSigned || field.type == I8 || field.type == I16 || field.type == I32;
  const int bits = field.bits.width != 0 ? field.bits.width : 8 * field.stride;
  const int limit = 1 << std::min(bits - (isSigned ? 1 : 0), 10);
  const int value = number * 37 % limit;
  return std::to_string(isSigned && number % 2 != 0 ? -value : value);
}

/// Fills a block's fields, its lists and tables as far as they are used.
class Filler {
 public:
  Filler(Velk::HwDatablock& block, std::span<const FieldInfo> fields) : block_(block), fields_(fields) {
    fill(fields, "");
    block.setChecksum(block.computeChecksum());
  }

 private:
  void fill(std::span<const FieldInfo> fields, const std::string& prefix) {
    for (const FieldInfo& field : fields) {
      const int rows = field.openEnded ? used : std::min<int>(used, field.rows);
      for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < std::min<int>(used, field.cols); ++column) {
          std::string path = prefix + field.name;
          if (field.rank > 0) path += '[' + std::to_string(row) + ']';
          if (field.rank > 1) path += '[' + std::to_string(column) + ']';
          if (field.type == Velk::ScalarType::Record) {
            fill(field.members, path + '.');
          } else {
            set(path, isCount(field) ? std::to_string(countOf(field, fields)) : valueOf(field, ++number_));
          }
        }
      }
    }
  }

  void set(const std::string& path, const std::string& value) {
    const Velk::detail::MutableBytes bytes(block_.getData(),
                                           static_cast<std::size_t>(block_.getByteArrayData().size()));
    const Velk::BlockData data(bytes, fields_, Velk::Extent::Capacity);
    const Velk::DataLookup found = findValue(data.root(), path);
    if (!found.value || setFieldText(bytes, found.value->element(), value) != Velk::FieldResult::Done) {
      throw std::logic_error("cannot set " + path + " to " + value);
    }
  }

  Velk::HwDatablock& block_;
  std::span<const FieldInfo> fields_;
  int number_ = 0;
};

void addBlocks(ImageBuilder& image, std::span<const CatalogueRow> rows) {
  for (const CatalogueRow& row : rows) {
    for (int id = row.firstId; id <= row.lastId; ++id) {
      if (id == Velk::erasedBlockId) continue;  // ends the image
      const std::unique_ptr<Velk::HwDatablock> block = row.make(static_cast<unsigned short>(id));
      if (row.others.longer) {
        block->resizeData(row.size + used * sizeof(unsigned));
        block->setBlockSize(static_cast<unsigned short>(block->getByteArrayData().size()));
      }
      // Some classes serve ids that they do not give to a new block.
      block->setBlockId(static_cast<unsigned short>(id));
      Filler(*block, row.fields);
      image.add(*block);
    }
  }
}

}  // namespace

QByteArray everyId() {
  ImageBuilder image;
  addBlocks(image, Velk::dictionaryRows());
  addBlocks(image, Velk::otherRows());
  return image.finish(0);
}

}  // namespace Examples
