#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

#include "platform/win32/Gdi.h"
#include "platform/win32/WideText.h"
#include "ui/controls/CheckBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/OptionButton.h"
#include "ui/win32/CommonControls.h"
#include "ui/win32/Dpi.h"
#include "ui/win32/WindowHandle.h"
#include "windows/forms/AllForms.h"
#include "windows/support/LeakCheck.h"

namespace kestrel::test {
namespace {

/// Width and height of a caption in a font, in pixels.
SIZE Measure(const std::string& marked, HFONT font) {
    const win32::WindowDc dc(nullptr);
    const win32::Selection selection(dc.Get(), font);
    RECT text{};
    DrawTextW(dc.Get(), win32::Wide(marked).c_str(), -1, &text, DT_CALCRECT | DT_SINGLELINE);
    return {text.right, text.bottom};
}

/// What a control of the kind needs beside its caption, in units.
int RoomBeside(const ui::Control& control) {
    if (dynamic_cast<const ui::Button*>(&control)) return 12;
    if (dynamic_cast<const ui::CheckBox*>(&control)) return 22;
    if (dynamic_cast<const ui::OptionButton*>(&control)) return 22;
    if (dynamic_cast<const ui::Frame*>(&control)) return 20;
    return 0;
}

win32::Font NinePoint(int dpi) {
    return win32::Font(CreateFontW(-MulDiv(9, dpi, 72), 0, 0, 0, FW_NORMAL, 0, 0, 0,
                                   DEFAULT_CHARSET, 0, 0, 0, 0, L"Segoe UI"));
}

/// Captions from the plan have no bounds: they are shortened, or break their lines.
bool IsFromPlan(const ui::Control& control) {
    return control.Name() == "lblSelectedTask" || control.Name() == "lbMessage" ||
           control.Name() == "lblQuestion";
}

void ExpectCaptionFits(const ui::Control& control, int dpi) {
    const win32::Font system = ui::win32::MessageFont(static_cast<UINT>(dpi));
    // Other machines have wider fonts than this one: a tenth is kept for them.
    const win32::Font usual = NinePoint(dpi);
    const int width = MulDiv(control.Bounds().width - RoomBeside(control), dpi, 96);
    const int height = MulDiv(control.Bounds().height, dpi, 96);
    for (const HFONT font : {system.Get(), usual.Get()}) {
        const SIZE text = Measure(control.MarkedCaption(), font);
        EXPECT_LE(font == usual.Get() ? text.cx * 11 / 10 : text.cx, width);
        EXPECT_LE(text.cy, height);
    }
}

/// As the window converts it.
RECT Pixels(const ui::Rect& place, int dpi) {
    return {MulDiv(place.x, dpi, 96), MulDiv(place.y, dpi, 96),
            MulDiv(place.x + place.width, dpi, 96), MulDiv(place.y + place.height, dpi, 96)};
}

void ExpectApartWithin(const ui::Form& form, const ui::Control& control, SIZE size, int dpi) {
    const RECT place = Pixels(control.Bounds(), dpi);
    EXPECT_GE(std::min(place.left, place.top), 0);
    EXPECT_LE(place.right, MulDiv(size.cx - 10, dpi, 96));
    EXPECT_LE(place.bottom, MulDiv(size.cy - 10, dpi, 96));
    const auto takesPlace = [](const ui::Control& each) {  // frames stand around others
        return each.Visible() && !dynamic_cast<const ui::Frame*>(&each);
    };
    for (const ui::Control* other : form.Controls()) {
        if (other == &control || !takesPlace(*other) || !takesPlace(control)) continue;
        const RECT its = Pixels(other->Bounds(), dpi);
        RECT common{};
        EXPECT_FALSE(IntersectRect(&common, &place, &its)) << "overlaps " << other->Name();
    }
}

/// The Tab key reads the form as its user does: never back up, unless to a column at the right.
void ExpectTabOrder(ui::Form& form) {
    std::vector<const ui::Control*> stops;
    for (const ui::Control* control : form.Controls())
        if (control->IsTabStop()) stops.push_back(control);
    for (std::size_t i = 1; i < stops.size(); ++i) {
        const ui::Rect &from = stops[i - 1]->Bounds(), &to = stops[i]->Bounds();
        EXPECT_TRUE(to.y + to.height > from.y || to.x >= from.x + from.width)
            << "from " << stops[i - 1]->Name() << " back up to " << stops[i]->Name();
        EXPECT_FALSE(to.y < from.y + from.height && from.y < to.y + to.height && to.x < from.x)
            << "from " << stops[i - 1]->Name() << " back to " << stops[i]->Name();
    }
}

TEST(AllFormsTest, NothingIsClippedOverlappingOutOfTheWindowOrOutOfTabOrderAtAnyScale) {
    for (const AnyForm& any : AllForms()) {
        SCOPED_TRACE(any.name);
        Stage stage;
        const auto form = any.make(stage);
        form->Open();
        std::set<char32_t> accessKeys;
        for (const ui::Control* control : form->Controls())
            if (control->Mnemonic() != 0) {
                EXPECT_TRUE(accessKeys.insert(control->Mnemonic()).second) << control->Name();
            }
        for (const int larger : {0, 251}) {
            const SIZE size{form->DesignWidth() + larger, form->DesignHeight() + larger};
            form->LayOut(static_cast<int>(size.cx), static_cast<int>(size.cy));
            ExpectTabOrder(*form);
            for (const int dpi : {96, 120, 144, 192})
                for (const ui::Control* control : form->Controls()) {
                    SCOPED_TRACE(control->Name() + ", " + std::to_string(dpi));
                    if (!IsFromPlan(*control)) ExpectCaptionFits(*control, dpi);
                    ExpectApartWithin(*form, *control, size, dpi);
                }
        }
        form->Close();
    }
}

/// Shows a form until it has been painted once.
class Glance {
 public:
    explicit Glance(WatchedRunner& runner) : runner_(runner) {
        bridge_ = ui::win32::WindowHandle(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0,
                                                          HWND_MESSAGE, nullptr, nullptr, nullptr));
        SetWindowLongPtrW(bridge_.Get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Close));
    }
    void At(ui::Form& form) {
        // The first message that the form's loop finds.
        PostMessageW(bridge_.Get(), WM_APP, 0, 0);
        runner_.ShowModal(form);
    }

