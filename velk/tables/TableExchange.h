#pragma once

#include "velk/tables/TableLayout.h"

namespace Velk::detail {

class TextWriter;

/// Error messages of the reader that differ from table to table.
struct ExchangeMessages {
  const char* tooManyLines;  ///< between the ID and the COUNT line
  const char* wrongColumns;  ///< after the number of the row
  const char* wrongRows;
};

/// What happens to rows after those that COUNT announces. A line without a colon always ends the rows.
enum class SurplusRows : unsigned char {
  Taken,
  TakenIfNoneAnnounced,
  Ignored,
};

/// The differences between the text forms of tables that can be read back.
struct ExchangeForm {
  /// Names the table in the comments at the top; if null, there are none, and each cell has its own line.
  const char* title;
  bool isPrint;  ///< the table is printed in this form, not as a dump
  void (*writeCell)(TextWriter& text, double value);
  void (*readCell)(MutableBytes image, std::size_t cell, const char* text, double scale);
  bool (*isNumber)(std::string_view token);  ///< whether readCell stores what the token says
  unsigned toleratedLines;                   ///< between the ID and the COUNT line
  ExchangeMessages messages;
  SurplusRows surplusRows;
};

extern VELK_EXPORT const ExchangeForm qelAttRegDataForm;
extern VELK_EXPORT const ExchangeForm lornAttCalFreqForm;
extern VELK_EXPORT const ExchangeForm lornAttRegAttenuationForm;
extern VELK_EXPORT const ExchangeForm lornAttRegDataForm;
extern VELK_EXPORT const ExchangeForm lornTempCompDataForm;
extern VELK_EXPORT const ExchangeForm lornTempCompFreqForm;

}  // namespace Velk::detail
