#include <gtest/gtest.h>

#include <set>

#include "platform/win32/Gdi.h"
#include "platform/win32/WideText.h"
#include "ui/controls/CheckBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/OptionButton.h"
#include "ui/win32/Dpi.h"
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

TEST(AllFormsTest, EveryCaptionFitsItsControlAtEveryScale) {
    for (const AnyForm& any : AllForms()) {
        Stage stage;
        const auto form = any.make(stage);
        form->Open();
        for (const int dpi : {96, 120, 144, 192}) {
            const win32::Font system = ui::win32::MessageFont(static_cast<UINT>(dpi));
            // Other machines have wider fonts than this one: a tenth is kept for them.
            const win32::Font usual = NinePoint(dpi);
            for (const ui::Control* control : form->Controls()) {
                // Captions from the plan have no bounds: they are shortened, or break their lines.
                if (control->Name() == "lblSelectedTask" || control->Name() == "lbMessage")
                    continue;
                SCOPED_TRACE(any.name + ", " + control->Name() + ", " + std::to_string(dpi));
                const int width = MulDiv(control->Bounds().width - RoomBeside(*control), dpi, 96);
                const int height = MulDiv(control->Bounds().height, dpi, 96);
                for (const HFONT font : {system.Get(), usual.Get()}) {
                    const SIZE text = Measure(control->MarkedCaption(), font);
                    EXPECT_LE(font == usual.Get() ? text.cx * 11 / 10 : text.cx, width);
                    EXPECT_LE(text.cy, height);
                }
            }
        }
        form->Close();
    }
}

TEST(AllFormsTest, NoTwoControlsShareAnAccessKeyAndAllLieApartWithinTheirForm) {
    for (const AnyForm& any : AllForms()) {
        Stage stage;
        const auto form = any.make(stage);
        form->Open();
        std::set<char32_t> taken;
        for (const ui::Control* control : form->Controls()) {
            SCOPED_TRACE(any.name + ", " + control->Name());
            if (control->Mnemonic() != 0) {
                EXPECT_TRUE(taken.insert(control->Mnemonic()).second);
            }
            const ui::Rect& place = control->Bounds();
            EXPECT_LE(place.x + place.width, form->DesignWidth() - 10);
            EXPECT_LE(place.y + place.height, form->DesignHeight() - 10);
            for (const ui::Control* other : form->Controls()) {
                const bool around = dynamic_cast<const ui::Frame*>(control) ||
                                    dynamic_cast<const ui::Frame*>(other);
                if (other == control || around || !other->Visible() || !control->Visible())
                    continue;
                const ui::Rect& its = other->Bounds();
                EXPECT_TRUE(place.x >= its.x + its.width || its.x >= place.x + place.width ||
                            place.y >= its.y + its.height || its.y >= place.y + place.height)
                    << "overlaps " << other->Name();
            }
        }
        form->Close();
    }
}

TEST(AllFormsTest, NothingIsLeftOfAFormThatWasShownAHundredTimes) {
    for (const AnyForm& any : AllForms()) {
        SCOPED_TRACE(any.name);
        Stage stage;
        int shown = 0;
        EXPECT_TRUE(LeakCheck(100, [&] {
            const auto form = any.make(stage);
            const UINT_PTR timer =
                SetTimer(nullptr, 0, USER_TIMER_MINIMUM, [](HWND, UINT, UINT_PTR, DWORD) {
                    PostMessageW(GetActiveWindow(), WM_CLOSE, 0, 0);
                });
            stage.runner.ShowModal(*form);
            KillTimer(nullptr, timer);
            ++shown;
            stage.host.log.calls.clear();
        }));
        EXPECT_EQ(shown, 110);
        WNDCLASSEXW left{};
        left.cbSize = sizeof left;
        EXPECT_FALSE(GetClassInfoExW(GetModuleHandleW(nullptr), L"KestrelForm", &left));
    }
}

}  // namespace
}  // namespace kestrel::test
