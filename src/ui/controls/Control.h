#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ui/controls/Events.h"
#include "ui/controls/Geometry.h"

namespace kestrel::ui {

/// The state that all controls share. A control is a model: it holds what a window shows and
/// knows no window. Whoever shows it compares Changes() with the count it painted last.
class Control {
 public:
    /// `caption` may mark an access key with "&": "&Help". "&&" stands for one "&".
    explicit Control(std::string name, const std::string& caption = {});
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }

    /// The caption as the user reads it, without the mark of its access key.
    const std::string& Caption() const { return caption_; }
    /// The caption with "&" before its access key, as windows take it.
    const std::string& MarkedCaption() const { return markedCaption_; }
    /// The access key, an upper-case letter or a digit; 0 for none.
    char32_t Mnemonic() const { return mnemonic_; }
    void SetCaption(const std::string& marked);

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);

    const Rect& Bounds() const { return bounds_; }
    /// Given by the form's layout.
    virtual void SetBounds(const Rect& bounds);

    /// Whether controls of this kind are worked with the keyboard.
    virtual bool TakesFocus() const { return false; }
    bool CanFocus() const { return TakesFocus() && enabled_ && visible_; }
    /// Whether Tab stops here.
    virtual bool IsTabStop() const { return CanFocus(); }
    /// Asks the form that holds the control for the keyboard.
    void SetFocus();
    virtual void LostFocus() {}

    /// Each answers whether the control made use of the event; the form has its own use for
    /// Tab, Enter and Esc that no control wants.
    virtual bool KeyDown(const KeyEvent&) { return false; }
    virtual bool KeyPress(char32_t) { return false; }
    /// Whether the control works on with Enter held down. Esc held down reaches no control.
    virtual bool WorksOnWithEnter() const { return false; }
    virtual void MouseDown(const MouseEvent&) {}
    /// The access key was pressed; the control has the keyboard by then, if it takes it.
    virtual void Activate() {}

    /// Rises with every change that a user could see.
    std::uint64_t Changes() const { return changes_; }

 protected:
    virtual void Changed() { ++changes_; }

 private:
    friend class Form;

    std::string name_;
    std::string caption_;
    std::string markedCaption_;
    char32_t mnemonic_ = 0;
    bool enabled_ = true;
    bool visible_ = true;
    Rect bounds_;
    std::uint64_t changes_ = 0;
    std::function<void(Control&)> focusRequest_;  ///< set by the form that holds the control
};

}  // namespace kestrel::ui
