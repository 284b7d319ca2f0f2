#pragma once

#include "ui/controls/Chart.h"
#include "ui/controls/ChartDrawing.h"
#include "ui/controls/ChartText.h"

/// Where the parts of a chart lie.
namespace kestrel::ui {

/// The chart at a size. Its axes are exchanged ("XYAxesReverse"; std::invalid_argument for any
/// other): bars lie across, their names stand in a column at the left, and values run from left
/// to right below them.
///
/// Nothing overlaps and nothing is clipped: long names are shortened, names of crowded bars get
/// smaller and then only every second, third, ... is shown; room is kept beside the bars for their
/// values. Value axes whose "Span" is 0 show 0 to 1. Whoever knows the font's widths gives its own
/// measure, which then decides what fits.
ChartDrawing DrawingOf(const Chart& chart, int width, int height,
                       const TextMeasure& measure = TextWidth);

/// A size at which every bar's name can be read.
struct ChartSize {
    int width = 0;
    int height = 0;
};
ChartSize ComfortableSize(const Chart& chart);

}  // namespace kestrel::ui
