#pragma once

#include <windows.h>

#include "ui/controls/ChartDrawing.h"

/// Paints a ChartDrawing on any device. What it is made of and where it lies is decided already.
namespace kestrel::ui::win32 {

/// From the left upper corner of the context, crisp: `scale` device pixels to a unit, and
/// hairlines of one pixel.
void PaintChart(HDC dc, const ChartDrawing& drawing, double scale);

/// Into a rectangle of the device, whatever the shape of its pixels, by shapes and texts in fine
/// steps: for printers and for pictures that will be enlarged. The context keeps the mapping.
void PaintChartInto(HDC dc, const ChartDrawing& drawing, const RECT& target);

}  // namespace kestrel::ui::win32
