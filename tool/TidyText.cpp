#include "TidyText.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <optional>
#include <span>

#include "AlignedTable.h"
#include "JsonWriter.h"
#include "Utf8.h"
#include "ValueText.h"
#include "velk/data/UnitValue.h"
#include "velk/image/Findings.h"
#include "velk/text/NumberText.h"

namespace VelkTool {
namespace {

using Velk::FieldAxis;
using Velk::ValueField;
using Velk::ValuePlace;

/// Returns a text without what would break a line; quotation marks at its ends are left out.
std::string withoutBreaks(std::string_view text) {
  const std::string quoted = jsonText(text);
  return quoted.substr(1, quoted.size() - 2);
}

/// Returns a text of UTF-8 that is cut to some characters: labels are repeated in each piece of a table.
std::string shortened(std::string text) {
  constexpr std::size_t most = 32;
  std::size_t end = 0;
  const std::string_view whole = text;
  for (std::size_t count = 0; count < most && end < text.size(); ++count) {
    const auto character = takeUtf8(whole.substr(end));
    end += character ? character->length : 1;
  }
  if (end < text.size()) text.replace(end, text.npos, "...");
  return text;
}

/// A value as a cell.
struct Cell {
  std::string text;
  bool isNumber = true;
};

Cell cellOf(Velk::ConstBytes bytes, const Velk::FieldElement& element, const Velk::Quantity& quantity) {
  Cell cell;
  Velk::detail::withUnitValue(bytes, element, quantity, [&]<class T>(T value) {
    if constexpr (std::is_arithmetic_v<T>) {
      cell.text = Velk::detail::numberText(value);
    } else if constexpr (!std::is_null_pointer_v<T>) {
      cell = {element.field->kind == Velk::FieldKind::Text ? jsonText(value) : std::string(value), false};
    }
  });
  return cell;
}

/// Names the rows or columns of a field: by their points, or where there are none by their indices.
class Labels {
 public:
  Labels(const ValueField& field, bool areAcross) : areAcross_(areAcross) {
    const auto found =
        std::ranges::find_if(field.axes(), [&](const FieldAxis& axis) { return axis.isAcross() == areAcross; });
    if (found != field.axes().end() && hasPoint(field, *found)) axis_ = &*found;
  }

  const FieldAxis* axis() const { return axis_; }
  std::string heading() const { return axis_ != nullptr ? axis_->heading() : areAcross_ ? "column" : "row"; }
  /// Returns whether a row has the same label in every column.
  bool areShared() const { return axis_ == nullptr || axis_->isShared(); }
  Cell at(ValuePlace place) const {
    const std::string index = std::to_string(areAcross_ ? place.column : place.row);
    if (axis_ == nullptr) return {index};
    const auto point = axis_->point(place);
    if (!point) return {'[' + index + ']'};
    Cell cell = cellOf(axis_->bytes(), *point, axis_->quantity());
    return {shortened(std::move(cell.text)), cell.isNumber};
  }

 private:
  static bool hasPoint(const ValueField& field, const FieldAxis& axis) {
    for (std::size_t row = 0; row < field.rows(); ++row) {
      const std::size_t columns = field.row(row).size();
      for (std::size_t column = 0; column < columns; ++column) {
        if (axis.point({row, column})) return true;
      }
    }
    return false;
  }

  const FieldAxis* axis_ = nullptr;
  bool areAcross_;
};

/// Writes the tables of one block.
class BlockPage {
 public:
  BlockPage(const TidyBlock& block, std::size_t width)
      : bytes_(block.values.bytes()), fields_(block.values.fields()), width_(width), text_(headingOf(block)) {}

  std::string write() {
    for (auto rest = fields_; !rest.empty();) {
      const std::size_t together = countOfLikeFields(rest);
      const auto fields = rest.first(together);
      const unsigned rank = rankOf(rest.front());
      if (rank == 0) writeSingles(fields);
      if (rank == 1) writeLists(fields);
      if (rank == 2) writeGrid(rest.front());
      rest = rest.subspan(together);
    }
    return text_ + '\n';
  }

 private:
  using Fields = std::span<const ValueField>;

  static std::string headingOf(const TidyBlock& block) {
    std::string text = withoutBreaks(block.input.name) + ": ";
    if (block.module.serialNumber) {
      text += withoutBreaks(block.module.name) + ' ' + std::to_string(*block.module.serialNumber) + ", ";
    }
    text += Velk::blockName(block.block);
    if (block.nth > 1) text += " no. " + std::to_string(block.nth);
    if (!block.block.isSound()) text += std::string(", ") + Velk::verdictName(block.block);
    return text + '\n';
  }

  /// Returns the rank; that of a table with one column and no points across is that of a list.
  static unsigned rankOf(const ValueField& field) {
    const bool hasColumns = field.rank() > 1 && (field.row(0).size() > 1 || Labels(field, true).axis() != nullptr);
    return hasColumns ? 2 : std::min(field.rank(), 1U);
  }

  static std::string_view listOf(const ValueField& field) {
    return std::string_view(field.path()).substr(0, field.path().rfind('.') + 1);
  }

  static std::vector<std::string> headingsOf(const ValueField& field) {
    std::vector<std::string> headings;
    for (const FieldAxis& axis : field.axes()) headings.push_back(axis.heading());
    return headings;
  }

