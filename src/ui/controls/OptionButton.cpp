#include "ui/controls/OptionButton.h"

#include <algorithm>
#include <utility>

namespace kestrel::ui {

OptionButton* OptionGroup::Selected() const {
    for (OptionButton* button : buttons_)
        if (button->Selected()) return button;
    return nullptr;
}

OptionButton::OptionButton(OptionGroup& group, std::string name, const std::string& caption)
    : Control(std::move(name), caption), group_(group) {
    group_.buttons_.push_back(this);
}

void OptionButton::Select() {
    if (selected_ || !Enabled()) return;
    for (OptionButton* other : group_.buttons_) {
        if (!other->selected_) continue;
        other->selected_ = false;
        other->Changed();
    }
    selected_ = true;
    Changed();
    if (Click) Click();
}

bool OptionButton::KeyDown(const KeyEvent& event) {
    if (event.alt || event.ctrl) return false;
    switch (event.key) {
        case Key::Space:
            Select();
            return true;
        case Key::Left:
        case Key::Up:
            SelectNeighbour(-1);
            return true;
        case Key::Right:
        case Key::Down:
            SelectNeighbour(1);
            return true;
        default:
            return false;
    }
}

void OptionButton::SelectNeighbour(int step) {
    const auto& buttons = group_.buttons_;
    const auto here = std::find(buttons.begin(), buttons.end(), this) - buttons.begin();
    const auto there = here + step;
    if (there < 0 || there >= static_cast<std::ptrdiff_t>(buttons.size())) return;
    OptionButton& neighbour = *buttons[static_cast<std::size_t>(there)];
    if (!neighbour.CanFocus()) return;
    neighbour.SetFocus();
    neighbour.Select();
}

}  // namespace kestrel::ui
