#include "refhost/windows/desktop/PaintTools.h"

#include <algorithm>

#include "platform/win32/WideText.h"
#include "ui/win32/Dpi.h"
#include "ui/win32/OwnWindow.h"

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

Palette SystemPalette() {
    Palette colours{};
    colours.paper = colours.header = colours.selectedIdle = GetSysColor(COLOR_WINDOW);
    colours.text = colours.headerText = colours.riskText = GetSysColor(COLOR_WINDOWTEXT);
    colours.faintText = colours.shade = GetSysColor(COLOR_GRAYTEXT);
    colours.ruling = colours.faintRuling = GetSysColor(COLOR_WINDOWFRAME);
    colours.selected = GetSysColor(COLOR_HIGHLIGHT);
    colours.selectedText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    colours.bar = colours.riskBar = GetSysColor(COLOR_WINDOW);
    colours.barEdge = colours.summary = colours.milestone = colours.link =
        GetSysColor(COLOR_WINDOWTEXT);
    colours.riskBarEdge = colours.today = GetSysColor(COLOR_HOTLIGHT);
    return colours;
}

}  // namespace

Palette Palette::Current() {
    if (kestrel::ui::win32::HighContrast()) return SystemPalette();
    Palette colours{};
    colours.paper = RGB(255, 255, 255);
    colours.text = RGB(31, 41, 55);
    colours.faintText = RGB(107, 114, 128);
    colours.header = RGB(245, 247, 250);
    colours.headerText = RGB(55, 65, 81);
    colours.ruling = RGB(209, 213, 219);
    colours.faintRuling = RGB(236, 239, 243);
    colours.selected = RGB(219, 234, 254);
    colours.selectedText = colours.text;
    colours.selectedIdle = RGB(233, 236, 241);
    colours.shade = RGB(243, 244, 246);
    colours.bar = RGB(125, 176, 232);
    colours.barEdge = RGB(59, 116, 184);
    colours.riskBar = RGB(247, 181, 96);
    colours.riskBarEdge = RGB(194, 113, 12);
    colours.riskText = RGB(146, 84, 8);
    colours.summary = RGB(55, 65, 81);
    colours.milestone = RGB(31, 41, 55);
    colours.link = RGB(140, 149, 162);
    colours.today = RGB(220, 62, 62);
    colours.critical = RGB(190, 18, 60);
    return colours;
}

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
