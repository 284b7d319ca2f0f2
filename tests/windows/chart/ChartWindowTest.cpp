#include <windows.h>
#include <commctrl.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "ui/controls/Button.h"
#include "ui/win32/ControlView.h"
#include "ui/win32/WindowHandle.h"
#include "windows/chart/ChartSamples.h"
#include "windows/chart/PostScriptPrinter.h"
#include "windows/support/ScreenReader.h"
#include "windows/support/WatchedRunner.h"

namespace kestrel::test {
namespace {

class ChartForm : public ui::Form {
 public:
    explicit ChartForm(const Drivers& drivers = kDrivers)
        : Form("A chart", 620, 360), drivers_(drivers) {
        Add(chart, {10, 10, 600, 300}, ui::kAnchorAll);
        Add(close, {510, 320, 100, 26}, ui::kAnchorRight | ui::kAnchorBottom);
        close.Click = [this] { Close(); };
        SetCancelButton(close);
    }
    ui::Chart chart{"chart"};
    ui::Button close{"close", "Close"};

 protected:
    void Form_Load() override { Draw(chart, drivers_, "Ferry terminal"); }

 private:
    Drivers drivers_;
};

bool IsOfClass(HWND window, const wchar_t* wanted) {
    wchar_t name[50]{};
    GetClassNameW(window, name, 50);
    return std::wstring_view(name) == wanted;
}

/// A window of this thread on the screen; none when there is no such.
HWND Shown(const wchar_t* windowClass) {
    struct Search {
        const wchar_t* windowClass;
        HWND found;
    } search{windowClass, nullptr};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM into) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(into);
            if (IsWindowVisible(window) && IsOfClass(window, wanted.windowClass))
                wanted.found = window;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::string ShownHint() {
    wchar_t text[200]{};
    if (const HWND hint = Shown(TOOLTIPS_CLASSW)) GetWindowTextW(hint, text, 200);
    return win32::Utf8(text);
}

class ChartWindowTest : public testing::Test {
 protected:
    /// Shows a form with a chart, which has the keyboard, to a user.
    void Show(const std::function<void(WindowUser&, HWND chart)>& script) {
        ChartForm form;
        WhileWorking([&] { runner.ShowModal(form); },
                     [&](WindowUser& user) {
                         const HWND window = user.WaitForWindow(L"A chart");
                         HWND chart = nullptr;
                         user.OnUi([&] {
                             chart = runner.WindowOf("chart");
                             reader = ScreenReader(chart);
                         });
                         script(user, chart);
                         user.Press(VK_ESCAPE);
                         user.WaitUntilGone(window);
                     });
    }
    static void EmptyTheClipboard(WindowUser& user) {
        user.OnUi([] {
            ASSERT_TRUE(OpenClipboard(GetActiveWindow()));
            EmptyClipboard();
            CloseClipboard();
        });
    }
    static void WaitForPicture(WindowUser& user) {
        user.WaitUntil("a metafile is on the clipboard",
                       [] { return IsClipboardFormatAvailable(CF_ENHMETAFILE) != FALSE; });
    }

