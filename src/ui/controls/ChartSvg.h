#pragma once

#include <string>

#include "ui/controls/Chart.h"
#include "ui/controls/ChartDrawing.h"

/// Charts as SVG files: readable by themselves, text kept as text.
namespace kestrel::ui {

/// The drawing as an SVG document. Characters that XML cannot hold become U+FFFD.
std::string SvgText(const ChartDrawing& drawing);

/// The chart drawn at a size, in units of 1/96 inch.
std::string ChartSvgText(const Chart& chart, int width, int height);

}  // namespace kestrel::ui
