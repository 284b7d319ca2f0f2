#pragma once

#include <windows.h>
#include "ui/controls/Geometry.h"

namespace kestrel::ui::win32 {

/// Between the model's units (96 to the inch) and pixels. Edges are converted, never widths: then
/// neighbours share an edge at every scale, and no gap opens between them.
struct GridScale {
    UINT dpi = 96;

    int Pixels(int units) const { return MulDiv(units, static_cast<int>(dpi), 96); }

    /// The unit that the pixel is painted by.
    int Units(int pixels) const {
        int units = MulDiv(pixels, 96, static_cast<int>(dpi));
        while (Pixels(units) > pixels) --units;
        while (Pixels(units + 1) <= pixels) ++units;
        return units;
    }

    /// The fewest units that take up so many pixels.
    int UnitsAtLeast(int pixels) const {
        const int units = Units(pixels);
        return Pixels(units) < pixels ? units + 1 : units;
    }

    RECT Pixels(const Rect& units) const {
        return {Pixels(units.x), Pixels(units.y), Pixels(units.x + units.width),
                Pixels(units.y + units.height)};
    }
};

}  // namespace kestrel::ui::win32
