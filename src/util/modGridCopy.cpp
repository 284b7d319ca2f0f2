#include "util/modGridCopy.h"

#include <string>

namespace kestrel {
namespace {

void AppendRow(std::string& text, const ui::GridTable& grid, int row) {
    for (int column = 0; column < grid.ColumnCount(); ++column)
        text += grid.Text(row, column) + '\t';
    text += "\r\n";
}

}  // namespace

void CopyGridToClipboard(Desktop& desktop, const ui::GridTable& grid, bool& leadingLine) {
    std::string text;
    if (leadingLine && grid.RowCount() > 0) {
        AppendRow(text, grid, 0);
        leadingLine = false;
    }
    for (int row = 0; row < grid.RowCount(); ++row) AppendRow(text, grid, row);
    if (!text.empty()) desktop.SetClipboardText(text);
}

void CopySelectedRows(Desktop& desktop, const ui::GridTable& grid) {
    std::string text;
    for (const int row : grid.SelectedRows()) AppendRow(text, grid, row);
    if (!text.empty()) desktop.SetClipboardText(text);
}

}  // namespace kestrel
