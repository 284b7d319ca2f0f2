#include <gtest/gtest.h>

#include <oleacc.h>

#include <vector>

#include "platform/win32/Bstr.h"
#include "platform/win32/ComPtr.h"
#include "platform/win32/Variant.h"
#include "windows/grid/GridHost.h"
#include "windows/grid/SampleGrid.h"

namespace kestrel::test {
namespace {

using kestrel::win32::Bstr;
using kestrel::win32::ComPtr;
using kestrel::win32::Variant;

/// A program that reads the grid as screen readers do.
class GridAccessTest : public testing::Test {
 protected:
    GridAccessTest() : form(30), window(form, form.grid) {
        EXPECT_EQ(AccessibleObjectFromWindow(window.Window(), static_cast<DWORD>(OBJID_CLIENT),
                                             __uuidof(IAccessible), table.OutVoid()),
                  S_OK);
    }

    static VARIANT Element(LONG id) {
        VARIANT element{};
        element.vt = VT_I4;
        element.lVal = id;
        return element;
    }
    /// Five elements a row: the fixed column and four others.
    static LONG Id(int row, int column) { return row * 5 + column + 2; }

    std::string Name(LONG id) {
        Bstr text;
        table->get_accName(Element(id), text.Out());
        return text.Utf8();
    }
    std::string Value(LONG id) {
        Bstr text;
        table->get_accValue(Element(id), text.Out());
        return text.Utf8();
    }
    LONG Role(LONG id) {
        Variant role;
        table->get_accRole(Element(id), role.Out());
        return role.vt == VT_I4 ? role.lVal : -1;
    }
    LONG State(LONG id) {
        Variant state;
        table->get_accState(Element(id), state.Out());
        return state.vt == VT_I4 ? state.lVal : -1;
    }

    SampleGrid form;
    GridHost window;
    ComPtr<IAccessible> table;
};

TEST_F(GridAccessTest, TellsWhatEveryCellIs) {
    form.grid.SetChecked(2, SampleGrid::kCheck, true);
    constexpr LONG kFocusable =
        STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_MULTISELECTABLE;
    const struct {
        LONG id;
        const char *name, *value;
        LONG role, state;
    } cases[] = {
        {CHILDID_SELF, "Sample", "", ROLE_SYSTEM_TABLE, STATE_SYSTEM_FOCUSABLE},
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
         kFocusable | STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Name(c.id), c.name);
        EXPECT_EQ(Value(c.id), c.value);
        EXPECT_EQ(Role(c.id), c.role);
        EXPECT_EQ(State(c.id), c.state);
    }
    LONG count = 0;
    EXPECT_EQ(table->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 31 * 5);
    Bstr text;
    EXPECT_EQ(table->get_accName(Element(count + 1), text.Out()), E_INVALIDARG);
    EXPECT_EQ(table->get_accName(Element(-1), text.Out()), E_INVALIDARG);
}

TEST_F(GridAccessTest, TheSystemsOwnClientReadsTheGridCellByCell) {
    std::vector<VARIANT> children(5);
    LONG got = 0;
    ASSERT_EQ(
        AccessibleChildren(table.Get(), Id(3, ui::Grid::kRowHeader) - 1, 5, children.data(), &got),
        S_OK);
    ASSERT_EQ(got, 5);
    EXPECT_EQ(children[1].lVal, Id(3, SampleGrid::kName));
    EXPECT_EQ(Value(children[1].lVal), "Name 3");
    ComPtr<IDispatch> parent;
    EXPECT_EQ(table->get_accParent(parent.Out()), S_OK);
    EXPECT_TRUE(parent);
}

TEST_F(GridAccessTest, PlacesAndNeighboursAgreeWithTheGrid) {
    LONG left = 0, top = 0, width = 0, height = 0;
    const LONG cell = Id(3, SampleGrid::kFigure);
    ASSERT_EQ(table->accLocation(&left, &top, &width, &height, Element(cell)), S_OK);
    RECT expected = CellPlace(form.grid, 3, SampleGrid::kFigure);
    MapWindowPoints(window.Window(), nullptr, reinterpret_cast<POINT*>(&expected), 2);
    EXPECT_EQ(left, expected.left);
    EXPECT_EQ(top + height, expected.bottom);
    Variant hit;
    EXPECT_EQ(table->accHitTest(left + width - 1, top + height - 1, hit.Out()), S_OK);
    EXPECT_EQ(hit.lVal, cell);
    EXPECT_EQ(table->accHitTest(0, 0, hit.Out()), S_FALSE) << "outside";

    const struct {
        LONG direction, start, end;
    } cases[] = {
        {NAVDIR_UP, cell, Id(2, SampleGrid::kFigure)},
        {NAVDIR_DOWN, cell, Id(4, SampleGrid::kFigure)},
        {NAVDIR_LEFT, cell, Id(3, SampleGrid::kName)},
        {NAVDIR_RIGHT, cell, Id(3, SampleGrid::kLocked)},
        {NAVDIR_RIGHT, Id(3, SampleGrid::kCheck), 0},
        {NAVDIR_NEXT, Id(3, SampleGrid::kCheck), Id(4, ui::Grid::kRowHeader)},
        {NAVDIR_PREVIOUS, 1, 0},
        {NAVDIR_FIRSTCHILD, CHILDID_SELF, 1},
        {NAVDIR_LASTCHILD, CHILDID_SELF, Id(30, SampleGrid::kCheck)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.direction << " from " << c.start);
        Variant end;
        EXPECT_EQ(table->accNavigate(c.direction, Element(c.start), end.Out()),
                  c.end ? S_OK : S_FALSE);
        EXPECT_EQ(end.vt == VT_I4 ? end.lVal : 0, c.end);
    }
}

TEST_F(GridAccessTest, ActsAsTheUserDoes) {
    int left = 0;
    form.grid.BeforeLeaveCell = [&] { return ++left > 0; };
    EXPECT_EQ(table->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION,
                               Element(Id(5, SampleGrid::kFigure))),
              S_OK);
    EXPECT_EQ(form.grid.CurrentRow(), 5);
    EXPECT_EQ(left, 1) << "the form's rules hold";
    EXPECT_GT(window.events, 0) << "the windows are brought in step";
    Variant focus;
    EXPECT_EQ(table->get_accFocus(focus.Out()), S_OK);
    EXPECT_EQ(focus.lVal, Id(5, SampleGrid::kFigure));

