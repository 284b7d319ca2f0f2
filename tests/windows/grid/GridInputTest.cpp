#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <random>

#include "platform/win32/Clipboard.h"
#include "platform/win32/WideText.h"
#include "support/ScriptedRunner.h"
#include "ui/win32/KeyInput.h"
#include "windows/grid/GridHost.h"
#include "windows/grid/SampleGrid.h"

namespace kestrel::test {
namespace {

using Text = std::string;

/// All that a user can see or feel of a grid.
Text Describe(const Grid& grid) {
    Text all = "current " + std::to_string(grid.CurrentRow()) + "," +
               std::to_string(grid.CurrentColumn()) + " top " +
               std::to_string(grid.Geometry().TopRow()) +
               (grid.IsEditing() ? " caret " + std::to_string(grid.Caret()) : "") + " selected";
    for (const int row : grid.SelectedRows()) all += " " + std::to_string(row);
    for (int row = 1; row < grid.RowCount(); ++row)
        for (int column = 0; column < grid.ColumnCount(); ++column)
            all += "|" + grid.Text(row, column);
    return all;
}

/// Two equal grids: one is worked through its window, the other is told the same events directly.
class RandomInput : public testing::TestWithParam<UINT> {
 protected:
    RandomInput() : random(GetParam()), window(shown, shown.grid, GetParam()), user(told) {
        told.grid.Geometry() = shown.grid.Geometry();
    }

    int Below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

    void Key() {
        static constexpr struct {
            WORD code;
            ui::Key key;
        } kKeys[] = {
            {VK_DOWN, ui::Key::Down},     {VK_UP, ui::Key::Up},         {VK_LEFT, ui::Key::Left},
            {VK_RIGHT, ui::Key::Right},   {VK_NEXT, ui::Key::PageDown}, {VK_PRIOR, ui::Key::PageUp},
            {VK_HOME, ui::Key::Home},     {VK_END, ui::Key::End},       {VK_F2, ui::Key::F2},
            {VK_DELETE, ui::Key::Delete}, {VK_SPACE, ui::Key::Space},   {VK_BACK, ui::Key::Back}};
        const auto& key = kKeys[Below(static_cast<int>(std::size(kKeys)))];
        const bool shift = Below(4) == 0, ctrl = Below(6) == 0;
        window.PressKey(key.code, {.shift = shift, .ctrl = ctrl});
        user.Press(key.key, shift, ctrl);
    }

    void Characters() {
        const char typed[] = {static_cast<char>('!' + Below(90)), '\0'};
        window.Type(std::wstring(1, static_cast<wchar_t>(typed[0])));
        user.Type(typed);
    }

    /// Never the same cell twice running: that would be a double click.
    void Click() {
        const int first = shown.grid.Geometry().TopRow();
        const int row = first + Below(shown.grid.Geometry().VisibleRows());
        const int column = Below(SampleGrid::kColumns + 1) - 1;
        if (row == clickedRow_ && column == clickedColumn_) return;
        clickedRow_ = row;
        clickedColumn_ = column;
        MouseEvent how;
        how.shift = Below(5) == 0;
        how.ctrl = Below(5) == 0;
        const Rect cell = shown.grid.Geometry().CellBounds(row, column).value();
        how.x = cell.x + cell.width / 2;
        how.y = cell.y + cell.height / 2;
        // The first or the last pixel: the whole of what looks like a cell must be that cell.
        const RECT place = ui::win32::GridScale{GetParam()}.Pixels(cell);
        const bool last = Below(2) == 0;
        window.Click(last ? POINT{place.right - 1, place.bottom - 1} : POINT{place.left, place.top},
                     {.shift = how.shift, .ctrl = how.ctrl});
        told.MouseDown(how);
        // Only a window can tell which character the mouse is at.
        if (told.grid.IsEditing()) told.grid.SetCaret(shown.grid.Caret());
    }

    SampleGrid shown{60}, told{60};
    std::mt19937 random;
    GridHost window;
    User user;

