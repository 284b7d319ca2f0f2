#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/controls/Control.h"

namespace kestrel::ui {

class OptionButton;

/// Option buttons of which at most one is selected. Tab stops at that one, or at the first while
/// none is selected. Lives as long as its buttons.
class OptionGroup {
 public:
    /// Nothing when none is selected.
    OptionButton* Selected() const;

 private:
    friend class OptionButton;
    const OptionButton* TabStop() const;

    std::vector<OptionButton*> buttons_;
};

/// One choice of a group. Arrow keys choose its neighbours, round and round.
class OptionButton : public Control {
 public:
    OptionButton(OptionGroup& group, std::string name, const std::string& caption);

    /// Runs whenever the button becomes selected, by the user or by Select.
    std::function<void()> Click;

    bool Selected() const { return selected_; }
    /// Selects this button and clears the others of its group.
    void Select();

    bool TakesFocus() const override { return true; }
    bool IsTabStop() const override { return CanFocus() && group_.TabStop() == this; }
    bool KeyDown(const KeyEvent& event) override;
    void MouseDown(const MouseEvent&) override { Select(); }
    void Activate() override { Select(); }

 private:
    void SelectNeighbour(int step);

    OptionGroup& group_;
    bool selected_ = false;
};

}  // namespace kestrel::ui
