#include "ui/controls/Chart.h"
#include "ui/controls/Grid.h"
#include "ui/win32/SystemView.h"

namespace kestrel::ui::win32 {
namespace {
class PlaceholderView : public SystemView {
 public:
    PlaceholderView(ViewContext& context, Control& control)
        : SystemView(context, control, WC_STATICW, WS_BORDER) {}
    void Show() override {}
};
}  // namespace
std::unique_ptr<ControlView> MakeGridView(ViewContext& context, Grid& grid) {
    return std::make_unique<PlaceholderView>(context, grid);
}
std::unique_ptr<ControlView> MakeChartView(ViewContext& context, Chart& chart) {
    return std::make_unique<PlaceholderView>(context, chart);
}
}  // namespace kestrel::ui::win32
