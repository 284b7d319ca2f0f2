#include "ui/win32/chart/ChartPainter.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "platform/win32/Gdi.h"
#include "platform/win32/WideText.h"
#include "ui/win32/chart/ChartFonts.h"

namespace kestrel::ui::win32 {
namespace {

using kestrel::win32::Brush;
using kestrel::win32::Pen;
using kestrel::win32::SavedState;
using kestrel::win32::Selection;
using kestrel::win32::Wide;

constexpr int kFineSteps = 10;    ///< to a unit
constexpr int kFineHairline = 7;  ///< about 0.2 mm of a drawing printed in its own size
constexpr double kDash = 4, kDashGap = 3, kCurveWidth = 2;

COLORREF ColourRef(Colour colour) {
    return colour & kSystemColour ? GetSysColor(static_cast<int>(colour & 0xFF)) : colour;
}

UINT AlignmentOf(ChartAlign align) {
    switch (align) {
        case ChartAlign::Left:
            return TA_BASELINE | TA_LEFT;
        case ChartAlign::Centre:
            return TA_BASELINE | TA_CENTER;
        default:
            return TA_BASELINE | TA_RIGHT;
    }
}

/// Paints one drawing from its beginning; the context is as before when it ends.
class ChartPainter {
 public:
    /// Both in the units of the context.
    ChartPainter(HDC dc, const ChartDrawing& drawing, double scale, int hairline)
        : dc_(dc), scale_(scale), hairline_(hairline), fonts_(drawing.font), state_(dc) {
        PaintGround(drawing);
        for (const ChartLine& line : drawing.grid) Paint(line);
        for (const ChartBar& bar : drawing.bars) Paint(bar);
        for (const ChartLine& line : drawing.lines) Paint(line);
        for (const ChartCurve& curve : drawing.curves) Paint(curve);
        SetBkMode(dc_, TRANSPARENT);
        for (const ChartText& text : drawing.texts) Paint(text);
    }

 private:
    int At(double units) const { return static_cast<int>(std::lround(units * scale_)); }

    void PaintGround(const ChartDrawing& drawing) {
        const RECT all{0, 0, At(drawing.width), At(drawing.height)};
        IntersectClipRect(dc_, all.left, all.top, all.right, all.bottom);
        const Brush white(CreateSolidBrush(RGB(255, 255, 255)));
        FillRect(dc_, &all, white.Get());
    }

    void Paint(const ChartBar& bar) {
        // Stock objects may be deleted like others: nothing happens to them.
        const Brush brush(bar.hasBrush ? CreateSolidBrush(ColourRef(bar.brush))
                                       : static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)));
        const Pen pen(bar.hasPen ? CreatePen(PS_SOLID, hairline_, ColourRef(bar.pen))
                                 : static_cast<HPEN>(GetStockObject(NULL_PEN)));
        const Selection withBrush(dc_, brush.Get()), withPen(dc_, pen.Get());
        const Rect& at = bar.bounds;
        // Leaves out its right and lower edge, which belong to the outline.
        Rectangle(dc_, At(at.x), At(at.y), At(at.x + at.width) + 1, At(at.y + at.height) + 1);
    }

    void Paint(const ChartLine& line) {
        const Pen pen = line.dashed ? DashedPen(ColourRef(line.colour))
                                    : Pen(CreatePen(PS_SOLID, hairline_, ColourRef(line.colour)));
        const Selection withPen(dc_, pen.Get());
        const bool across = line.y1 == line.y2;
        MoveToEx(dc_, At(line.x1), At(line.y1), nullptr);
        // Lines end before their last point.
        LineTo(dc_, At(line.x2) + (across ? 1 : 0), At(line.y2) + (across ? 0 : 1));
    }

    Pen DashedPen(COLORREF colour) const {
        const LOGBRUSH brush{BS_SOLID, colour, 0};
        const DWORD lengths[] = {static_cast<DWORD>(std::max(1, At(kDash))),
                                 static_cast<DWORD>(std::max(1, At(kDashGap)))};
        return Pen(ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT,
                                static_cast<DWORD>(hairline_), &brush, 2, lengths));
    }

    void Paint(const ChartCurve& curve) {
        const LOGBRUSH brush{BS_SOLID, ColourRef(curve.colour), 0};
        const Pen pen(ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                                   static_cast<DWORD>(std::max(1, At(kCurveWidth))), &brush, 0,
                                   nullptr));
        const Selection withPen(dc_, pen.Get());
        std::vector<POINT> points;
        for (const auto& [x, y] : curve.points) points.push_back({At(x), At(y)});
        Polyline(dc_, points.data(), static_cast<int>(points.size()));
    }

    void Paint(const ChartText& text) {
        const std::wstring wide = Wide(text.text);
        SelectObject(dc_, fonts_.Of(At(text.size), text.bold));
        SetTextColor(dc_, ColourRef(text.colour));
        SetTextAlign(dc_, AlignmentOf(text.align));
        TextOutW(dc_, At(text.x), At(text.baseline), wide.data(), static_cast<int>(wide.size()));
    }

    HDC dc_;
    double scale_;
    int hairline_;
    ChartFonts fonts_;
    SavedState state_;  ///< behind the fonts: takes them back out first
};

}  // namespace

void PaintChart(HDC dc, const ChartDrawing& drawing, double scale) {
    ChartPainter(dc, drawing, scale, 1);
}

void PaintChartInto(HDC dc, const ChartDrawing& drawing, const RECT& target) {
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetWindowExtEx(dc, drawing.width * kFineSteps, drawing.height * kFineSteps, nullptr);
    SetViewportOrgEx(dc, target.left, target.top, nullptr);
    SetViewportExtEx(dc, target.right - target.left, target.bottom - target.top, nullptr);
    ChartPainter(dc, drawing, kFineSteps, kFineHairline);
}

}  // namespace kestrel::ui::win32
