#include "ui/controls/ComboBox.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace kestrel::ui {

void ComboBox::AddItem(std::string text) {
    items_.push_back(std::move(text));
    Changed();
}

void ComboBox::SetListIndex(int index) {
    if (index < -1 || index >= static_cast<int>(items_.size()))
        throw std::out_of_range("no such entry in the list");
    listIndex_ = index;
    Changed();
}

std::string ComboBox::Text() const {
    return listIndex_ < 0 ? std::string() : items_[static_cast<std::size_t>(listIndex_)];
}

bool ComboBox::KeyDown(const KeyEvent& event) {
    if (event.alt || event.ctrl || items_.empty()) return false;
    const int last = static_cast<int>(items_.size()) - 1;
    int index = listIndex_;
    switch (event.key) {
        case Key::Up:
            index = std::max(index - 1, 0);
            break;
        case Key::Down:
            index = std::min(index + 1, last);
            break;
        case Key::Home:
            index = 0;
            break;
        case Key::End:
            index = last;
            break;
        default:
            return false;
    }
    if (index != listIndex_) {
        SetListIndex(index);
        if (Click) Click();
    }
    return true;
}

}  // namespace kestrel::ui
