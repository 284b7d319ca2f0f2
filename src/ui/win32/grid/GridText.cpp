#include "ui/win32/grid/GridText.h"

#include <algorithm>

#include "platform/win32/WideText.h"

namespace kestrel::ui::win32 {

using kestrel::win32::Utf8;
using kestrel::win32::Wide;

int TextWidth(HDC dc, std::wstring_view text) {
    SIZE size{};
    // Fails only for an invalid context; then nothing can be drawn either.
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

int LineHeight(HDC dc) {
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    return metrics.tmHeight;
}

EditLine LayOutEdit(HDC dc, const std::string& text, std::size_t caret, const RECT& place,
                    Alignment alignment, int caretWidth) {
    EditLine line;
    line.text = Wide(text);
    const int width = TextWidth(dc, line.text);
    const int before = TextWidth(dc, Wide(std::string_view(text).substr(0, caret)));
    const int room = std::max(0, static_cast<int>(place.right - place.left) - caretWidth);
    int shift = 0;
    if (width > room)
        shift = std::min(0, room - before);
    else if (alignment == Alignment::Right)
        shift = room - width;
    else if (alignment == Alignment::Centre)
        shift = (room - width) / 2;
    line.left = static_cast<int>(place.left) + shift;
    line.caret = line.left + before;
    return line;
}

std::size_t CaretAt(HDC dc, const std::string& text, const EditLine& line, int x) {
    std::size_t nearest = 0;
    int previous = 0;
    for (std::size_t end = 1; end <= line.text.size(); ++end) {
        const int width = TextWidth(dc, std::wstring_view(line.text).substr(0, end));
        if (x - line.left < (previous + width + 1) / 2) break;
        nearest = end;
        previous = width;
    }
    const std::wstring_view before = std::wstring_view(line.text).substr(0, nearest);
    return std::min(text.size(), Utf8(before).size());
}

}  // namespace kestrel::ui::win32
