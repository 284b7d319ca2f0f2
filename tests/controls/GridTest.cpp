#include <gtest/gtest.h>

#include <stdexcept>

#include "support/ScriptedRunner.h"

namespace kestrel::ui {
namespace {

using test::User;

class GridForm : public Form {
 public:
    explicit GridForm(int rows) : Form("Grid", 300, 240) {
        Add(grid, {0, 0, 300, 240}, kAnchorAll);
        grid.Clear(3, 1, true);
        for (int i = 1; i <= rows; ++i) {
            const int row = grid.AddRow();
            grid.SetText(row, Grid::kRowHeader, std::to_string(i) + ".");
            for (int c = 0; c < 3; ++c)
                grid.SetText(row, c,
                             std::string(1, static_cast<char>('a' + c)) + std::to_string(i));
        }
        Open();
        if (rows > 0) grid.SetCurrentCell(1, 0);
    }
    Grid grid{"grid"};
};

TEST(GridTest, KeysMoveTheCurrentCellAndSelectItsRow) {
    GridForm form(50);
    User user(form);
    const int page = form.grid.Geometry().VisibleRows();
    const struct {
        Key key;
        bool ctrl;
        int row, column;
    } steps[] = {
        {Key::Down, false, 2, 0},
        {Key::Right, false, 2, 1},
        {Key::End, false, 2, 2},
        {Key::Right, false, 2, 2},
        {Key::PageDown, false, 2 + page, 2},
        {Key::Home, false, 2 + page, 0},
        {Key::End, true, 50, 2},
        {Key::Down, false, 50, 2},
        {Key::PageUp, false, 50 - page, 2},
        {Key::Home, true, 1, 0},
        {Key::Up, false, 1, 0},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(testing::Message() << "to " << step.row << "," << step.column);
        user.Press(step.key, false, step.ctrl);
        EXPECT_EQ(form.grid.CurrentRow(), step.row);
        EXPECT_EQ(form.grid.CurrentColumn(), step.column);
        EXPECT_EQ(form.grid.SelectedRows(), std::vector<int>{step.row});
        EXPECT_TRUE(form.grid.Geometry().CellBounds(step.row, step.column)) << "scrolled into view";
    }
}

TEST(GridTest, MouseSelectsOneRowARangeOrAddsSingleRows) {
    GridForm form(9);
    User user(form);
    user.ClickCell("grid", 3, 1);
    EXPECT_EQ(form.grid.CurrentColumn(), 1);
    MouseEvent shift, ctrl;
    shift.shift = ctrl.ctrl = true;
    user.ClickCell("grid", 6, 0, shift);
    EXPECT_EQ(form.grid.SelectedRows(), (std::vector<int>{3, 4, 5, 6}));
    user.ClickCell("grid", 2, 0, shift);
    EXPECT_EQ(form.grid.SelectedRows(), (std::vector<int>{2, 3})) << "the anchor stays";
    user.ClickCell("grid", 8, 0, ctrl);
    user.ClickCell("grid", 2, 0, ctrl);
    EXPECT_EQ(form.grid.SelectedRows(), (std::vector<int>{3, 8}));
    user.ClickCell("grid", 5, Grid::kRowHeader);
    EXPECT_EQ(form.grid.SelectedRows(), std::vector<int>{5});
    user.ClickCell("grid", 0, 0);
    EXPECT_EQ(form.grid.CurrentRow(), 5) << "a header is never current";
}

TEST(GridTest, FirstCharacterReplacesAndEscapeRestores) {
    GridForm form(2);
    User user(form);
    user.Type("xy");
    user.Press(Key::Left);
    user.Type("-");
    EXPECT_EQ(form.grid.Text(1, 0), "x-y");
    user.Press(Key::Escape);
    EXPECT_EQ(form.grid.Text(1, 0), "a1");
    EXPECT_FALSE(form.grid.IsEditing());
    user.Press(Key::F2);
    user.Type("!");
    EXPECT_EQ(form.grid.Text(1, 0), "a1!");
    int edits = 0;
    form.grid.AfterEdit = [&](int row, int column) { edits += row == 1 && column == 0; };
    user.ClickCell("grid", 2, 2);
    EXPECT_EQ(edits, 1) << "moving by mouse ends the edit and keeps the text";
    form.grid.SetEditable(2, 2, false);
    user.Press(Key::F2);
    user.Type("z");
    user.Press(Key::Back);
    EXPECT_EQ(form.grid.Text(2, 2), "c2");
}

TEST(GridTest, CheckCellsToggleBySpaceAndMouse) {
    GridForm form(2);
    User user(form);
    form.grid.SetCheckCell(1, 0, true);
    form.grid.SetChecked(1, 0, false);
    user.Press(Key::Space);
    EXPECT_TRUE(form.grid.Checked(1, 0));
    user.ClickCell("grid", 1, 0);
    EXPECT_FALSE(form.grid.Checked(1, 0));
    form.grid.SetEditable(1, 0, false);
    user.ClickCell("grid", 1, 0);
    EXPECT_FALSE(form.grid.Checked(1, 0));
}

TEST(GridTest, CurrentCellFollowsItsRowThroughInsertionAndRemoval) {
    GridForm form(4);
    Grid& grid = form.grid;
    grid.SetCurrentCell(3, 1);
    grid.InsertRow(1);
    EXPECT_EQ(grid.CurrentRow(), 4);
    grid.RemoveRow(2);
    EXPECT_EQ(grid.CurrentRow(), 3);
    EXPECT_EQ(grid.Text(3, 0), "a3");
    grid.RemoveRow(3);
    EXPECT_EQ(grid.Text(grid.CurrentRow(), 0), "a4");
    grid.RemoveRow(3);
    EXPECT_EQ(grid.CurrentRow(), -1);
    EXPECT_THROW(grid.RemoveRow(0), std::out_of_range) << "headers stay";
    EXPECT_THROW(grid.SetCurrentCell(0, 0), std::out_of_range);
}

TEST(GridTest, SortsByNumberKeepingEqualRowsInOrderAndDropsTheKeyColumn) {
    GridForm form(4);
    Grid& grid = form.grid;
    const char* keys[] = {"0.25", "9", "0.25", "10"};
    for (int row = 1; row <= 4; ++row) grid.SetText(row, 2, keys[row - 1]);
    grid.Sort(2, SortOrder::Descending, SortAs::Number);
    grid.SetColumnCount(2);
    std::string order;
    for (int row = 1; row <= 4; ++row) order += grid.Text(row, 0) + " ";
    EXPECT_EQ(order, "a4 a2 a1 a3 ");
    EXPECT_THROW(grid.Text(1, 2), std::out_of_range);
}

TEST(GridTest, RedrawSwitchHoldsChangesBack) {
    GridForm form(1);
    const auto before = form.grid.Changes();
    {
        const RedrawPause outer(form.grid);
        const RedrawPause inner(form.grid);
        form.grid.SetText(1, 0, "new");
    }
    EXPECT_EQ(form.grid.Changes(), before + 1);
}

TEST(GridTest, PlacesAgreeWithWhatTheyShow) {
    GridForm form(100);
    Grid& grid = form.grid;
    grid.Geometry().SetStretchColumn(1);
    grid.SetCurrentCell(60, 0);
    for (int row : {0, 60, grid.Geometry().TopRow()}) {
        for (int column = Grid::kRowHeader; column < 3; ++column) {
            SCOPED_TRACE(testing::Message() << row << "," << column);
            const auto bounds = grid.Geometry().CellBounds(row, column);
            ASSERT_TRUE(bounds);
            const auto hit = grid.Geometry().HitTest(bounds->x + bounds->width - 1,
                                                     bounds->y + bounds->height - 1, 101);
            ASSERT_TRUE(hit);
            EXPECT_EQ(hit->row, row);
            EXPECT_EQ(hit->column, column);
        }
    }
    const auto last = grid.Geometry().CellBounds(0, 2);
    EXPECT_EQ(last->x + last->width,
              300 - 2 * grid.Geometry().frame - grid.Geometry().scrollBarWidth)
        << "the stretched column takes up the rest";
    EXPECT_FALSE(grid.Geometry().CellBounds(1, 0));
}

TEST(GridTest, ColumnsThatTheUserSizesStayWithinTheGrid) {
    const int kFree = 300 - 2 - 17 - 44;  // without frame, scroll bar and fixed column
    const struct {
        const char* what;
        int stretch;
        bool fit;
        int column, width;
        int expected[3];
    } cases[] = {
        {"the next column gives", 0, false, 1, 80, {kFree - 128, 80, 48}},
        {"no more than it can", 0, false, 1, 999, {kFree - 128, 104, 24}},
        {"the next column gains", 0, false, 1, 5, {kFree - 128, 24, 104}},
        {"the stretched column's edge follows", 0, false, 0, 50, {50, kFree - 114, 64}},
        {"the last edge is held by the stretched column", 0, false, 2, 30, {kFree - 128, 64, 64}},
        {"or is free", -1, false, 2, 100, {64, 64, 100}},
        {"as far as there is room", -1, false, 2, 999, {64, 64, kFree - 128}},
        {"fitting takes from the stretched column", 0, true, 2, 90, {kFree - 154, 64, 90}},
        {"which fits by itself", 0, true, 0, 10, {kFree - 128, 64, 64}},
        {"fitting without one moves the rest", -1, true, 0, 100, {100, 64, 64}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        GridForm form(1);
        GridGeometry& geometry = form.grid.Geometry();
        geometry.SetStretchColumn(c.stretch);
        const auto before = form.grid.Changes();
        if (c.fit)
            form.grid.FitColumn(c.column, c.width);
        else
            form.grid.ResizeColumn(c.column, c.width);
        for (int column = 0; column < 3; ++column)
            EXPECT_EQ(geometry.ColumnWidth(column), c.expected[column]) << column;
        EXPECT_GT(form.grid.Changes(), before);
        form.LayOut(300, 240);
        EXPECT_LE(geometry.CellBounds(0, 2)->x + geometry.ColumnWidth(2), 300 - 2 - 17);
    }
}

TEST(GridTest, HeaderEdgesAreFoundWhereColumnsCanBeSized) {
    GridForm form(1);
    GridGeometry& geometry = form.grid.Geometry();
    EXPECT_EQ(geometry.EdgeAt(44 + 64 + 3, 5), 0);
    EXPECT_EQ(geometry.EdgeAt(44 + 64 + 9, 5), std::nullopt);
    EXPECT_EQ(geometry.EdgeAt(44 + 64, geometry.headerHeight), std::nullopt) << "below the headers";
    EXPECT_EQ(geometry.EdgeAt(44 + 3 * 64, 5), 2);
    geometry.SetStretchColumn(0);
    EXPECT_EQ(geometry.EdgeAt(300 - 19, 5), std::nullopt) << "the last edge stays where it is";
}

TEST(GridTest, ADoubleClickEditsTheCellAsF2Does) {
    GridForm form(2);
    User user(form);
    user.ClickCell("grid", 2, 1, {.doubleClick = true});
    EXPECT_TRUE(form.grid.IsEditing());
    EXPECT_EQ(form.grid.Text(2, 1), "b2") << "keeping its text";
    form.grid.SetCaret(1);
    user.Type("x");
    EXPECT_EQ(form.grid.Text(2, 1), "bx2");
    user.ClickCell("grid", 2, Grid::kRowHeader, {.doubleClick = true});
    form.grid.SetEditable(1, 0, false);
    user.ClickCell("grid", 1, 0, {.doubleClick = true});
    EXPECT_FALSE(form.grid.IsEditing()) << "a locked cell";
}

TEST(GridTest, KeysFindTheirWayIntoAGridWithoutACurrentCell) {
    GridForm form(0);
    User user(form);
    user.Press(Key::Down);
    EXPECT_EQ(form.grid.CurrentRow(), -1) << "there is no cell";
    form.grid.AddRow();
    user.Press(Key::F2);
    user.Type("x");
    EXPECT_EQ(form.grid.CurrentRow(), -1);
    user.Press(Key::PageDown);
    EXPECT_EQ(form.grid.CurrentRow(), 1);
    EXPECT_EQ(form.grid.SelectedRows(), std::vector<int>{1});
}

TEST(GridTest, TypingBringsTheCellBackIntoSight) {
    GridForm form(100);
    User user(form);
    form.grid.ScrollBy(50);
    ASSERT_FALSE(form.grid.Geometry().CellBounds(1, 0));
    user.Type("x");
    EXPECT_TRUE(form.grid.Geometry().CellBounds(1, 0));
}

}  // namespace
}  // namespace kestrel::ui
