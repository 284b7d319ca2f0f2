#include "ui/controls/SelectionListView.h"

#include <algorithm>
#include <stdexcept>

namespace kestrel::ui {

void SelectionListView::Select(int index) {
    if (index < 0 || index > Count()) throw std::out_of_range("no such line in the list");
    selected_ = index;
    if (index > 0) ScrollTo(std::clamp(topLine_, std::max(1, index - VisibleLines() + 1), index));
    Changed();
}

void SelectionListView::Clear() {
    selected_ = 0;
    topLine_ = 1;
    ListView::Clear();
}

std::optional<Rect> SelectionListView::LineBounds(int index) const {
    if (index < topLine_ || index > Count() || index >= topLine_ + VisibleLines()) return {};
    return Rect{0, kHeaderHeight + (index - topLine_) * kLineHeight, Bounds().width, kLineHeight};
}

int SelectionListView::VisibleLines() const {
    return std::max(1, (Bounds().height - kHeaderHeight) / kLineHeight);
}

void SelectionListView::ScrollTo(int topLine) {
    const int last = std::max(1, Count() - VisibleLines() + 1);
    topLine_ = std::clamp(topLine, 1, last);
    Changed();
}

void SelectionListView::SetBounds(const Rect& bounds) {
    ListView::SetBounds(bounds);
    ScrollTo(topLine_);
}

bool SelectionListView::KeyDown(const KeyEvent& event) {
    if (OnKeyDown && OnKeyDown(event)) return true;
    if (event.alt || event.ctrl) return false;
    int line = selected_;
    switch (event.key) {
        case Key::Up:
            --line;
            break;
        case Key::Down:
            ++line;
            break;
        case Key::PageUp:
            line -= VisibleLines();
            break;
        case Key::PageDown:
            line += VisibleLines();
            break;
        case Key::Home:
            line = 1;
            break;
        case Key::End:
            line = Count();
            break;
        default:
            return false;
    }
    if (Count() > 0) Select(std::clamp(line, 1, Count()));
    return true;
}

void SelectionListView::MouseDown(const MouseEvent& event) {
    for (int line = topLine_; const auto bounds = LineBounds(line); ++line) {
        if (!bounds->Contains(event.x, event.y)) continue;
        Select(line);
        if (event.doubleClick && DblClick) DblClick();
        return;
    }
}

}  // namespace kestrel::ui