 private:
    static LRESULT CALLBACK Close(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != WM_APP) return DefWindowProcW(window, message, wParam, lParam);
        RedrawWindow(GetActiveWindow(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        PostMessageW(GetActiveWindow(), WM_CLOSE, 0, 0);
        return 0;
    }

    WatchedRunner& runner_;
    ui::win32::WindowHandle bridge_;
};

std::size_t BlocksKeptBy(int rounds, const std::function<void()>& round) {
    round();
    const std::size_t before = CountHoldings().heapBlocks;
    for (int i = 0; i < rounds; ++i) round();
    const std::size_t after = CountHoldings().heapBlocks;
    return after > before ? after - before : 0;
}

TEST(AllFormsTest, NothingIsLeftOfAFormThatWasShownManyTimes) {
    constexpr int kRounds = 50;
    // Wine's own labels keep a block of the heap each when they are given a font.
    const std::size_t keptByLabels = BlocksKeptBy(kRounds, [] {
        const ui::win32::CommonControlsScope controls(GetModuleHandleW(nullptr));
        const ui::win32::WindowHandle label(CreateWindowExW(0, WC_STATICW, L"", WS_POPUP, 0, 0, 0,
                                                            0, nullptr, nullptr, nullptr, nullptr));
        SendMessageW(label.Get(), WM_SETFONT,
                     reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    });
    for (const AnyForm& any : AllForms()) {
        SCOPED_TRACE(any.name);
        Stage stage;
        Glance glance(stage.runner);
        const auto show = [&] {
            const auto form = any.make(stage);
            glance.At(*form);
            stage.host.log.calls.clear();
        };
        const auto form = any.make(stage);
        const auto labels = std::count_if(
            form->Controls().begin(), form->Controls().end(),
            [](const ui::Control* control) { return dynamic_cast<const ui::Label*>(control); });
        for (int i = 0; i < kRounds / 10; ++i) show();
        const Holdings before = CountHoldings();
        const std::size_t kept = BlocksKeptBy(kRounds - 1, show);
        const Holdings after = CountHoldings();
        EXPECT_EQ(after.windows, before.windows);
        EXPECT_EQ(after.gdiObjects, before.gdiObjects);
        EXPECT_EQ(after.handles, before.handles);
        EXPECT_LE(kept, keptByLabels * static_cast<std::size_t>(labels) + kRounds / 8);
        WNDCLASSEXW left{};
        left.cbSize = sizeof left;
        for (const wchar_t* name : {L"KestrelForm", L"KestrelGrid", L"KestrelChart"})
            EXPECT_FALSE(GetClassInfoExW(GetModuleHandleW(nullptr), name, &left))
                << "the module could not be unloaded";
    }
}

}  // namespace
}  // namespace kestrel::test
