#include "ui/controls/CaretText.h"

#include "base/Text.h"

namespace kestrel::ui {
namespace {

std::size_t Before(const std::string& text, std::size_t caret) {
    return caret == 0 ? 0 : WholeCharacterAt(text, caret - 1);
}

std::size_t After(const std::string& text, std::size_t caret) {
    if (caret >= text.size()) return text.size();
    do ++caret;
    while (WholeCharacterAt(text, caret) < caret);
    return caret;
}

}  // namespace

void InsertAtCaret(std::string& text, std::size_t& caret, char32_t character) {
    std::string bytes;
    AppendUtf8(bytes, character);
    text.insert(caret, bytes);
    caret += bytes.size();
}

bool EraseBeforeCaret(std::string& text, std::size_t& caret) {
    const std::size_t start = Before(text, caret);
    if (start == caret) return false;
    text.erase(start, caret - start);
    caret = start;
    return true;
}

bool ApplyCaretKey(Key key, std::string& text, std::size_t& caret) {
    switch (key) {
        case Key::Left:
            caret = Before(text, caret);
            return true;
        case Key::Right:
            caret = After(text, caret);
            return true;
        case Key::Home:
            caret = 0;
            return true;
        case Key::End:
            caret = text.size();
            return true;
        case Key::Delete:
            text.erase(caret, After(text, caret) - caret);
            return true;
        default:
            return false;
    }
}

}  // namespace kestrel::ui
