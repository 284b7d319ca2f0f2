#include "ui/controls/TextBox.h"

#include <utility>

#include "ui/controls/CaretText.h"

namespace kestrel::ui {

void TextBox::SetText(std::string text) {
    text_ = std::move(text);
    caret_ = text_.size();
    Changed();
}

bool TextBox::KeyDown(const KeyEvent& event) {
    if (event.alt || event.ctrl || (readOnly_ && event.key == Key::Delete)) return false;
    if (!ApplyCaretKey(event.key, text_, caret_)) return false;
    Changed();
    return true;
}

bool TextBox::KeyPress(char32_t character) {
    constexpr char32_t kBackspace = 8, kFirstPrintable = 32, kRubout = 127;
    if (readOnly_ || character == kRubout) return false;
    if (character == kBackspace)
        EraseBeforeCaret(text_, caret_);
    else if (character >= kFirstPrintable)
        InsertAtCaret(text_, caret_, character);
    else
        return false;
    Changed();
    return true;
}

}  // namespace kestrel::ui
