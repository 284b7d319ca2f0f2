#include "ui/win32/ComboBoxView.h"

#include "platform/win32/WideText.h"

namespace kestrel::ui::win32 {

void ComboBoxView::Commanded(WORD code) {
    // A list that is closed by Esc goes back to what was chosen before.
    if (code != CBN_SELCHANGE && code != CBN_CLOSEUP) return;
    const int chosen = static_cast<int>(Tell(CB_GETCURSEL));
    if (chosen == box_.ListIndex()) return;
    box_.SetListIndex(chosen);
    if (box_.Click) box_.Click();
}

bool ComboBoxView::KeepsKey(WPARAM key) const {
    if (Tell(CB_GETDROPPEDSTATE)) return key != VK_TAB;
    return key != VK_TAB && key != VK_RETURN && key != VK_ESCAPE;
}

int ComboBoxView::WindowHeight(int height) const {
    constexpr int kLinesShown = 12;
    return height + kLinesShown * static_cast<int>(Tell(CB_GETITEMHEIGHT, 0));
}

void ComboBoxView::After(UINT message, WPARAM, LPARAM) {
    if (message != WM_SIZE && message != WM_SETFONT) return;
    RECT shown{};
    GetWindowRect(Window(), &shown);
    const auto line = static_cast<int>(Tell(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
    const int wanted = context_.Pixels(box_.Bounds().height);
    const int height = line + wanted - static_cast<int>(shown.bottom - shown.top);
    if (height != line && height > 0) Tell(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height);
}

void ComboBoxView::Show() {
    if (static_cast<std::size_t>(Tell(CB_GETCOUNT)) != box_.Items().size()) {
        Tell(CB_RESETCONTENT);
        for (const std::string& item : box_.Items()) {
            const std::wstring text = kestrel::win32::Wide(item);
            Tell(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        }
    }
    if (Tell(CB_GETCURSEL) != box_.ListIndex())
        Tell(CB_SETCURSEL, static_cast<WPARAM>(box_.ListIndex()));
}

}  // namespace kestrel::ui::win32
