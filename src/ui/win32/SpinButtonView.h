#pragma once

#include "ui/controls/SpinButton.h"
#include "ui/win32/SystemView.h"

namespace kestrel::ui::win32 {

/// Two arrows that repeat while they are held down. The system's own never take the keyboard;
/// these do, and show it.
class SpinButtonView : public SystemView {
 public:
    SpinButtonView(ViewContext& context, SpinButton& spin);

    LRESULT Notified(NMHDR& notification) override;
    std::optional<LRESULT> Before(UINT message, WPARAM wParam, LPARAM lParam) override;
    void After(UINT message, WPARAM wParam, LPARAM lParam) override;

 protected:
    void Show() override {}

 private:
    void DrawFocusMark() const;

    SpinButton& spin_;
};

}  // namespace kestrel::ui::win32
