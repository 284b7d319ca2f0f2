#include "ui/controls/CaretText.h"

namespace kestrel::ui {
namespace {

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u; }

std::size_t Before(const std::string& text, std::size_t caret) {
    if (caret == 0) return 0;
    do --caret;
    while (caret > 0 && IsContinuation(text[caret]));
    return caret;
}

std::size_t After(const std::string& text, std::size_t caret) {
    if (caret >= text.size()) return text.size();
    do ++caret;
    while (caret < text.size() && IsContinuation(text[caret]));
    return caret;
}

std::string Utf8(char32_t c) {
    const auto tail = [c](int shift) { return static_cast<char>(0x80u | ((c >> shift) & 0x3Fu)); };
    if (c < 0x80) return {static_cast<char>(c)};
    if (c < 0x800) return {static_cast<char>(0xC0u | (c >> 6)), tail(0)};
    if (c < 0x10000) return {static_cast<char>(0xE0u | (c >> 12)), tail(6), tail(0)};
    return {static_cast<char>(0xF0u | (c >> 18)), tail(12), tail(6), tail(0)};
}

}  // namespace

std::size_t WholeCharacterAt(const std::string& text, std::size_t offset) {
    if (offset >= text.size()) return text.size();
    return IsContinuation(text[offset]) ? Before(text, offset) : offset;
}

void InsertAtCaret(std::string& text, std::size_t& caret, char32_t character) {
    const std::string bytes = Utf8(character);
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
