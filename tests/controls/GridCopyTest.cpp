#include <gtest/gtest.h>

#include "support/FakeDesktop.h"
#include "ui/controls/Grid.h"
#include "util/modGridCopy.h"

namespace kestrel {
namespace {

TEST(GridCopyTest, CellsEndInTabsAndRowsInLineBreaks) {
    test::FakeDesktop desktop;
    ui::Grid grid("grid");
    bool leadingLine = false;
    CopyGridToClipboard(desktop, grid, leadingLine);
    EXPECT_EQ(desktop.ClipboardText(), "") << "an empty grid leaves the clipboard alone";

    grid.Clear(2, 1, true);
    grid.SetText(0, 0, "ID");
    grid.SetText(0, 1, "Importance");
    grid.SetText(grid.AddRow(), ui::Grid::kRowHeader, "1.");
    grid.SetText(1, 1, "99.34%");
    CopyGridToClipboard(desktop, grid, leadingLine);
    const std::string whole = "ID\tImportance\t\r\n\t99.34%\t\r\n";
    EXPECT_EQ(desktop.ClipboardText(), whole);

    leadingLine = true;
    CopyGridToClipboard(desktop, grid, leadingLine);
    EXPECT_EQ(desktop.ClipboardText(), "ID\tImportance\t\r\n" + whole);
    EXPECT_FALSE(leadingLine);

    CopySelectedRows(desktop, grid);
    EXPECT_EQ(desktop.ClipboardText(), "ID\tImportance\t\r\n" + whole) << "no row is selected";
    grid.SelectRow(1);
    CopySelectedRows(desktop, grid);
    EXPECT_EQ(desktop.ClipboardText(), "\t99.34%\t\r\n");
}

}  // namespace
}  // namespace kestrel
