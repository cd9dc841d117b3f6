#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "velk/tables/TableLayout.h"

namespace Velk {

namespace detail {
struct ExchangeForm;
}

/// The name of a table class, and the factor from its stored to its presented values.
struct TableTraits {
  unsigned short id = 0;
  const char* key = "";                            ///< the block string
  double scale = 1;                                ///< presented = stored * scale
  const detail::ExchangeForm* exchange = nullptr;  ///< of tables that can be exchanged as text
};

/// The body of every rectangular calibration table: its counts, cells, texts and the copying of whole images. The
/// templates in TableTemplates.h give it the types of the cells, the board headers its name.
///
/// Rows and columns count from 0. A cell outside the capacity reads as 0 and is not written; each setter stores a fresh
/// checksum. Nothing here is virtual that a datablock does not have.
class VELK_EXPORT HwTableBlock : public HwRecordBlock {
 public:
  /// The name on the ID line.
  const std::string& getBlockString() const { return blockString_; }
  /// The factor from a stored to its presented value.
  double getScale() const { return scale_; }
  /// The id of a new block is the base id and the id offset.
  unsigned getBaseId() const { return baseId_; }
  int getIdOffset() const { return idOffset_; }
  unsigned getRowCapacity() const { return layout_->rowCapacity; }
  unsigned getColCapacity() const { return layout_->colCapacity; }

  /// The counts of rows and columns in use, as the block claims them: they may exceed the capacity.
  unsigned getRowCount() const { return view().rows(); }
  unsigned getColCount() const { return view().cols(); }
  void setCounts(unsigned rows, unsigned cols);

  /// Writes the table as text for people: a dump, or the exchange text where the class prints that.
  std::ostream& printToStream(std::ostream& os) override;
  /// Writes the dump of another block, which is taken to have this table's layout and name.
  std::ostream& conv2ascii(std::ostream& os, HwDatablock& block) const;

  /// Whether the table has a text form that can be read back.
  bool hasExchangeText() const { return exchange_ != nullptr; }
  /// Writes that text form; nothing if there is none.
  std::ostream& writeExchangeText(std::ostream& os) const;
  /// Replaces the whole table by what a text says, which is searched from its start for the table's ID line. What is
  /// wrong with the text is written to the Console's output, a line each; the table is replaced all the same and its
  /// checksum is right. `doubts`, unless null, gets a sentence for each word that was read as a number but is not one,
  /// or only in part, and for rows that were dropped: the Console's output does not report those.
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