 private:
    int clickedRow_ = 0, clickedColumn_ = 0;
};

TEST_P(RandomInput, DoesToTheModelWhatItsEventsDo) {
    for (int step = 0; step < 250; ++step) {
        SCOPED_TRACE(testing::Message() << "step " << step);
        const int kind = Below(10);
        if (kind < 5)
            Key();
        else if (kind < 8)
            Characters();
        else
            Click();
        ASSERT_EQ(Describe(shown.grid), Describe(told.grid));
    }
}

INSTANTIATE_TEST_SUITE_P(AtScale, RandomInput, testing::Values(96u, 120u, 144u, 192u));

TEST(GridInputTest, CharactersOutsideTheBasicPlaneArriveWhole) {
    SampleGrid form(1);
    GridHost window(form, form.grid);
    window.Type(L"é\U0001F600x");
    EXPECT_EQ(form.grid.Text(1, 0), "\u00e9\U0001F600x");
    window.PressKey(VK_BACK);
    window.PressKey(VK_BACK);
    EXPECT_EQ(form.grid.Text(1, 0), "\u00e9");
}

TEST(GridInputTest, CtrlTypesNothingButAltGrDoes) {
    const struct {
        const char* what;
        bool ctrl, alt;
        WPARAM unit;
        std::optional<char32_t> expected;
    } cases[] = {
        {"plain", false, false, 'a', U'a'},
        {"Ctrl+A", true, false, 1, std::nullopt},
        {"Ctrl+Backspace", true, false, 127, std::nullopt},
        {"AltGr", true, true, L'@', U'@'},
        {"half a character without its first half", false, false, 0xDE00, std::nullopt},
    };
    BYTE before[256]{};
    ASSERT_TRUE(GetKeyboardState(before));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        BYTE keys[256]{};
        keys[VK_CONTROL] = c.ctrl ? 0x80 : 0;
        keys[VK_MENU] = c.alt ? 0x80 : 0;
        ASSERT_TRUE(SetKeyboardState(keys));
        EXPECT_EQ(ui::win32::CharacterInput().Take(c.unit), c.expected);
        if (c.ctrl && c.alt) {
            EXPECT_FALSE(ui::win32::KeyEventOf('Q', 0)) << "no access key";
        }
    }
    ASSERT_TRUE(SetKeyboardState(before));
}

TEST(GridInputTest, ADoubleClickPutsTheCaretWhereItHits) {
    SampleGrid form(3);
    GridHost window(form, form.grid);
    const RECT cell = CellPlace(form.grid, 2, SampleGrid::kName);
    window.Click({cell.left + 6, Middle(cell).y}, {}, 2);
    ASSERT_TRUE(form.grid.IsEditing());
    EXPECT_EQ(form.grid.Caret(), 0u);
    window.Type(L"X");
    EXPECT_EQ(form.grid.Text(2, SampleGrid::kName), "XName 2");
    window.Click({cell.right - 10, Middle(cell).y});
    EXPECT_EQ(form.grid.Caret(), 7u) << "behind the text";
}

TEST(GridInputTest, TheCaretStandsWhereTheNextCharacterGoes) {
    SampleGrid form(3);
    GridHost window(form, form.grid);
    const auto caret = [&] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        EXPECT_TRUE(GetGUIThreadInfo(GetCurrentThreadId(), &info));
        return info.hwndCaret == window.Window() ? info.rcCaret : RECT{};
    };
    EXPECT_EQ(caret().bottom, 0) << "none while nothing is edited";
    window.Type(L"m");
    const RECT first = caret();
    window.Type(L"m");
    const RECT second = caret(), cell = CellPlace(form.grid, 1, SampleGrid::kName);
    EXPECT_GT(first.left, cell.left);
    EXPECT_EQ(second.left - first.left, first.left - (cell.left + 5)) << "one letter on";
    EXPECT_GE(second.top, cell.top);
    EXPECT_LT(second.bottom, cell.bottom);
    window.Type(std::wstring(100, L'm'));
    EXPECT_LT(caret().left, cell.right) << "a long text is shifted";
    form.grid.ScrollBy(3);
    window.PressKey(VK_ESCAPE);
    EXPECT_EQ(caret().bottom, 0) << "none afterwards";
}

TEST(GridInputTest, ColumnsAreSizedByMouseAndKeyboard) {
    for (const UINT dpi : {96u, 144u}) {
        SCOPED_TRACE(dpi);
        SampleGrid form(3);
        const ui::GridGeometry& geometry = form.grid.Geometry();
        GridHost window(form, form.grid, dpi);
        const RECT header = CellPlace(form.grid, 0, SampleGrid::kFigure, dpi);
        const int before = geometry.ColumnWidth(SampleGrid::kFigure);
        const int drag = MulDiv(30, static_cast<int>(dpi), 96);
        window.DragMouse({header.right, 5}, {header.right + drag, 5});
        EXPECT_EQ(geometry.ColumnWidth(SampleGrid::kFigure), before + 30);
        window.PressKey(VK_LEFT, {.alt = true});
        EXPECT_EQ(geometry.ColumnWidth(SampleGrid::kFigure), before + 38) << "the next one's gain";
        window.PressKey(VK_ADD, {.ctrl = true});
        const int fitted = geometry.ColumnWidth(SampleGrid::kFigure);
        EXPECT_LT(fitted, before + 38) << "to what the texts need";
        form.grid.SetText(2, SampleGrid::kFigure, "1234567890123");
        const RECT now = CellPlace(form.grid, 0, SampleGrid::kFigure, dpi);
        window.Click({now.right - 1, 5}, {}, 2);
        EXPECT_GT(geometry.ColumnWidth(SampleGrid::kFigure), fitted);
        EXPECT_EQ(form.grid.CurrentRow(), 1) << "headers choose no cell";
        EXPECT_EQ(window.failure, nullptr);
    }
}