    WatchedRunner runner;
    ScreenReader reader;
};

TEST_F(ChartWindowTest, KeysAndMouseGoFromBarToBarAndTellOfThem) {
    Show([&](WindowUser& user, HWND chart) {
        const auto waitFor = [&](long part, const std::string& hint) {
            user.WaitUntil("the bar is chosen: " + hint,
                           [&] { return reader.Focus() == part && ShownHint() == hint; });
        };
        const struct {
            WORD key;
            long part;
            const char* hint;
        } rows[] = {
            {VK_DOWN, 1, "1 - Ground conditions worse than surveyed: 81.0%"},
            {VK_DOWN, 2, "2 - Late delivery of the link span: -42.0%"},
            {VK_END, 3, "3 - Weather windows missed: 25.0%"},
            {VK_RIGHT, 3, "3 - Weather windows missed: 25.0%"},
            {VK_LEFT, 2, "2 - Late delivery of the link span: -42.0%"},
            {VK_HOME, 1, "1 - Ground conditions worse than surveyed: 81.0%"},
        };
        for (const auto& row : rows) {
            user.Press(row.key);
            waitFor(row.part, row.hint);
        }
        POINT bar{};
        user.OnUi([&] {
            const RECT place = reader.Place(3);
            bar = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
            EXPECT_EQ(reader.At(bar.x, bar.y), 3);
            ScreenToClient(chart, &bar);
        });
        user.Click(chart, bar);
        waitFor(3, "3 - Weather windows missed: 25.0%");
        user.Press(VK_TAB);
        user.WaitUntil("the chart has lost the keyboard",
                       [&] { return reader.Focus() == -1 && ShownHint().empty(); });
    });
}

TEST_F(ChartWindowTest, ScreenReadersFindTheChartAndItsBars) {
    Show([&](WindowUser& user, HWND chart) {
        user.OnUi([&] {
            EXPECT_EQ(reader.Count(), 3);
            constexpr long kShown = STATE_SYSTEM_READONLY | STATE_SYSTEM_FOCUSABLE;
            ExpectParts(reader, {{0, "Risk Factors Driving Project Schedule - Ferry terminal", "",
                                  ROLE_SYSTEM_CHART, kShown | STATE_SYSTEM_FOCUSED},
                                 {2, "2 - Late delivery of the link span: -42.0%", "",
                                  ROLE_SYSTEM_GRAPHIC, kShown}});
            EXPECT_EQ(reader.Name(4), "failed");
            EXPECT_EQ(reader.Beside(2, NAVDIR_NEXT), 3);
            EXPECT_EQ(reader.Beside(3, NAVDIR_NEXT), 0);
            win32::ComPtr<IDispatch> parent;
            EXPECT_EQ(reader->get_accParent(parent.Out()), S_OK);
            EXPECT_TRUE(parent);
            EXPECT_EQ(reader->accSelect(SELFLAG_TAKEFOCUS, ScreenReader::Part(2)), S_OK);
            EXPECT_EQ(reader.Focus(), 2);
            RECT window{};
            GetWindowRect(chart, &window);
            const RECT place = reader.Place(1);
            RECT both{};
            UnionRect(&both, &window, &place);
            EXPECT_TRUE(EqualRect(&both, &window)) << "the bar lies within the chart";
        });
    });
    EXPECT_EQ(reader.Name(0), "failed") << "the window is gone";
}

TEST_F(ChartWindowTest, TheChartIsCopiedByKeyAndByMenu) {
    Show([&](WindowUser& user, HWND) {
        EmptyTheClipboard(user);
        user.Press(VK_CONTROL, 'C');
        WaitForPicture(user);
        EmptyTheClipboard(user);
        user.Press(VK_APPS);
        user.WaitUntil("the menu is open", [] { return Shown(L"#32768") != nullptr; });
        user.Press('C');
        WaitForPicture(user);
    });
}

TEST_F(ChartWindowTest, TheChartIsPrintedOnOnePageUnderThePlansName) {
    const PostScriptPrinter printer;
    Show([&](WindowUser& user, HWND) {
        user.Press(VK_CONTROL, 'P');
        const HWND dialog = user.WaitForWindow(L"Print");
        user.Press(VK_RETURN);
        user.WaitUntilGone(dialog);
        user.WaitForWindow(L"A chart");
        const std::string printed = printer.Printed();
        EXPECT_THAT(printed, testing::HasSubstr("%%Title: Ferry terminal"));
        EXPECT_THAT(printed, testing::HasSubstr("%%Page: 1 1"));
        EXPECT_THAT(printed, testing::Not(testing::HasSubstr("%%Page: 2")));
    });
}

TEST_F(ChartWindowTest, FollowsTheSizeAndTheScaleOfItsForm) {
    Show([&](WindowUser& user, HWND chart) {
        user.OnUi([&] {
            const auto width = [&] {
                const RECT place = reader.Place(1);
                return place.right - place.left;
            };
            const long small = width();
            const HWND form = GetActiveWindow();
            RECT place{};
            GetWindowRect(form, &place);
            SetWindowPos(form, nullptr, 0, 0, place.right - place.left + 300,
                         place.bottom - place.top, SWP_NOZORDER);
            EXPECT_GT(width(), small + 100);
            RECT client{};
            GetClientRect(chart, &client);
            EXPECT_EQ(client.right, 900);

            place = {0, 0, MulDiv(place.right - place.left, 3, 2),
                     MulDiv(place.bottom - place.top, 3, 2)};
            SendMessageW(form, WM_DPICHANGED, MAKEWPARAM(144, 144),
                         reinterpret_cast<LPARAM>(&place));
            EXPECT_NEAR(static_cast<double>(width()), static_cast<double>(small) * 1.5, 12);
        });
    });
}

TEST_F(ChartWindowTest, TheMouseRestingOnABarOrAShortenedNameIsTold) {
    Show([&](WindowUser& user, HWND chart) {
        user.OnUi([&] {
            RECT place = reader.Place(2);
            SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
        });
        user.WaitUntil("the bar is told",
                       [] { return ShownHint() == "2 - Late delivery of the link span: -42.0%"; });
        user.OnUi([&] {
            RECT narrow{};
            GetWindowRect(chart, &narrow);
            MoveWindow(chart, 0, 0, 300, narrow.bottom - narrow.top, TRUE);
            const RECT place = reader.Place(1);
            GetWindowRect(chart, &narrow);
            SetCursorPos(narrow.left + 60, (place.top + place.bottom) / 2);
        });
        user.WaitUntil("the whole name is told",
                       [] { return ShownHint() == "1 - Ground conditions worse than surveyed"; });
    });
}

}  // namespace
}  // namespace kestrel::test
