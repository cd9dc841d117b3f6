#include "Tidy.h"

#include <algorithm>
#include <map>
#include <utility>

#include "velk/data/UnitValue.h"
#include "velk/image/Findings.h"

namespace VelkTool {
namespace {

using Velk::FieldAxis;
using Velk::ValueField;
using Velk::ValuePlace;

constexpr std::size_t pieceSize = 16 * 1024;

/// Returns whether a pattern can match blocks that are not in the catalogue.
bool reachesBeyondCatalogue(const Velk::BlockPattern& pattern) {
  constexpr unsigned ids = 0x10000;
  if (pattern.id()) return Velk::findCatalogueRow(*pattern.id()) == nullptr;
  for (unsigned id = 0; id < ids; ++id) {
    const Velk::BlockView block{.id = static_cast<unsigned short>(id), .kind = Velk::BlockKind::SecondEdition};
    if (pattern.matches(block)) return true;
  }
  return false;
}

/// Returns the headings of the axes of all catalogued blocks that `isChosen` accepts.
std::set<std::string> axisHeadings(
    const std::function<bool(const Velk::CatalogueRow& row, unsigned short id)>& isChosen) {
  std::set<std::string> headings;
  for (const auto rows : {Velk::dictionaryRows(), Velk::otherRows()}) {
    for (const Velk::CatalogueRow& row : rows) {
      for (unsigned id = row.firstId; id <= row.lastId; ++id) {
        if (isChosen(row, static_cast<unsigned short>(id))) headings.merge(Velk::axisHeadings(static_cast<int>(id)));
      }
    }
  }
  return headings;
}

std::set<std::string> idHeadings() { return {Velk::rowIdHeading, Velk::columnIdHeading}; }

/// The column of one axis, for the values of one field.
class PointColumn {
 public:
  /// `before` are the delimiters that separate the column from the one before it that has an axis.
  PointColumn(const FieldAxis& axis, std::string before, const CsvForm& form)
      : axis_(axis), before_(std::move(before)), form_(form) {}

  void append(CsvText& text, ValuePlace value) {
    if (!axis_.isShared()) return void(text.append(pointText(value)));
    // Many values share a point.
    const std::size_t index = axis_.isAcross() ? value.column : value.row;
    if (index >= texts_.size()) texts_.resize(index + 1);
    if (texts_[index].empty()) texts_[index] = pointText(value);
    text.append(texts_[index]);
  }

 private:
  /// Returns the text with its delimiters.
  std::string pointText(ValuePlace value) const {
    CsvText text(form_);
    text.append(before_);
    const auto append = [&](auto number) { text.value(number); };
    if (const auto point = axis_.point(value)) {
      Velk::detail::withUnitValue(axis_.bytes(), *point, axis_.quantity(), append);
    }
    return text.str();
  }

  const FieldAxis& axis_;
  std::string before_;
  const CsvForm& form_;
  std::vector<std::string> texts_;
};

/// Writes the values of one field.
class FieldLines {
 public:
  FieldLines(CsvText& text, const ValueField& field, Velk::ConstBytes bytes, const CsvForm& form)
      : text_(text), field_(field), bytes_(bytes), form_(form) {}

  void addAxes(const std::vector<std::string>& headings) {
    for (const std::string& heading : headings) {
      afterPoints_ += form_.delimiter;
      const auto axis = std::ranges::find(field_.axes(), heading, &FieldAxis::heading);
      if (axis != field_.axes().end()) points_.emplace_back(*axis, std::exchange(afterPoints_, {}), form_);
    }
    afterPoints_ += form_.delimiter;
  }

  /// Begins each line with `start`, and calls `flush` after each row.
  void write(std::string_view start, const std::function<void()>& flush) {
    if (field_.text()) {
      text_.append(start).separate().append(afterPoints_);
      text_.value(std::string_view(*field_.text())).separate().endLine();
      return;
    }
    CsvText rowStart(form_);
    for (std::size_t index = 0; index < field_.rows(); ++index) {
      rowStart.clear();
      rowStart.append(start);
      if (field_.rank() > 0) rowStart.value(index);
      rowStart.separate();
      const Velk::ValueRow row = field_.row(index);
      for (std::size_t column = 0; column < row.size(); ++column) {
        if (const auto element = row.at(column)) writeLine(rowStart.str(), {index, column}, *element);
      }
      flush();
    }
  }

