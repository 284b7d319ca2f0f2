#include "refhost/windows/desktop/PaintTools.h"

#include <algorithm>

#include "platform/win32/WideText.h"
#include "ui/win32/Dpi.h"

namespace refhost::win32 {
namespace {

using kestrel::win32::Font;
using kestrel::win32::Selection;

/// The message font with another weight or size (in percent).
Font Variant(const Font& font, LONG weight, int percent) {
    LOGFONTW description{};
    GetObjectW(font.Get(), sizeof description, &description);
    description.lfWeight = weight;
    description.lfHeight = MulDiv(description.lfHeight, percent, 100);
    return Font(CreateFontIndirectW(&description));
}

/// A fill without creating a brush for each.
void UseBrush(HDC dc, COLORREF colour) {
    SelectObject(dc, GetStockObject(DC_BRUSH));
    SetDCBrushColor(dc, colour);
}

}  // namespace

PlanFonts::PlanFonts(UINT dpi)
    : usual(kestrel::ui::win32::MessageFont(dpi)),
      bold(Variant(usual, FW_BOLD, 100)),
      small(Variant(usual, FW_NORMAL, 92)) {}

void PaintTools::Fill(const RECT& area, COLORREF colour) const {
    // An opaque text of no characters is the fastest way to fill.
    SetBkColor(dc_, colour);
    ExtTextOutW(dc_, 0, 0, ETO_OPAQUE, &area, L"", 0, nullptr);
}

void PaintTools::Frame(const RECT& area, COLORREF edge, COLORREF inside) const {
    Fill(area, edge);
    const RECT inner{area.left + 1, area.top + 1, area.right - 1, area.bottom - 1};
    if (inner.right > inner.left && inner.bottom > inner.top) Fill(inner, inside);
}

void PaintTools::Vertical(int x, double top, double bottom, COLORREF colour) const {
    Fill({x, Pixel(top), x + 1, Pixel(bottom)}, colour);
}

void PaintTools::Horizontal(double left, double right, double y, COLORREF colour) const {
    Fill({Pixel(left), Pixel(y), Pixel(right), Pixel(y) + 1}, colour);
}

void PaintTools::Polygon(const POINT* points, int count, COLORREF colour) const {
    UseBrush(dc_, colour);
    const Selection pen(dc_, GetStockObject(DC_PEN));
    SetDCPenColor(dc_, colour);
    ::Polygon(dc_, points, count);
}

void PaintTools::Label(std::string_view text, RECT area, HFONT font, COLORREF colour,
                       COLORREF ground) const {
    if (text.empty()) return;
    const std::wstring wide = kestrel::win32::Wide(text);
    SIZE size{};
    {
        const Selection chosen(dc_, font);
        GetTextExtentPoint32W(dc_, wide.c_str(), static_cast<int>(wide.size()), &size);
    }
    area.right = area.left + size.cx;
    const LONG space = (area.bottom - area.top - size.cy) / 2;
    Fill({area.left - 2, area.top + space, area.right + 2, area.bottom - space}, ground);
    Text(text, area, font, colour);
}

void PaintTools::Text(std::string_view text, RECT area, HFONT font, COLORREF colour,
                      UINT format) const {
    if (text.empty() || area.right <= area.left) return;
    const std::wstring wide = kestrel::win32::Wide(text);
    const Selection chosen(dc_, font);
    SetTextColor(dc_, colour);
    SetBkMode(dc_, TRANSPARENT);
    DrawTextW(dc_, wide.c_str(), static_cast<int>(wide.size()), &area,
              format | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace refhost::win32
