#include "refhost/windows/desktop/Palette.h"

#include "ui/win32/OwnWindow.h"

namespace refhost::win32 {
namespace {

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

}  // namespace refhost::win32
