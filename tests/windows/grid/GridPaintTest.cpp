#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <vector>

#include "platform/win32/Gdi.h"
#include "ui/win32/Dpi.h"
#include "ui/win32/grid/GridPainter.h"
#include "windows/grid/GridHost.h"
#include "windows/grid/SampleGrid.h"

namespace kestrel::test {
namespace {

using kestrel::win32::MemoryPicture;
using kestrel::win32::WindowDc;
using ui::win32::GridColours;
using ui::win32::GridStyle;

/// A grid drawn into memory at a scale.
class DrawnGrid {
 public:
    DrawnGrid(const ui::Grid& grid, UINT dpi, bool focused)
        : font_(ui::win32::MessageFont(dpi)),
          style{{dpi}, font_.Get(), GridColours::OfSystem()},
          size_(style.scale.Pixels(grid.Bounds())),
          picture_(WindowDc(nullptr).Get(), size_.right, size_.bottom) {
        ui::win32::GridPainter(picture_.Dc(), grid, style).Draw(size_, focused);
    }
    COLORREF At(LONG x, LONG y) const { return GetPixel(picture_.Dc(), x, y); }

 private:
    kestrel::win32::Font font_;

 public:
    GridStyle style;

 private:
    RECT size_;
    MemoryPicture picture_;
};

TEST(GridPaintTest, CellsJoinWithoutGapsAtEveryScale) {
    SampleGrid form(20);
    form.grid.MoveTo(3, SampleGrid::kFigure);
    for (const UINT dpi : {96u, 120u, 144u, 168u, 192u}) {
        SCOPED_TRACE(dpi);
        const DrawnGrid drawn(form.grid, dpi, true);
        const GridColours& colours = drawn.style.colours;
        const RECT first = CellPlace(form.grid, 3, 0, dpi), last = CellPlace(form.grid, 3, 3, dpi);
        // Close below the upper edge of the cells, where no text reaches.
        std::map<COLORREF, int> found;
        for (LONG x = first.left; x < last.right; ++x) ++found[drawn.At(x, first.top)];
        EXPECT_EQ(found.count(colours.window), 0u) << "nothing shows through";
        EXPECT_EQ(found[colours.line], 4) << "one line a cell";
        std::map<COLORREF, int> down;
        for (LONG y = CellPlace(form.grid, 1, 0, dpi).top; y < first.bottom; ++y)
            ++down[drawn.At(first.left, y)];
        EXPECT_EQ(down[colours.line], 3) << "one line a row";
    }
}

TEST(GridPaintTest, ColoursTellTheStateOfCellsAndRows) {
    SampleGrid form(5);
    form.grid.MoveTo(2, SampleGrid::kFigure);
    form.grid.SetChecked(3, SampleGrid::kCheck, true);
    for (const UINT dpi : {96u, 144u}) {
        SCOPED_TRACE(dpi);
        const DrawnGrid focused(form.grid, dpi, true), idle(form.grid, dpi, false);
        const GridColours& colours = focused.style.colours;
        const auto corner = [&](const DrawnGrid& drawn, int row, int column) {
            const RECT cell = CellPlace(form.grid, row, column, dpi);
            return drawn.At(cell.left + 4, cell.top + 4);
        };
        EXPECT_EQ(corner(focused, 1, SampleGrid::kName), colours.window);
        EXPECT_EQ(corner(focused, 1, SampleGrid::kLocked), GetSysColor(COLOR_GRAYTEXT));
        EXPECT_EQ(corner(focused, 2, SampleGrid::kName), colours.highlight);
        EXPECT_EQ(corner(idle, 2, SampleGrid::kName), colours.idle);
        EXPECT_EQ(corner(focused, 2, SampleGrid::kFigure), colours.window) << "the current cell";
        const RECT current = CellPlace(form.grid, 2, SampleGrid::kFigure, dpi);
        EXPECT_EQ(focused.At(current.left, Middle(current).y), colours.highlight) << "its frame";
        const COLORREF locked = corner(focused, 2, SampleGrid::kLocked);
        EXPECT_NE(locked, colours.highlight) << "a locked cell in a selected row is seen as both";
        EXPECT_NE(locked, GetSysColor(COLOR_GRAYTEXT));
        EXPECT_EQ(focused.At(Middle(CellPlace(form.grid, 0, 1, dpi)).x, 2), colours.header);

        const auto ticked = [&](int row) {  // pixels in the text's colour in the middle of the box
            const POINT middle = Middle(CellPlace(form.grid, row, SampleGrid::kCheck, dpi));
            int count = 0;
            for (LONG x = middle.x - 4; x <= middle.x + 4; ++x)
                for (LONG y = middle.y - 4; y <= middle.y + 4; ++y)
                    count += focused.At(x, y) == colours.text ? 1 : 0;
            return count;
        };
        EXPECT_GT(ticked(3), 8);
        EXPECT_EQ(ticked(4), 0);
    }
}

TEST(GridPaintTest, FiguresStandAtTheRight) {
    SampleGrid form(3);
    form.grid.SetText(1, SampleGrid::kFigure, "|");
    form.grid.SetText(1, SampleGrid::kName, "|");
    const DrawnGrid drawn(form.grid, 96, false);
    const auto textAt = [&](int column) {
        const RECT cell = CellPlace(form.grid, 1, column);
        const LONG y = Middle(cell).y;
        const COLORREF background = drawn.At(cell.left + 3, cell.top + 3);
        for (LONG x = cell.left + 2; x < cell.right - 2; ++x)
            if (drawn.At(x, y) != background) return x - cell.left;
        return -1L;
    };
    EXPECT_LT(textAt(SampleGrid::kName), 12);
    EXPECT_GT(textAt(SampleGrid::kFigure), 48);
}

/// What of the window a change makes it paint anew.
RECT DirtyAfter(GridHost& window, const std::function<void()>& change) {
    UpdateWindow(window.Window());
    change();
    window.View().Update();
    RECT area{};
    GetUpdateRect(window.Window(), &area, FALSE);
    ValidateRect(window.Window(), nullptr);
    return area;
}

TEST(GridPaintTest, OnlyRowsThatChangeAreRepainted) {
    SampleGrid form(8);
    ui::Grid& grid = form.grid;
    GridHost window(form, grid);
    const struct {
        const char* what;
        std::function<void()> change;
        int first, last;  ///< rows; none for -1
    } cases[] = {
        {"nothing", [] {}, -1, -1},
        {"a text", [&] { grid.SetText(4, 0, "other"); }, 4, 4},
        {"a lock", [&] { grid.SetEditable(5, 1, false); }, 5, 5},
        {"a move", [&] { grid.MoveTo(2, 0); }, 1, 2},
        {"a tick", [&] { grid.SetChecked(7, SampleGrid::kCheck, true); }, 7, 7},
        {"a new row", [&] { grid.AddRow(); }, 9, 9},
        {"rows that go", [&] { grid.RemoveRow(9), grid.RemoveRow(8); }, 8, 9},
        {"a header", [&] { grid.SetText(0, 0, "\r\nTitle"); }, 0, 0},
        {"rows out of sight",
         [&] {
             while (grid.RowCount() < 50) grid.AddRow();
             DirtyAfter(window, [] {});
             grid.SetText(49, 0, "unseen");
         },
         -1, -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const RECT dirty = DirtyAfter(window, c.change);
        EXPECT_EQ(IsRectEmpty(&dirty) != FALSE, c.first < 0);
        if (c.first < 0) continue;
        EXPECT_EQ(dirty.top, CellPlace(grid, c.first, 0).top);
        EXPECT_EQ(dirty.bottom, CellPlace(grid, c.last, 0).bottom);
    }
}

TEST(GridPaintTest, RoomIsMadeForLargerFonts) {
    SampleGrid form(50);
    const int usualRow = form.grid.Geometry().rowHeight;
    GridHost window(form, form.grid);
    const auto change = [&](const kestrel::win32::Font& font) {
        window.Context().font = font.Get();
        window.View().ScaleChanged();
    };
    const kestrel::win32::Font little = ui::win32::MessageFont(72);
    change(little);
    EXPECT_EQ(form.grid.Geometry().rowHeight, usualRow) << "never less than usual";
    const int smallHeader = form.grid.Geometry().headerHeight;
    const kestrel::win32::Font large = ui::win32::MessageFont(240);
    change(large);
    EXPECT_GT(form.grid.Geometry().rowHeight, usualRow);
    EXPECT_GT(form.grid.Geometry().headerHeight, smallHeader);
    window.DestroyView();  // before the fonts that it draws with
}

}  // namespace
}  // namespace kestrel::test
