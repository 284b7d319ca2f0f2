#pragma once

#include "ui/controls/ProgressBar.h"
#include "ui/win32/SystemView.h"

namespace kestrel::ui::win32 {

class ProgressBarView : public SystemView {
 public:
    ProgressBarView(ViewContext& context, ProgressBar& bar)
        : SystemView(context, bar, PROGRESS_CLASSW, 0), bar_(bar) {}

 protected:
    void Show() override {
        Tell(PBM_SETRANGE32, static_cast<WPARAM>(bar_.Min()), bar_.Max());
        // The themed bar creeps towards a higher position and never arrives while the thread is
        // at work; it goes back at once.
        if (bar_.Value() < bar_.Max()) Tell(PBM_SETPOS, static_cast<WPARAM>(bar_.Value()) + 1);
        Tell(PBM_SETPOS, static_cast<WPARAM>(bar_.Value()));
    }

 private:
    ProgressBar& bar_;
};

}  // namespace kestrel::ui::win32
