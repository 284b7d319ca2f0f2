#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ui/controls/Geometry.h"
#include "util/Colour.h"

/// A chart as it is painted: a list of shapes, back to front, in device-independent units. Every
/// painter, screen, printer or file, draws these and decides nothing.
namespace kestrel::ui {

/// A filled rectangle. A pen draws a hairline around it.
struct ChartBar {
    Rect bounds;
    Colour brush = 0;
    Colour pen = 0;
    bool hasBrush = true;
    bool hasPen = true;
    std::string hint;  ///< said when the user points at it; may be empty
};

/// A hairline from one point to another, along an axis.
struct ChartLine {
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Colour colour = 0;
    bool dashed = false;
};

/// A smooth line through the points, two units wide.
struct ChartCurve {
    std::vector<std::pair<double, double>> points;
    Colour colour = 0;
};

enum class ChartAlign { Left, Centre, Right };

struct ChartText {
    std::string text;
    std::string hint;  ///< the whole text where `text` is a shortened one; else empty
    int x = 0;         ///< of the edge or centre that `align` names
    int baseline = 0;
    int size = 12;  ///< of the font
    ChartAlign align = ChartAlign::Left;
    bool bold = false;
    Colour colour = 0;
};

struct ChartDrawing {
    int width = 0;
    int height = 0;
    std::string title;  ///< what the picture is, for readers that cannot see it
    std::string font = "Arial";
    std::vector<ChartLine> grid;  ///< behind the bars
    std::vector<ChartBar> bars;
    std::vector<ChartLine> lines;
    std::vector<ChartCurve> curves;
    std::vector<ChartText> texts;
};

/// @name Colours that drawings share (0xBBGGRR)
///@{
inline constexpr Colour kChartInk = 0x37291F;     ///< dark grey: texts beside the title
inline constexpr Colour kChartSubtle = 0x63554B;  ///< grey: axis titles and ticks
inline constexpr Colour kChartHairline = 0xDBD5D1;
///@}

}  // namespace kestrel::ui
