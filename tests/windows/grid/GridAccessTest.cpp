#include <gtest/gtest.h>

#include <vector>

#include "windows/grid/GridHost.h"
#include "windows/grid/SampleGrid.h"
#include "windows/support/ScreenReader.h"

namespace kestrel::test {
namespace {

using kestrel::win32::ComPtr;
using kestrel::win32::Variant;

class GridAccessTest : public testing::Test {
 protected:
    /// Five parts a row: the fixed column and four others.
    static long Id(int row, int column) { return row * 5 + column + 2; }
    static VARIANT Part(long id) { return ScreenReader::Part(id); }

    SampleGrid form{30};
    GridHost window{form, form.grid};
    ScreenReader table{window.Window()};
};

TEST_F(GridAccessTest, TellsWhatEveryCellIsAndWhere) {
    form.grid.SetChecked(2, SampleGrid::kCheck, true);
    constexpr long kFocusable =
        STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_MULTISELECTABLE;
    ExpectParts(
        table,
        {{0, "Sample", "", ROLE_SYSTEM_TABLE, STATE_SYSTEM_FOCUSABLE},
         {Id(0, SampleGrid::kLocked), "Locked figure", "", ROLE_SYSTEM_COLUMNHEADER,
          STATE_SYSTEM_READONLY},
         {Id(2, ui::Grid::kRowHeader), "2.", "", ROLE_SYSTEM_ROWHEADER, STATE_SYSTEM_READONLY},
         {Id(1, SampleGrid::kName), "Name, row 1", "Name 1", ROLE_SYSTEM_CELL,
          kFocusable | STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED},
         {Id(2, SampleGrid::kFigure), "Figure, row 2", "2.50%", ROLE_SYSTEM_CELL, kFocusable},
         {Id(2, SampleGrid::kLocked), "Locked figure, row 2", "", ROLE_SYSTEM_CELL,
          kFocusable | STATE_SYSTEM_READONLY},
         {Id(2, SampleGrid::kCheck), "On, row 2", "", ROLE_SYSTEM_CHECKBUTTON,
          kFocusable | STATE_SYSTEM_CHECKED},
         {Id(30, SampleGrid::kName), "Name, row 30", "Name 30", ROLE_SYSTEM_CELL,
          kFocusable | STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE}});
    EXPECT_EQ(table.Count(), 31 * 5);
    EXPECT_EQ(table.Name(31 * 5 + 1), "failed");
    EXPECT_EQ(table.Name(-1), "failed");
    std::vector<VARIANT> children(5);
    LONG got = 0;
    ASSERT_EQ(AccessibleChildren(table.Get(), Id(3, -1) - 1, 5, children.data(), &got), S_OK);
    EXPECT_EQ(got, 5) << "the system's own client takes the parts of a row";
    EXPECT_EQ(children[1].lVal, Id(3, SampleGrid::kName));

    const long cell = Id(3, SampleGrid::kFigure);
    const RECT place = table.Place(cell);
    RECT expected = CellPlace(form.grid, 3, SampleGrid::kFigure);
    MapWindowPoints(window.Window(), nullptr, reinterpret_cast<POINT*>(&expected), 2);
    EXPECT_TRUE(EqualRect(&place, &expected));
    EXPECT_EQ(table.At(place.right - 1, place.bottom - 1), cell);
    EXPECT_EQ(table.At(0, 0), -1) << "outside";
    const struct {
        long direction, start, end;
    } ways[] = {
        {NAVDIR_UP, cell, Id(2, SampleGrid::kFigure)},
        {NAVDIR_UP, 1, 0},
        {NAVDIR_DOWN, cell, Id(4, SampleGrid::kFigure)},
        {NAVDIR_DOWN, Id(30, SampleGrid::kName), 0},
        {NAVDIR_LEFT, cell, Id(3, SampleGrid::kName)},
        {NAVDIR_RIGHT, cell, Id(3, SampleGrid::kLocked)},
        {NAVDIR_RIGHT, Id(3, SampleGrid::kCheck), 0},
        {NAVDIR_NEXT, Id(3, SampleGrid::kCheck), Id(4, ui::Grid::kRowHeader)},
        {NAVDIR_PREVIOUS, 1, 0},
        {NAVDIR_FIRSTCHILD, CHILDID_SELF, 1},
        {NAVDIR_LASTCHILD, CHILDID_SELF, Id(30, SampleGrid::kCheck)},
    };
    for (const auto& way : ways)
        EXPECT_EQ(table.Beside(way.start, way.direction), way.end)
            << way.direction << " from " << way.start;
}

TEST_F(GridAccessTest, ActsAsTheUserDoes) {
    int left = 0;
    form.grid.BeforeLeaveCell = [&] { return ++left > 0; };
    EXPECT_EQ(table->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION,
                               Part(Id(5, SampleGrid::kFigure))),
              S_OK);
    EXPECT_EQ(left, 1) << "the form's rules hold";
    EXPECT_GT(window.events, 0) << "the windows are brought in step";
    EXPECT_EQ(table.Focus(), Id(5, SampleGrid::kFigure));
    EXPECT_EQ(table->accSelect(0, Part(Id(5, 0))), E_INVALIDARG);

    EXPECT_EQ(table->accDoDefaultAction(Part(Id(6, SampleGrid::kCheck))), S_OK);
    EXPECT_TRUE(form.grid.Checked(6, SampleGrid::kCheck));
    EXPECT_EQ(table->accDoDefaultAction(Part(Id(6, SampleGrid::kName))), S_OK);
    EXPECT_TRUE(form.grid.IsEditing());
    EXPECT_EQ(table->accDoDefaultAction(Part(Id(0, SampleGrid::kName))), E_INVALIDARG);

    EXPECT_EQ(table->accSelect(SELFLAG_ADDSELECTION, Part(Id(8, 0))), S_OK);
    Variant selection;
    ASSERT_EQ(table->get_accSelection(selection.Out()), S_OK);
    ASSERT_EQ(selection.vt, VT_UNKNOWN);
    const auto cells = ComPtr<IUnknown>(selection.punkVal).As<IEnumVARIANT>(IID_IEnumVARIANT);
    VARIANT each[9];
    ULONG got = 0;
    EXPECT_EQ(cells->Next(9, each, &got), S_FALSE);
    ASSERT_EQ(got, 8u);
    EXPECT_EQ(each[0].lVal, Id(6, 0));
    EXPECT_EQ(each[7].lVal, Id(8, SampleGrid::kCheck));
}

TEST_F(GridAccessTest, AnObjectOutlivesItsWindow) {
    window.DestroyView();
    Variant answer;
    EXPECT_EQ(table.Count(), -1);
    EXPECT_EQ(table->get_accRole(Part(1), answer.Out()), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(table->accDoDefaultAction(Part(7)), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(table->get_accSelection(answer.Out()), CO_E_OBJNOTCONNECTED);
}

TEST_F(GridAccessTest, MovesAndChangedTextsAreAnnounced) {
    const Announcements heard;
    window.PressKey(VK_DOWN);
    window.Type(L"x");
    window.PressKey(VK_END);
    window.PressKey(VK_SPACE);
    EXPECT_EQ(heard.Count(EVENT_OBJECT_FOCUS, Id(2, SampleGrid::kName)), 1);
    EXPECT_GE(heard.Count(EVENT_OBJECT_VALUECHANGE, Id(2, SampleGrid::kName)), 1);
    EXPECT_EQ(heard.Count(EVENT_OBJECT_VALUECHANGE, Id(1, SampleGrid::kName)), 0);
}

}  // namespace
}  // namespace kestrel::test
