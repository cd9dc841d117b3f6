#include "velk/data/ValueAxes.h"

#include <algorithm>

namespace Velk {
namespace {

const FieldInfo* findField(std::span<const FieldInfo> fields, std::string_view name) {
  const auto found =
      std::ranges::find(fields, name, [](const FieldInfo& field) { return std::string_view(field.name); });
  return found == fields.end() ? nullptr : &*found;
}

/// Returns whether a pair is about the values at a path: those of the field that it names, and of all below it.
bool isAbout(const BlockPair& pair, std::string_view path) {
  const std::string_view values = pair.values;
  return path.starts_with(values) && (path.size() == values.size() || path[values.size()] == '.');
}

}  // namespace

ValueAxis::ValueAxis(const BlockPair& pair, const BlockView* points) : pair_(&pair) {
  const CatalogueRow* const row = points != nullptr ? points->row : findCatalogueRow(pair.axisId);
  if (row == nullptr) return;
  fields_ = row->fields;
  const std::string_view path = pair.points;
  const std::size_t point = path.find('.');
  list_ = findField(fields_, path.substr(0, point));
  points_ = list_ == nullptr || point == path.npos ? list_ : findField(list_->members, path.substr(point + 1));
  if (points != nullptr) bytes_ = points->bytes;
}

const char* ValueAxis::unit() const {
  const bool hasUnit = points_ != nullptr && *points_->unit != '\0';
  return hasUnit ? points_->unit : what().unit;
}

std::size_t ValueAxis::countOfPoints(std::size_t list) const {
  const std::size_t rows = elementsInUse(bytes_, fields_, 0, list_->usedRows, list_->rows);
  if (!isTable() || pair_->axis == Axis::Rows) return rows;
  // Some tables count the points of each row.
  const FieldInfo* const counts = findField(fields_, "counts");
  if (pair_->count != PairCount::EqualByRow || counts == nullptr || list >= counts->rows) {
    return elementsInUse(bytes_, fields_, 0, list_->usedCols, list_->cols);
  }
  const std::int64_t count = integerValue(bytes_, {counts, counts->offset + list * counts->stride});
  return static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, list_->cols));
}

std::size_t ValueAxis::listOf(ValuePlace value) const {
  return pair_->axis == Axis::Columns ? value.row / pair_->rowsPerList : value.column;
}

std::optional<std::size_t> ValueAxis::valuesInUse(ValuePlace value) const {
  const bool countsPoints = pair_->count == PairCount::Points || pair_->count == PairCount::EqualByRow;
  if (!countsPoints || points_ == nullptr || bytes_.empty()) return std::nullopt;
  return countOfPoints(listOf(value));
}

std::optional<FieldElement> ValueAxis::point(ValuePlace value) const {
  if (points_ == nullptr || bytes_.empty()) return std::nullopt;
  const std::size_t along = pair_->axis == Axis::Columns ? value.column : value.row;
  const std::size_t across = listOf(value);
  std::size_t row = along;
  std::size_t column = 0;
  if (isTable() && pair_->axis == Axis::Columns) {
    row = across;
    column = along;
  } else if (isTable()) {
    column = across;
  }
  if (along >= countOfPoints(across) || row >= list_->rows || column >= list_->cols) return std::nullopt;
  const std::size_t offset = list_->offset + (row * list_->cols + column) * list_->stride;
  const FieldElement element{points_, points_ == list_ ? offset : offset + points_->offset};
  return element.isInside(bytes_.size()) ? std::optional(element) : std::nullopt;
}

ImageAxes::ImageAxes(const MemoryImage& image) {
  for (const BlockView& block : image) {
    const bool hasPoints = block.row != nullptr && !valuesOver(block.id).empty();
    if (hasPoints && block.isSound()) lists_[block.id].push_back(block);
  }
}

std::vector<ValueAxis> ImageAxes::axesOf(const BlockView& block, std::size_t occurrence, std::string_view path) const {
  std::vector<ValueAxis> axes;
  for (const BlockPair& pair : Velk::axesOf(block.id)) {
    if (!isAbout(pair, path)) continue;
    if (pair.count == PairCount::Same) {
      axes.emplace_back(pair, &block);
      continue;
    }
    const auto found = lists_.find(pair.axisId);
    const bool isThere = found != lists_.end();
    const BlockView* const points =
        !isThere ? nullptr : &found->second[occurrence < found->second.size() ? occurrence : 0];
    axes.emplace_back(pair, points);
  }
  return axes;
}

}  // namespace Velk
