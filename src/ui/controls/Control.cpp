#include "ui/controls/Control.h"

#include <utility>

namespace kestrel::ui {
namespace {

char32_t UpperCase(char letter) {
    return static_cast<char32_t>(letter >= 'a' && letter <= 'z' ? letter - 'a' + 'A' : letter);
}

}  // namespace

Control::Control(std::string name, const std::string& caption) : name_(std::move(name)) {
    SetCaption(caption);
}

void Control::SetCaption(const std::string& marked) {
    markedCaption_ = marked;
    caption_.clear();
    mnemonic_ = 0;
    for (std::size_t i = 0; i < marked.size(); ++i) {
        if (marked[i] == '&' && i + 1 < marked.size()) {
            ++i;
            if (marked[i] != '&') mnemonic_ = UpperCase(marked[i]);
        }
        caption_ += marked[i];
    }
    Changed();
}

void Control::SetEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    Changed();
}

void Control::SetVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    Changed();
}

void Control::SetBounds(const Rect& bounds) {
    if (bounds == bounds_) return;
    bounds_ = bounds;
    Changed();
}

void Control::SetFocus() {
    if (focusRequest_) focusRequest_(*this);
}

}  // namespace kestrel::ui
