#pragma once

#include "platform/Desktop.h"
#include "util/GridTable.h"

/// A grid's cells as text on the clipboard: every cell is followed by a tab, every row by a line
/// break (CR LF). The fixed column is left out.
namespace kestrel {

/// Copies the whole grid, header rows included. With `leadingLine` the header cells are written
/// once more ahead of it, and the flag is cleared. An empty grid leaves the clipboard alone.
void CopyGridToClipboard(Desktop& desktop, const ui::GridTable& grid, bool& leadingLine);

/// Copies the rows that are selected; without any the clipboard is left alone.
void CopySelectedRows(Desktop& desktop, const ui::GridTable& grid);

}  // namespace kestrel
