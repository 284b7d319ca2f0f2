#include "ui/controls/Chart.h"

namespace kestrel::ui {

void Chart::ClearAllData() {
    channels_.resize(1);
    channels_.front().points.clear();
    attributes_.Set("TitleText", "");
    Changed();
}

}  // namespace kestrel::ui
