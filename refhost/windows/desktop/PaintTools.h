#pragma once

#include <windows.h>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "platform/win32/Gdi.h"
#include "refhost/gantt/PlanView.h"

namespace refhost::win32 {

/// The colours that a plan is painted in.
struct Palette {
    COLORREF paper, text, faintText;
    COLORREF header, headerText, ruling, faintRuling;
    COLORREF selected, selectedText, selectedIdle;  ///< idle: while another window has the keyboard
    COLORREF shade;                                 ///< time that is not worked
    COLORREF bar, barEdge;
    COLORREF riskBar, riskBarEdge, riskText;  ///< of tasks that carry risk factors
    COLORREF summary, milestone, link, today;
    /// What bars are shaded with, the more often critical the stronger; nothing in high contrast.
    std::optional<COLORREF> critical;

    /// The program's own colours or, for users of high contrast, the system's alone.
    static Palette Current();
};

/// The fonts of a plan at a scale.
struct PlanFonts {
    explicit PlanFonts(UINT dpi);
    kestrel::win32::Font usual, bold, small;
};

/// What table and chart are painted with: places in units go to the nearest pixel by their edges,
/// so that neighbours meet without gap at any scale.
class PaintTools {
 public:
    PaintTools(HDC dc, UINT dpi, const Palette& palette, const PlanFonts& fonts)
        : dc_(dc), scale_(dpi / 96.0), palette_(palette), fonts_(fonts) {}

    HDC Dc() const { return dc_; }
    const Palette& Colours() const { return palette_; }
    const PlanFonts& Fonts() const { return fonts_; }

    int Pixel(double units) const { return static_cast<int>(std::lround(units * scale_)); }
    RECT Area(double left, double top, double right, double bottom) const {
        return {Pixel(left), Pixel(top), Pixel(right), Pixel(bottom)};
    }

    void Fill(const RECT& area, COLORREF colour) const;
    void Frame(const RECT& area, COLORREF edge, COLORREF inside) const;
    /// Pixels wide, of `height` units.
    void Vertical(int x, double top, double bottom, COLORREF colour) const;
    void Horizontal(double left, double right, double y, COLORREF colour) const;
    void Polygon(const POINT* points, int count, COLORREF colour) const;

    /// A text on a ground of its own, from the left edge of the area, as wide as it is.
    void Label(std::string_view text, RECT area, HFONT font, COLORREF colour,
               COLORREF ground) const;

    /// One line in the middle of the area, cut off with an ellipsis. `format` is DT_LEFT,
    /// DT_CENTER or DT_RIGHT.
    void Text(std::string_view text, RECT area, HFONT font, COLORREF colour,
              UINT format = DT_LEFT) const;

 private:
    HDC dc_;
    double scale_;
    const Palette& palette_;
    const PlanFonts& fonts_;
};

/// Draws nothing outside an area while it lives.
class ClipScope {
 public:
    ClipScope(HDC dc, const RECT& area) : state_(dc) {
        IntersectClipRect(dc, area.left, area.top, area.right, area.bottom);
    }

 private:
    kestrel::win32::SavedState state_;
};

}  // namespace refhost::win32
