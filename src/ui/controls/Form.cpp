#include "ui/controls/Form.h"

#include <algorithm>
#include <utility>

namespace kestrel::ui {
namespace {

/// Start and length of one side of a control when the form has grown by `growth`.
void Stretch(int& start, int& length, bool nearEdge, bool farEdge, int growth) {
    if (nearEdge && farEdge)
        length += growth;
    else if (farEdge)
        start += growth;
}

}  // namespace

Form::Form(std::string caption, int designWidth, int designHeight)
    : caption_(std::move(caption)), designWidth_(designWidth), designHeight_(designHeight) {}

void Form::Add(Control& control, const Rect& design, unsigned anchors) {
    control.focusRequest_ = [this](Control& asking) { SetFocus(asking); };
    controls_.push_back(&control);
    placements_.push_back({design, anchors});
}

void Form::Open() {
    open_ = true;
    LayOut(designWidth_, designHeight_);
    FocusFirst();
    Form_Load();
    if (focus_ && !focus_->IsTabStop()) MoveFocus(1);
}

void Form::Close() {
    if (!open_) return;
    open_ = false;
    Form_Unload();
}

void Form::CloseByUser() {
    if (cancelButton_)
        cancelButton_->Press();
    else
        Close();
}

void Form::LayOut(int width, int height) {
    const int growX = std::max(0, width - designWidth_);
    const int growY = std::max(0, height - designHeight_);
    for (std::size_t i = 0; i < controls_.size(); ++i) {
        Rect bounds = placements_[i].design;
        const unsigned anchors = placements_[i].anchors;
        Stretch(bounds.x, bounds.width, anchors & kAnchorLeft, anchors & kAnchorRight, growX);
        Stretch(bounds.y, bounds.height, anchors & kAnchorTop, anchors & kAnchorBottom, growY);
        controls_[i]->SetBounds(bounds);
    }
}

Control* Form::Find(const std::string& name) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const Control* c) { return c->Name() == name; });
    return found == controls_.end() ? nullptr : *found;
}

void Form::SetFocus(Control& control) {
    if (!control.CanFocus() || focus_ == &control) return;
    focusBefore_ = std::exchange(focus_, &control);
    if (focusBefore_) focusBefore_->LostFocus();
}

void Form::FocusFirst() {
    focus_ = nullptr;
    MoveFocus(1);
}

bool Form::MoveFocus(int step) {
    const int count = static_cast<int>(controls_.size());
    const auto at = std::find(controls_.begin(), controls_.end(), focus_);
    int index =
        at == controls_.end() ? (step > 0 ? -1 : 0) : static_cast<int>(at - controls_.begin());
    for (int tried = 0; tried < count; ++tried) {
        index = (index + step + count) % count;
        Control& next = *controls_[static_cast<std::size_t>(index)];
        if (!next.IsTabStop()) continue;
        SetFocus(next);
        return true;
    }
    return false;
}

bool Form::KeyDown(const KeyEvent& event) {
    if (event.key == Key::Tab && event.ctrl && !event.alt) return MoveFocus(event.shift ? -1 : 1);
    if (event.alt) return event.key == Key::Character && PressMnemonic(event.letter);
    const bool again = AnswersAgain(event);
    if (again && (event.key == Key::Escape || !focus_ || !focus_->WorksOnWithEnter())) return true;
    if (focus_ && focus_->CanFocus() && focus_->KeyDown(event)) return true;
    if (again) return true;
    switch (event.key) {
        case Key::Tab:
            return MoveFocus(event.shift ? -1 : 1);
        case Key::Enter:
            if (defaultButton_) defaultButton_->Press();
            return defaultButton_ != nullptr;
        case Key::Escape:
            CloseByUser();
            return true;
        default:
            return false;
    }
}

bool Form::KeyPress(char32_t character) {
    return focus_ && focus_->CanFocus() && focus_->KeyPress(character);
}

bool Form::PressMnemonic(char32_t letter) {
    if (letter == 0) return false;
    for (auto at = controls_.begin(); at != controls_.end(); ++at) {
        Control& control = **at;
        if (control.Mnemonic() != letter || !control.Enabled() || !control.Visible()) continue;
        if (!control.TakesFocus()) {
            const auto next =
                std::find_if(at, controls_.end(), [](const Control* c) { return c->CanFocus(); });
            if (next != controls_.end()) SetFocus(**next);
            return true;
        }
        SetFocus(control);
        control.Activate();
        return true;
    }
    return false;
}

void Form::MouseDown(const MouseEvent& event) {
    for (auto at = controls_.rbegin(); at != controls_.rend(); ++at) {
        Control& control = **at;
        if (!control.CanFocus() || !control.Bounds().Contains(event.x, event.y)) continue;
        MouseEvent within = event;
        within.x -= control.Bounds().x;
        within.y -= control.Bounds().y;
        SetFocus(control);
        control.MouseDown(within);
        return;
    }
}

}  // namespace kestrel::ui
