#pragma once

#include <functional>

#include "ui/controls/Control.h"

namespace kestrel::ui {

/// A push button. Space and Enter press it while it has the keyboard.
class Button : public Control {
 public:
    using Control::Control;

    std::function<void()> Click;

    /// What the user's press does; nothing while the button is disabled.
    void Press() {
        if (Enabled() && Visible() && Click) Click();
    }

    bool TakesFocus() const override { return true; }
    bool KeyDown(const KeyEvent& event) override {
        if (event.alt || event.ctrl || (event.key != Key::Space && event.key != Key::Enter))
            return false;
        Press();
        return true;
    }
    void MouseDown(const MouseEvent&) override { Press(); }
    void Activate() override { Press(); }
};

}  // namespace kestrel::ui
