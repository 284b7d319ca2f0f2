#pragma once

#include "ui/controls/Button.h"
#include "ui/win32/SystemView.h"

namespace kestrel::ui::win32 {

/// A push button: pressed when mouse or Space is released over it, as everywhere.
class ButtonView : public SystemView {
 public:
    ButtonView(ViewContext& context, Button& button)
        : SystemView(context, button, WC_BUTTONW, WS_TABSTOP | BS_PUSHBUTTON), button_(button) {}

    void Commanded(WORD code) override {
        if (code == BN_CLICKED) button_.Press();
    }
    bool KeepsKey(WPARAM key) const override { return key == VK_SPACE; }

    Button& TheButton() const { return button_; }
    /// Marks the button that Enter presses.
    void MarkDefault(bool isDefault) {
        const DWORD style = isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        const auto shown = static_cast<DWORD>(GetWindowLongPtrW(Window(), GWL_STYLE));
        if ((shown & BS_TYPEMASK) != style) Tell(BM_SETSTYLE, style, TRUE);
    }

 protected:
    void Show() override { ShowText(button_.MarkedCaption()); }

 private:
    Button& button_;
};

}  // namespace kestrel::ui::win32
