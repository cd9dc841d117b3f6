#include "velk/edition2/CommonSubDatablock.h"

namespace Velk {

CommonSubDatablock::CommonSubDatablock(const QByteArray& block, TableLayout layout)
    : rows(layout.rows()),
      columns(layout.columns()),
      rowIdType(layout.rowIdType()),
      columnIdType(layout.columnIdType()),
      complete(layout.isComplete()),
      columnTypes(layout.columnTypes().begin(), layout.columnTypes().end()),
      rowIds(layout.rowIds().begin(), layout.rowIds().end()),
      columnIds(layout.columnIds().begin(), layout.columnIds().end()),
      cells(block, std::move(layout)) {}

}  // namespace Velk
