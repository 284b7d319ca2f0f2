#include "ui/controls/Chart.h"

#include "ui/controls/ChartGeometry.h"

namespace kestrel::ui {

ChartDrawing Chart::Draw(int width, int height, const TextMeasure& measure) const {
    return DrawingOf(*this, width, height, measure);
}

void Chart::ClearAllData() {
    channels_.resize(1);
    channels_.front().points.clear();
    attributes_.Set("TitleText", "");
    Changed();
}

}  // namespace kestrel::ui
