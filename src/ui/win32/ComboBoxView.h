#pragma once

#include "ui/controls/ComboBox.h"
#include "ui/win32/SystemView.h"

namespace kestrel::ui::win32 {

/// A drop-down list. Arrows, letters, F4 and the wheel work as in every such list.
class ComboBoxView : public SystemView {
 public:
    ComboBoxView(ViewContext& context, ComboBox& box)
        : SystemView(context, box, WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST),
          box_(box) {}

    void Commanded(WORD code) override;
    bool KeepsKey(WPARAM key) const override;
    /// With the list that drops down.
    int WindowHeight(int height) const override;
    /// The height of the closed part follows the font; it has to be told to fill the control's.
    void After(UINT message, WPARAM wParam, LPARAM lParam) override;

 protected:
    void Show() override;

 private:
    ComboBox& box_;
};

}  // namespace kestrel::ui::win32
