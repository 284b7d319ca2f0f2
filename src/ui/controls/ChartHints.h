#pragma once

#include <string>
#include <vector>

#include "ui/controls/ChartDrawing.h"

namespace kestrel::ui {

/// What is said while the user points into a rectangle of a chart.
struct ChartHint {
    Rect area;
    std::string text;
};

/// The hints of bars and shortened texts. A bar's area is never too thin to point at.
std::vector<ChartHint> HintsOf(const ChartDrawing& drawing);

}  // namespace kestrel::ui
