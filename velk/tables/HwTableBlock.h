#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "velk/tables/TableLayout.h"

namespace Velk {

namespace detail {
struct ExchangeForm;
}

/// The id and name of a table class, the scale of its values, and its exchange text.
struct TableTraits {
  unsigned short id = 0;
  const char* key = "";                            ///< the block string
  double scale = 1;                                ///< presented = stored * scale
  const detail::ExchangeForm* exchange = nullptr;  ///< null if the table cannot be exchanged as text
};

/// The base of all rectangular calibration tables: counts, cells, texts and the copying of whole images. The templates
/// in TableTemplates.h add the types of the cells, the headers of the boards the names.
///
/// Rows and columns count from 0. A cell outside the capacity reads as 0 and is not written; each setter updates the
/// checksum. This class adds no virtual functions to those of HwDatablock.
class VELK_EXPORT HwTableBlock : public HwRecordBlock {
 public:
  /// Returns the name on the ID line.
  const std::string& getBlockString() const { return blockString_; }
  /// Returns the factor from a stored to its presented value.
  double getScale() const { return scale_; }
  /// The id of a new block is the base id plus the id offset.
  unsigned getBaseId() const { return baseId_; }
  int getIdOffset() const { return idOffset_; }
  unsigned getRowCapacity() const { return layout_->rowCapacity; }
  unsigned getColCapacity() const { return layout_->colCapacity; }

  /// Return the numbers of rows and columns in use. These are claims of the block: they may exceed the capacity.
  unsigned getRowCount() const { return view().rows(); }
  unsigned getColCount() const { return view().cols(); }
  void setCounts(unsigned rows, unsigned cols);

  /// Writes the table as text for people: a dump, or the exchange text if the class prints that.
  std::ostream& printToStream(std::ostream& os) override;
  /// Writes the dump of `block`, which is assumed to have this table's layout and name.
  std::ostream& conv2ascii(std::ostream& os, HwDatablock& block) const;

  /// Returns whether the table has a text form that can be read back.
  bool hasExchangeText() const { return exchange_ != nullptr; }
  /// Writes that text form, or nothing if there is none.
  std::ostream& writeExchangeText(std::ostream& os) const;
  /// Replaces the whole table with one read from a text, which is searched from its start for the table's ID line.
  /// Errors in the text are written to the Console's output, one line each; the table is replaced all the same, with a
  /// valid checksum. `doubts`, unless null, gets a sentence for each word that was read as a number but is not one, or
  /// only in part, and for dropped rows: the Console's output does not report those.
  std::istream& readExchangeText(std::istream& is, std::vector<std::string>* doubts = nullptr);

 protected:
  HwTableBlock(const detail::TableLayout& layout, const TableTraits& traits, bool stopConversionOnError,
               int idOffset = 0);

  detail::TableView view() const { return {*layout_, scale_, bytes()}; }

  /// Copies an image, its size and checksum included, without a check.
  void swapImage(const void* image);

 private:
  const detail::TableLayout* layout_;
  int idOffset_;
  unsigned baseId_;
  std::string blockString_;
  double scale_;
  const detail::ExchangeForm* exchange_;
};

}  // namespace Velk
