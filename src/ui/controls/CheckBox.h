#pragma once

#include <functional>

#include "ui/controls/Control.h"

namespace kestrel::ui {

/// A box that is ticked or not.
class CheckBox : public Control {
 public:
    using Control::Control;

    std::function<void()> Click;  ///< after the user has changed the tick

    bool Checked() const { return checked_; }
    void SetChecked(bool checked) {
        if (checked == checked_) return;
        checked_ = checked;
        Changed();
    }
    void Toggle() {
        if (!Enabled()) return;
        SetChecked(!checked_);
        if (Click) Click();
    }

    bool TakesFocus() const override { return true; }
    bool KeyDown(const KeyEvent& event) override {
        if (event.key != Key::Space || event.alt || event.ctrl) return false;
        Toggle();
        return true;
    }
    void MouseDown(const MouseEvent&) override { Toggle(); }
    void Activate() override { Toggle(); }

 private:
    bool checked_ = false;
};

}  // namespace kestrel::ui
