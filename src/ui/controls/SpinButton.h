#pragma once

#include <functional>

#include "ui/controls/Control.h"

namespace kestrel::ui {

/// Two arrows, one above the other. It counts nothing itself.
class SpinButton : public Control {
 public:
    using Control::Control;

    std::function<void()> SpinUp;
    std::function<void()> SpinDown;

    bool TakesFocus() const override { return true; }
    bool KeyDown(const KeyEvent& event) override {
        if (event.alt || event.ctrl || (event.key != Key::Up && event.key != Key::Down))
            return false;
        Spin(event.key == Key::Up);
        return true;
    }
    void MouseDown(const MouseEvent& event) override { Spin(event.y < Bounds().height / 2); }

 private:
    void Spin(bool up) {
        const auto& handler = up ? SpinUp : SpinDown;
        if (Enabled() && handler) handler();
    }
};

}  // namespace kestrel::ui
