#pragma once

#include "ui/controls/Label.h"
#include "ui/win32/SystemView.h"

namespace kestrel::ui::win32 {

/// Text on the form. A label with room for one line ends in "..." where its text is longer, others
/// break their lines.
class LabelView : public SystemView {
 public:
    LabelView(ViewContext& context, Label& label);
    int MissingHeight() const override;

 protected:
    void Show() override { ShowText(label_.MarkedCaption()); }

 private:
    Label& label_;
    bool breaksLines_;
};

/// A captioned box around other controls.
class FrameView : public SystemView {
 public:
    FrameView(ViewContext& context, Frame& frame)
        : SystemView(context, frame, WC_BUTTONW, BS_GROUPBOX), frame_(frame) {}

 protected:
    void Show() override { ShowText(frame_.MarkedCaption()); }

 private:
    Frame& frame_;
};

}  // namespace kestrel::ui::win32