TEST(GridInputTest, TheWheelScrollsByTheSystemsLinesAndTheirFractions) {
    SampleGrid form(100);
    GridHost window(form, form.grid);
    UINT lines = 0;
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0));
    const int notch = static_cast<int>(lines);
    const struct {
        int delta, top;
    } steps[] = {
        {-WHEEL_DELTA, 1 + notch},
        {-WHEEL_DELTA / 2, 1 + notch + notch / 2},
        {-WHEEL_DELTA / 2, 1 + 2 * notch},
        {WHEEL_DELTA, 1 + notch},
        {10 * WHEEL_DELTA, 1},
    };
    for (const auto& step : steps) {
        window.Wheel(step.delta);
        EXPECT_EQ(form.grid.Geometry().TopRow(), step.top) << step.delta;
    }
    EXPECT_EQ(form.grid.CurrentRow(), 1) << "the current cell stays";
}

TEST(GridInputTest, TheScrollBarFollowsAndLeadsTheRows) {
    SampleGrid form(70000);
    GridHost window(form, form.grid);
    const auto bar = [&] {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        GetScrollInfo(window.Window(), SB_VERT, &info);
        return info;
    };
    const int page = form.grid.Geometry().VisibleRows();
    EXPECT_EQ(bar().nMax, 69999);
    EXPECT_EQ(static_cast<int>(bar().nPage), page);
    window.PressKey(VK_END, {.ctrl = true});
    EXPECT_EQ(bar().nPos, 70000 - page) << "beyond what 16 bits hold";
    SendMessageW(window.Window(), WM_VSCROLL, SB_LINEUP, 0);
    EXPECT_EQ(form.grid.Geometry().TopRow(), 70000 - page);
    SendMessageW(window.Window(), WM_VSCROLL, SB_TOP, 0);
    UpdateWindow(window.Window());
    EXPECT_EQ(bar().nPos, 0);
    while (form.grid.RowCount() > page) form.grid.RemoveRow(form.grid.RowCount() - 1);
    window.View().Update();
    EXPECT_FALSE(GetWindowLongPtrW(window.Window(), GWL_STYLE) & WS_VSCROLL) << "not needed";
}

TEST(GridInputTest, PastingPutsTheWholeTextIntoTheCell) {
    SampleGrid form(2);
    GridHost window(form, form.grid);
    kestrel::win32::Clipboard().PutText(" Größe 雨\U0001F600\t\r\n");
    for (const auto& [key, held] :
         {std::pair(WORD{'V'}, Modifiers{.ctrl = true}), {VK_INSERT, {.shift = true}}}) {
        form.grid.SetText(1, SampleGrid::kName, "");
        window.PressKey(key, held);
        EXPECT_EQ(form.grid.Text(1, SampleGrid::kName), "Größe 雨\U0001F600") << key;
    }
}

TEST(GridInputTest, TheMouseShowsTextsThatAreTooLongForTheirCells) {
    SampleGrid form(3);
    const std::string text = "A description that is far too long for its column, whatever the font";
    form.grid.SetText(2, SampleGrid::kName, text);
    GridHost window(form, form.grid);
    const auto hint = [&](int row) {
        window.MoveMouse(Middle(CellPlace(form.grid, row, SampleGrid::kName)));
        std::wstring shown(200, L'\0');
        const auto look = [](HWND each, LPARAM found) -> BOOL {
            wchar_t name[32] = L"";
            GetClassNameW(each, name, 32);
            if (std::wstring_view(name) != TOOLTIPS_CLASSW) return TRUE;
            TTTOOLINFOW tool{};
            tool.cbSize = sizeof tool;
            tool.lpszText = reinterpret_cast<std::wstring*>(found)->data();
            if (!SendMessageW(each, TTM_ENUMTOOLSW, 1, reinterpret_cast<LPARAM>(&tool)))
                tool.lpszText[0] = L'\0';
            return FALSE;
        };
        EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&shown));
        return kestrel::win32::Utf8(shown.c_str());
    };
    EXPECT_EQ(hint(1), "");
    EXPECT_EQ(hint(2), text);
    EXPECT_EQ(hint(3), "") << "not over another cell";
    hint(2);
    form.grid.SetText(2, SampleGrid::kName, "short");
    window.View().Update();
    EXPECT_EQ(hint(2), "");
}

}  // namespace
}  // namespace kestrel::test
