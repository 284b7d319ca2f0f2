#include "ui/controls/OptionButton.h"

#include <algorithm>
#include <utility>

namespace kestrel::ui {

OptionButton* OptionGroup::Selected() const {
    for (OptionButton* button : buttons_)
        if (button->Selected()) return button;
    return nullptr;
}

const OptionButton* OptionGroup::TabStop() const {
    const OptionButton* selected = Selected();
    if (selected && selected->CanFocus()) return selected;
    const auto first = std::find_if(buttons_.begin(), buttons_.end(),
                                    [](const OptionButton* button) { return button->CanFocus(); });
    return first == buttons_.end() ? nullptr : *first;
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
    const std::size_t count = buttons.size();
    auto index =
        static_cast<std::size_t>(std::find(buttons.begin(), buttons.end(), this) - buttons.begin());
    do index = (index + count + static_cast<std::size_t>(step)) % count;
    while (!buttons[index]->CanFocus() && buttons[index] != this);
    buttons[index]->SetFocus();
    buttons[index]->Select();
}

}  // namespace kestrel::ui
