#include "ui/win32/grid/GridColours.h"

#include <algorithm>
#include <cmath>

#include "ui/win32/OwnWindow.h"

namespace kestrel::ui::win32 {
namespace {

/// How bright the eye finds a colour, 0 to 1.
double Luminance(COLORREF colour) {
    const auto linear = [](int part) { return std::pow(part / 255.0, 2.2); };
    return 0.2126 * linear(GetRValue(colour)) + 0.7152 * linear(GetGValue(colour)) +
           0.0722 * linear(GetBValue(colour));
}

double Contrast(COLORREF a, COLORREF b) {
    const auto [low, high] = std::minmax(Luminance(a), Luminance(b));
    return (high + 0.05) / (low + 0.05);
}

}  // namespace

COLORREF Mix(COLORREF first, COLORREF second, int percent) {
    const auto mixed = [percent](int a, int b) {
        return static_cast<BYTE>((a * (100 - percent) + b * percent + 50) / 100);
    };
    return RGB(mixed(GetRValue(first), GetRValue(second)),
               mixed(GetGValue(first), GetGValue(second)),
               mixed(GetBValue(first), GetBValue(second)));
}

GridColours GridColours::OfSystem() {
    GridColours colours{};
    colours.contrast = HighContrast();
    colours.window = GetSysColor(COLOR_WINDOW);
    colours.text = GetSysColor(COLOR_WINDOWTEXT);
    colours.header = GetSysColor(COLOR_BTNFACE);
    colours.headerText = GetSysColor(COLOR_BTNTEXT);
    colours.highlight = GetSysColor(COLOR_HIGHLIGHT);
    colours.highlightText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    if (colours.contrast) {
        colours.headerLine = colours.line = colours.border = colours.text;
        colours.idle = colours.header;
    } else {
        colours.headerLine = Mix(colours.header, colours.headerText, 20);
        colours.line = Mix(colours.window, colours.text, 13);
        colours.border = Mix(colours.window, colours.text, 50);
        colours.idle = Mix(colours.window, colours.text, 15);
    }
    return colours;
}

COLORREF GridColours::Background(Colour colour) const {
    if (colour == kWhite) return window;
    if (colour & kSystemColour) return GetSysColor(static_cast<int>(colour & ~kSystemColour));
    return colour;
}

COLORREF GridColours::TextOn(COLORREF background) const {
    if (background == window) return text;
    if (background == highlight) return highlightText;
    return Contrast(text, background) >= Contrast(window, background) ? text : window;
}

COLORREF GridColours::Selected(COLORREF background, bool focused) const {
    const COLORREF selected = focused ? highlight : idle;
    return contrast || background == window ? selected : Mix(selected, background, 55);
}

}  // namespace kestrel::ui::win32
