#pragma once

#include "ui/controls/CheckBox.h"
#include "ui/controls/OptionButton.h"
#include "ui/win32/SystemView.h"

/// Boxes and circles beside a caption. The model decides about the mark: the windows are of the
/// kinds that do not mark themselves.
namespace kestrel::ui::win32 {

class CheckBoxView : public SystemView {
 public:
    CheckBoxView(ViewContext& context, CheckBox& box)
        : SystemView(context, box, WC_BUTTONW, WS_TABSTOP | BS_CHECKBOX), box_(box) {}

    void Commanded(WORD code) override {
        if (code == BN_CLICKED) box_.Toggle();
    }
    bool KeepsKey(WPARAM key) const override { return key == VK_SPACE; }

 protected:
    void Show() override {
        ShowText(box_.MarkedCaption());
        Tell(BM_SETCHECK, box_.Checked() ? BST_CHECKED : BST_UNCHECKED);
    }

 private:
    CheckBox& box_;
};

class OptionButtonView : public SystemView {
 public:
    OptionButtonView(ViewContext& context, OptionButton& option)
        : SystemView(context, option, WC_BUTTONW, WS_TABSTOP | BS_RADIOBUTTON), option_(option) {}

    void Commanded(WORD code) override {
        if (code == BN_CLICKED && !takingFocus_) option_.Select();
    }
    bool KeepsKey(WPARAM key) const override { return key == VK_SPACE; }

    /// The window tells of a click when it only gets the keyboard, which here selects nothing.
    std::optional<LRESULT> Before(UINT message, WPARAM, LPARAM) override {
        if (message == WM_SETFOCUS) takingFocus_ = true;
        return {};
    }
    void After(UINT message, WPARAM, LPARAM) override {
        if (message == WM_SETFOCUS) takingFocus_ = false;
    }

 protected:
    void Show() override {
        ShowText(option_.MarkedCaption());
        Tell(BM_SETCHECK, option_.Selected() ? BST_CHECKED : BST_UNCHECKED);
    }

 private:
    OptionButton& option_;
    bool takingFocus_ = false;
};

}  // namespace kestrel::ui::win32
