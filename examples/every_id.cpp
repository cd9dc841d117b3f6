#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "ImageBuilder.h"
#include "Images.h"
#include "velk/oldstyle/BlockCatalogue.h"

namespace Examples {
namespace {

using Velk::CatalogueRow;
using Velk::FieldInfo;

/// The number of elements in use of each list, and of rows and columns of each table.
constexpr int used = 3;

/// Returns the value of a count field, or nothing for other fields.
std::optional<int> countOf(const FieldInfo& field, std::span<const FieldInfo> fields) {
  const std::string_view name = field.name;
  if (name == "counts") return used;  // of each row
  for (const FieldInfo& counted : fields) {
    if (name == counted.usedRows) return std::min<int>(used, counted.rows);
    if (name == counted.usedCols) return std::min<int>(used, counted.cols);
  }
  return std::nullopt;
}

/// Returns a value for the field that is filled as the number-th, different for each value of a block.
std::string valueOf(const FieldInfo& field, int number) {
  if (field.kind == Velk::FieldKind::Date) return "2019-05-" + std::to_string(1 + number % 28);
  if (field.kind == Velk::FieldKind::Text) return std::string("T").append(std::to_string(number));
  if (field.type == Velk::ScalarType::F32 || field.type == Velk::ScalarType::F64)
    return std::to_string(number) + ".625";
  using enum Velk::ScalarType;
  const bool isSigned = field.bits.isSigned || field.type == I8 || field.type == I16 || field.type == I32;
  const int bits = field.bits.width != 0 ? field.bits.width : 8 * field.stride;
  const int limit = 1 << std::min(bits - (isSigned ? 1 : 0), 10);
  const int value = number * 37 % limit;
  return std::to_string(isSigned && number % 2 != 0 ? -value : value);
}

/// Fills the fields of a block, and the elements in use of its lists and tables.
class Filler {
 public:
  Filler(Velk::HwDatablock& block, std::span<const FieldInfo> fields)
      : bytes_(block.getData(), static_cast<std::size_t>(block.getByteArrayData().size())) {
    fill(fields, 0);
  }

 private:
  void fill(std::span<const FieldInfo> fields, std::size_t base) {
    for (const FieldInfo& field : fields) {
      const int rows = field.openEnded ? used : std::min<int>(used, field.rows);
      for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < std::min<int>(used, field.cols); ++column) {
          const std::size_t offset =
              base + field.offset + static_cast<std::size_t>(row * field.cols + column) * field.stride;
          if (field.type == Velk::ScalarType::Record) {
            fill(field.members, offset);
          } else if (const std::optional<int> count = countOf(field, fields)) {
            set(field, offset, std::to_string(*count));
          } else {
            set(field, offset, valueOf(field, ++number_));
          }
        }
      }
    }
  }

  void set(const FieldInfo& field, std::size_t offset, const std::string& value) {
    if (Velk::setFieldText(bytes_, {&field, offset}, value) != Velk::FieldResult::Done) {
      throw std::logic_error(std::string(field.name) + " cannot be " + value);
    }
  }

  Velk::MutableBytes bytes_;
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
      // Some classes serve several ids, but always create blocks with the same one.
      block->setBlockId(static_cast<unsigned short>(id));
      Filler(*block, row.fields);
      block->setChecksum(block->computeChecksum());
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
