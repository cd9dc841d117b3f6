#include <algorithm>

#include "velk/checks/Check.h"
#include "velk/fields/ScalarDispatch.h"
#include "velk/oldstyle/BlockPairs.h"

namespace Velk::detail {
namespace {

/// Points one after another in a block. Their paths are those of the elements of the list.
struct PointRun {
  FieldElement first;
  std::size_t distance;
  std::size_t count;
  std::string (*path)(const PointRun& run, std::size_t index);
  const char* list;     ///< name of the list or table
  std::size_t row = 0;  ///< of the table

  FieldElement at(std::size_t index) const { return {first.field, first.offset + index * distance}; }
};

std::string inList(const PointRun& run, std::size_t index) {
  return std::string(run.list) + '[' + std::to_string(index) + ']';
}
std::string inColumn(const PointRun& run, std::size_t index) { return inList(run, index) + "[0]"; }
std::string inRow(const PointRun& run, std::size_t index) {
  return inList(run, run.row) + '[' + std::to_string(index) + ']';
}
std::string inRecords(const PointRun& run, std::size_t index) {
  return inList(run, index) + '.' + run.first.field->name;
}

/// Returns the index of the first point that is not above the one before it; the count if there is none.
std::size_t firstUnordered(ConstBytes bytes, const PointRun& run, PointOrder order) {
  std::size_t found = run.count;
  withScalarType(run.first.field->type, [&]<class T>(T) {
    const auto at = [&](std::size_t index) { return load<T>(bytes, run.at(index).offset); };
    for (std::size_t i = 1; i < run.count && found == run.count; ++i) {
      const T last = at(i - 1);
      const T here = at(i);
      if (here < last || (here == last && order == PointOrder::Strict)) found = i;
    }
  });
  return found;
}

void examineRun(ConstBytes bytes, const PointRun& run, PointOrder order, const Report& report) {
  const std::size_t i = firstUnordered(bytes, run, order);
  if (i >= run.count) return;
  const auto shown = [&](std::size_t index) { return fieldText(bytes, run.at(index), ValueForm::Presented); };
  const std::string here = shown(i);
  const std::string last = shown(i - 1);
  std::string path = run.path(run, i);
  std::string text = path + " is " + here;
  text.append(here == last ? ", the same as " : ", below ").append(run.path(run, i - 1));
  if (here != last) text.append(", ").append(last);
  report(std::move(text), std::move(path));
}

/// Calls `act` with the runs of points of a list or table.
template <class Act>
void forEachRun(const CheckedBlock& block, const AxisPoints& points, Act act) {
  const std::string_view path = points.points;
  const std::string_view name = path.substr(0, path.find('.'));
  const auto list = block.data.root().find(name);
  const FieldInfo* const field = list ? list->field() : nullptr;
  const auto spacing = list ? list->spacing() : std::nullopt;
  if (field == nullptr || !spacing) return;
  if (field->type == ScalarType::Record) {
    for (const FieldInfo& member : field->members) {
      if (path.substr(std::min(path.size(), name.size() + 1)) == member.name)
        act(PointRun{
            {&member, spacing->offset + member.offset}, spacing->distance, list->size(), inRecords, field->name});
    }
  } else if (field->rank == 1 || field->cols == 1) {
    act(PointRun{
        {field, spacing->offset}, spacing->distance, list->size(), field->rank == 1 ? inList : inColumn, field->name});
  } else {
    const auto counts = block.data.root().find("counts");
    for (std::size_t row = 0; row < list->size(); ++row) {
      const std::size_t offset = spacing->offset + row * spacing->distance;
      const auto count = counts && row < counts->size() ? counts->valueAt(row) : std::nullopt;
      const std::int64_t claimed = count ? integerValue(block.view.bytes, *count) : field->cols;
      const std::size_t room = std::min<std::size_t>(field->cols, roomFor(*field, offset, block.view.bytes.size()));
      const auto used = static_cast<std::size_t>(std::clamp<std::int64_t>(claimed, 0, static_cast<std::int64_t>(room)));
      act(PointRun{{field, offset}, field->stride, used, inRow, field->name, row});
    }
  }
}

void findUnorderedPoints(const CheckedBlock& block, const Report& report) {
  if (block.view.row == nullptr) return;
  for (auto points = std::ranges::lower_bound(axisPoints(), block.view.id, {}, &AxisPoints::lastId);
       points != axisPoints().end() && points->firstId <= block.view.id; ++points) {
    if (points->order == PointOrder::Unknown) continue;
    forEachRun(block, *points, [&](const PointRun& run) { examineRun(block.view.bytes, run, points->order, report); });
  }
}

constexpr Check kinds[] = {
    {{"unordered-points", "unordered points", Severity::Warning, "points do not ascend, or one occurs twice",
      "The instrument interpolates between two neighbouring points, so each has to be above the one before it. Some "
      "lists end with a point that occurs twice; it is not reported there. Example: 10, 20, 15 MHz. Export the list "
      "and its table, bring both into order, and write them back."},
     findUnorderedPoints},
};

}  // namespace

std::span<const Check> pointChecks() { return kinds; }

}  // namespace Velk::detail