    EXPECT_EQ(table->accDoDefaultAction(Element(Id(6, SampleGrid::kCheck))), S_OK);
    EXPECT_TRUE(form.grid.Checked(6, SampleGrid::kCheck));
    EXPECT_EQ(table->accDoDefaultAction(Element(Id(6, SampleGrid::kName))), S_OK);
    EXPECT_TRUE(form.grid.IsEditing());
    EXPECT_EQ(table->accDoDefaultAction(Element(Id(0, SampleGrid::kName))), E_INVALIDARG);

    EXPECT_EQ(table->accSelect(SELFLAG_ADDSELECTION, Element(Id(8, 0))), S_OK);
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
    LONG count = 0;
    Variant answer;
    EXPECT_EQ(table->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(table->get_accRole(Element(1), answer.Out()), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(table->accDoDefaultAction(Element(7)), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(table->get_accSelection(answer.Out()), CO_E_OBJNOTCONNECTED);
}

/// What is told to listening programs, in order.
struct Heard {
    DWORD event;
    LONG element;
    bool operator==(const Heard&) const = default;
};
std::vector<Heard>* listening = nullptr;

void CALLBACK Listen(HWINEVENTHOOK, DWORD event, HWND, LONG object, LONG element, DWORD, DWORD) {
    if (object == OBJID_CLIENT && element != CHILDID_SELF) listening->push_back({event, element});
}

TEST_F(GridAccessTest, MovesAndChangedTextsAreAnnounced) {
    std::vector<Heard> heard;
    listening = &heard;
    const HWINEVENTHOOK hook =
        SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_VALUECHANGE, GetModuleHandleW(nullptr),
                        Listen, GetCurrentProcessId(), 0, WINEVENT_INCONTEXT);
    window.PressKey(VK_DOWN);
    window.Type(L"x");
    window.PressKey(VK_END);
    window.PressKey(VK_SPACE);
    UnhookWinEvent(hook);
    const auto wasHeard = [&](DWORD event, LONG element) {
        return std::count(heard.begin(), heard.end(), Heard{event, element});
    };
    EXPECT_EQ(wasHeard(EVENT_OBJECT_FOCUS, Id(2, SampleGrid::kName)), 1);
    EXPECT_GE(wasHeard(EVENT_OBJECT_VALUECHANGE, Id(2, SampleGrid::kName)), 1);
    EXPECT_EQ(wasHeard(EVENT_OBJECT_VALUECHANGE, Id(1, SampleGrid::kName)), 0);
}

}  // namespace
}  // namespace kestrel::test
