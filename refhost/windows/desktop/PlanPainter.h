#pragma once

#include "refhost/windows/desktop/PaintTools.h"

/// Paints a plan: what lies where is the view's to say.
namespace refhost::win32 {

struct PlanPaintState {
    bool focused = false;
    Minute now = 0;  ///< marked on the time scale
};

/// The whole view from the context's upper left corner, splitter included. `width` and `height`
/// in units.
void PaintPlan(const PaintTools& tools, const PlanView& view, const PlanPaintState& state,
               double width, double height);

/// Its two halves.
void PaintTable(const PaintTools& tools, const PlanView& view, const PlanPaintState& state,
                double height);
void PaintChart(const PaintTools& tools, const PlanView& view, const PlanPaintState& state,
                double width, double height);

}  // namespace refhost::win32
