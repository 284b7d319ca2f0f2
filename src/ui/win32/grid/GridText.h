#pragma once

#include <windows.h>
#include <cstddef>
#include <string>
#include <string_view>

#include "ui/controls/GridGeometry.h"

/// Texts of cells, measured in the font that is selected into `dc`. All places are in pixels.
namespace kestrel::ui::win32 {

int TextWidth(HDC dc, std::wstring_view text);
/// Of one line, the space that accents need above it included.
int LineHeight(HDC dc);

/// The text of a cell that is being edited.
struct EditLine {
    std::wstring text;
    int left = 0;   ///< of the text, which may begin or end outside its place
    int caret = 0;  ///< x of the caret, always within the place
};

/// Aligns the text in its place or, when it is too long, shifts it so that the caret (a byte
/// offset) is seen. `caretWidth` stays free at the right.
EditLine LayOutEdit(HDC dc, const std::string& text, std::size_t caret, const RECT& place,
                    Alignment alignment, int caretWidth);

/// The byte offset of the gap between characters that is closest to x.
std::size_t CaretAt(HDC dc, const std::string& text, const EditLine& line, int x);

}  // namespace kestrel::ui::win32
