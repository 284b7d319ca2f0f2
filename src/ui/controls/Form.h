#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ui/controls/Button.h"
#include "ui/controls/Control.h"

namespace kestrel::ui {

/// Upper left corner of a window on the screen, in points (72 to the inch).
struct ScreenPosition {
    double left = 0;
    double top = 0;
};

/// A window without the window: controls in tab order, where they lie, and what keys and mouse
/// do. Whoever shows a form (see FormRunner) lays it out, hands it the user's events and paints
/// what changed.
///
/// Keys go to the control that has the keyboard first. What it has no use for: Tab and
/// Shift+Tab move on (with Ctrl always), Enter presses the default button, Esc the cancel button,
/// Alt with a letter the control with that access key.
class Form {
 public:
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption) { caption_ = std::move(caption); }

    /// @name Life
    ///@{
    /// Loads the form. It may close itself while it loads: then there is nothing to show.
    void Open();
    bool IsOpen() const { return open_; }
    /// Unloads the form; a second call does nothing.
    void Close();
    /// The user closes the window by its own means: as the cancel button does.
    void CloseByUser();
    ///@}

    /// @name Layout
    ///@{
    int DesignWidth() const { return designWidth_; }
    int DesignHeight() const { return designHeight_; }
    /// Gives every control its bounds in a window with this inner size; one smaller than the
    /// design counts as the design.
    void LayOut(int width, int height);
    /// The height that a window takes which is meant to be `height` high inside.
    virtual int AdjustedHeight(int height) { return height; }
    /// Nothing leaves the place to whoever shows the form. A form may ask for one while it
    /// loads; whoever shows it keeps it up to date as the user moves the window.
    const std::optional<ScreenPosition>& Position() const { return position_; }
    void SetPosition(ScreenPosition position) { position_ = position; }
    ///@}

    /// In tab order, which is also the order of painting.
    const std::vector<Control*>& Controls() const { return controls_; }
    /// By its name; nothing when there is none.
    Control* Find(const std::string& name) const;

    Button* DefaultButton() const { return defaultButton_; }
    Button* CancelButton() const { return cancelButton_; }

    /// Nothing when no control takes the keyboard.
    Control* Focus() const { return focus_; }
    /// The control that had the keyboard before the one that has it; nothing for none.
    Control* FocusBefore() const { return focusBefore_; }
    /// A control that cannot have the keyboard changes nothing.
    void SetFocus(Control& control);

    /// @name The user's events
    ///@{
    /// Answers whether anything made use of the key.
    bool KeyDown(const KeyEvent& event);
    bool KeyPress(char32_t character);
    /// At a place within the form.
    void MouseDown(const MouseEvent& event);
    ///@}

 protected:
    Form(std::string caption, int designWidth, int designHeight);

    /// Adds a control, which must live as long as the form, at its place in the design.
    void Add(Control& control, const Rect& design, unsigned anchors = kAnchorLeft | kAnchorTop);
    void SetDefaultButton(Button& button) { defaultButton_ = &button; }
    void SetCancelButton(Button& button) { cancelButton_ = &button; }

    virtual void Form_Load() {}
    virtual void Form_Unload() {}

 private:
    struct Placement {
        Rect design;
        unsigned anchors = 0;
    };

    void FocusFirst();
    bool MoveFocus(int step);
    bool PressMnemonic(char32_t letter);

    std::string caption_;
    int designWidth_;
    int designHeight_;
    bool open_ = false;
    std::optional<ScreenPosition> position_;
    std::vector<Control*> controls_;
    std::vector<Placement> placements_;  ///< one a control
    Control* focus_ = nullptr;
    Control* focusBefore_ = nullptr;
    Button* defaultButton_ = nullptr;
    Button* cancelButton_ = nullptr;
};

/// Shows forms: the system's windows in the add-in, a script in tests.
class FormRunner {
 public:
    virtual ~FormRunner() = default;

    /// Opens the form and, unless it closed itself while it loaded, works it until it closes.
    /// Comes back at once where there is nobody to work it.
    virtual void ShowModal(Form& form) = 0;
};

}  // namespace kestrel::ui