 private:
  void writeLine(std::string_view start, ValuePlace place, const Velk::FieldElement& element) {
    text_.append(start);
    if (field_.rank() > 1) text_.value(place.column);
    for (PointColumn& column : points_) column.append(text_, place);
    text_.append(afterPoints_);
    if (element.field != quantified_) quantify(*element.field);
    Velk::detail::withUnitValue(bytes_, element, quantity_, [&](auto value) { text_.value(value); });
    text_.append(lineEnd_);
  }

  void quantify(const Velk::FieldInfo& field) {
    quantified_ = &field;
    quantity_ = Velk::quantityOf(field);
    lineEnd_ = CsvText(form_).separate().value(quantity_.unit).endLine().str();
  }

  CsvText& text_;
  const ValueField& field_;
  Velk::ConstBytes bytes_;
  const CsvForm& form_;
  std::vector<PointColumn> points_;
  std::string afterPoints_;                      ///< the delimiters up to the value
  const Velk::FieldInfo* quantified_ = nullptr;  ///< the field of quantity_
  Velk::Quantity quantity_{};
  std::string lineEnd_;  ///< from its unit on
};

/// Returns the first columns of all lines about a block.
CsvText lineStart(const TidyBlock& block, const CsvForm& form) {
  CsvText start(form);
  const std::string name = Velk::blockName(block.block);
  start.value(std::string_view(block.input.name)).separate();
  if (block.module.serialNumber) start.value(*block.module.serialNumber);
  start.separate().value(std::string_view(block.module.name)).separate().value(std::string_view(name));
  start.separate().value(block.block.id).separate().value(block.nth);
  start.separate().value(Velk::verdictName(block.block)).separate();
  return start;
}

}  // namespace

void forEachTidyBlock(Session& part, const Inputs& inputs, const Input& input, SearchedBlocks& searched,
                      const std::function<void(const TidyBlock& block)>& act) {
  if (!input.file.error.empty()) return;
  const Velk::ModuleIdentity module = identityOf(input.image);
  const Velk::ImageAxes axes(input.image);
  std::map<unsigned short, unsigned> seen;
  searched.forEach(input.image, [&](const Velk::BlockView& block) {
    const unsigned chosen = searched.selection().occurrence;
    const bool isStray = block.kind == Velk::BlockKind::Stray;
    const unsigned nth = chosen != 0 ? chosen : isStray ? 1 : ++seen[block.id];
    const Velk::ValueTable values(block, nth - 1, axes);
    if (!values.fields().empty()) act({input, module, block, nth, values});
    reportBlock(part, inputs, input.name, block);
  });
}

std::set<std::string> axisHeadings(const Selection& selection) {
  const auto& patterns = selection.patterns;
  std::set<std::string> headings = axisHeadings([&](const Velk::CatalogueRow& row, unsigned short id) {
    const auto matches = [&](const Velk::BlockPattern& pattern) { return pattern.matches(row, id); };
    return patterns.empty() || std::ranges::any_of(patterns, matches);
  });
  if (patterns.empty() || std::ranges::any_of(patterns, reachesBeyondCatalogue)) headings.merge(idHeadings());
  return headings;
}

std::set<std::string> axisHeadings(const Velk::BlockView& block) {
  if (block.row == nullptr) return idHeadings();
  return axisHeadings(
      [&](const Velk::CatalogueRow& row, unsigned short) { return row.className == block.row->className; });
}

std::string TidyTable::heading() const {
  CsvText text(form_);
  for (const char* const name : {"file", "serial", "module", "block", "id", "nth", "verdict", "field", "row"}) {
    text.value(name).separate();
  }
  text.value("column");
  for (const std::string& axis : axes_) text.separate().value(std::string_view(axis));
  return text.separate().value("value").separate().value("unit").endLine().str();
}

void TidyTable::write(const TidyBlock& block, const Sink& sink) const {
  const CsvText start = lineStart(block, form_);
  CsvText text(form_, pieceSize + pieceSize / 4);
  const auto flush = [&](std::size_t least) {
    if (text.str().size() < least) return;
    sink(text.str());
    text.clear();
  };
  for (const ValueField& field : block.values.fields()) {
    CsvText fieldStart = start;
    fieldStart.value(std::string_view(field.path())).separate();
    FieldLines lines(text, field, block.values.bytes(), form_);
    lines.addAxes(axes_);
    lines.write(fieldStart.str(), [&] { flush(pieceSize); });
  }
  flush(1);
}

}  // namespace VelkTool
