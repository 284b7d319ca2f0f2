#pragma once

#include "ui/controls/TextBox.h"
#include "ui/win32/SystemView.h"

namespace kestrel::ui::win32 {

/// A line to type in. Caret, selection, clipboard, undo and input methods are the window's; the
/// model gets each new text.
class TextBoxView : public SystemView {
 public:
    TextBoxView(ViewContext& context, TextBox& box)
        : SystemView(context, box, WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE),
          box_(box) {}

    void Commanded(WORD code) override;
    bool KeepsKey(WPARAM key) const override {
        return key != VK_TAB && key != VK_RETURN && key != VK_ESCAPE;
    }
    void After(UINT message, WPARAM wParam, LPARAM lParam) override;

 protected:
    void Show() override;

 private:
    TextBox& box_;
};

}  // namespace kestrel::ui::win32