  /// Returns whether two lists are those of the same records, or lie over the same points.
  static bool areAlike(const ValueField& one, const ValueField& other) {
    const unsigned rank = rankOf(one);
    if (rank != rankOf(other)) return false;
    if (rank == 0) return true;
    const bool areLists = rank == 1 && one.rows() == other.rows() && listOf(one) == listOf(other);
    return areLists && (!listOf(one).empty() || headingsOf(one) == headingsOf(other));
  }

  /// Returns how many of the next fields belong in one table.
  static std::size_t countOfLikeFields(Fields fields) {
    std::size_t count = 1;
    while (count < fields.size() && areAlike(fields[0], fields[count])) ++count;
    return count;
  }

  /// Returns a heading as "gain [dB]".
  static std::string nameOf(const ValueField& field, std::string_view name) {
    const auto element = field.at({});
    const std::string unit(element ? Velk::quantityOf(*element->field).unit : "");
    return std::string(name) + (unit.empty() ? "" : " [" + unit + ']');
  }

  Cell cellAt(const ValueField& field, ValuePlace place) const {
    const auto element = field.at(place);
    return element ? cellOf(bytes_, *element, Velk::quantityOf(*element->field)) : Cell{};
  }

  void writeSingles(Fields fields) {
    AlignedTable table;
    table.addColumn("", true);
    table.addColumn("", true);
    for (const ValueField& field : fields) {
      const auto element = field.at({});
      if (!element && !field.text()) continue;
      table.addCell(0, field.path(), false);
      table.addCell(1, element ? valueText(bytes_, *element, Velk::ValueForm::Presented) : *field.text(), false);
    }
    table.write(text_, width_);
  }

  void writeLists(Fields fields) {
    if (fields.front().rows() == 0) return;
    std::optional<Labels> labels;
    for (const ValueField& field : fields) {
      if (!labels || labels->axis() == nullptr) labels.emplace(field, false);
    }
    AlignedTable table;
    table.addColumn(labels->heading(), true);
    for (std::size_t row = 0; row < fields.front().rows(); ++row) addCell(table, 0, labels->at({row, 0}));
    std::size_t column = 0;
    for (const ValueField& field : fields) {
      if (labels->axis() != nullptr && labels->axis()->isField(field.path())) continue;  // its column leads already
      table.addColumn(nameOf(field, std::string_view(field.path()).substr(listOf(field).size())));
      ++column;
      for (std::size_t row = 0; row < field.rows(); ++row) addCell(table, column, cellAt(field, {row, 0}));
    }
    table.write(text_, width_);
  }

  void writeGrid(const ValueField& field) {
    if (field.rows() == 0 || field.row(0).size() == 0) return;
    const Labels rows(field, false);
    const Labels columns(field, true);
    if (!rows.areShared()) return writeLong(field, rows, columns);
    text_ += nameOf(field, field.path()) + ": " + rows.heading() + " down, " + columns.heading() + " across\n";
    for (std::size_t row = 0; row < field.rows();) row = writeRows(field, rows, columns, row);
  }

  static std::vector<std::string> headsOf(const ValueField& field, const Labels& columns, std::size_t row) {
    std::vector<std::string> heads;
    const std::size_t count = field.row(row).size();
    for (std::size_t column = 0; column < count; ++column) heads.push_back(columns.at({row, column}).text);
    return heads;
  }

  /// Writes the rows of a grid from `first` on that have the same heads of columns; returns the row after them.
  std::size_t writeRows(const ValueField& field, const Labels& rows, const Labels& columns, std::size_t first) {
    const std::vector<std::string> heads = headsOf(field, columns, first);
    AlignedTable table;
    table.addColumn(rows.heading(), true);
    for (const std::string& head : heads) table.addColumn(head);
    std::size_t row = first;
    do {
      addCell(table, 0, rows.at({row, 0}));
      for (std::size_t column = 0; column < heads.size(); ++column) {
        addCell(table, column + 1, cellAt(field, {row, column}));
      }
      ++row;
    } while (row < field.rows() && (columns.areShared() || headsOf(field, columns, row) == heads));
    table.write(text_, width_);
    return row;
  }

  /// Writes a grid whose columns have points of their own for the rows, with a line for each value.
  void writeLong(const ValueField& field, const Labels& rows, const Labels& columns) {
    AlignedTable table;
    for (const std::string& heading : {std::string("row"), columns.heading(), rows.heading()}) {
      table.addColumn(heading, true);
    }
    table.addColumn(nameOf(field, field.path()));
    for (std::size_t row = 0; row < field.rows(); ++row) {
      const std::size_t count = field.row(row).size();
      for (std::size_t column = 0; column < count; ++column) {
        const ValuePlace place{row, column};
        addCell(table, 0, {std::to_string(row)});
        addCell(table, 1, columns.at(place));
        addCell(table, 2, rows.at(place));
        addCell(table, 3, cellAt(field, place));
      }
    }
    table.write(text_, width_);
  }

  static void addCell(AlignedTable& table, std::size_t column, Cell cell) {
    table.addCell(column, std::move(cell.text), cell.isNumber);
  }

  Velk::ConstBytes bytes_;
  Fields fields_;
  std::size_t width_;
  std::string text_;
};

}  // namespace

std::size_t lineWidth() {
  constexpr std::size_t usual = 80;
  struct winsize size {};
  const bool isTerminal = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
  return isTerminal && size.ws_col > 0 ? size.ws_col : usual;
}

std::string tidyText(const TidyBlock& block, std::size_t width) { return BlockPage(block, width).write(); }

}  // namespace VelkTool
