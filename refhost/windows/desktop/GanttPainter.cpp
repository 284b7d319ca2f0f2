#include <algorithm>
#include <cmath>

#include "refhost/windows/desktop/PlanPainter.h"

namespace refhost::win32 {
namespace {

constexpr int kLabelGap = 6;  ///< from a bar to what stands beside it
constexpr int kSummaryTop = 6, kSummaryHeight = 6, kHook = 6;
constexpr double kDiamond = 6.5;    ///< half a milestone
constexpr int kCriticalHeight = 4;  ///< of the shade along a task's bar

/// Between two colours: `from` at 0, `to` at 1.
COLORREF Mixed(COLORREF from, COLORREF to, double share) {
    const auto part = [share](int a, int b) { return a + std::lround(share * (b - a)); };
    return RGB(part(GetRValue(from), GetRValue(to)), part(GetGValue(from), GetGValue(to)),
               part(GetBValue(from), GetBValue(to)));
}

/// Paints the chart of one view.
class GanttPainter {
 public:
    GanttPainter(const PaintTools& tools, const PlanView& view, const PlanPaintState& state,
                 double width, double height)
        : tools_(tools),
          colours_(tools.Colours()),
          view_(view),
          state_(state),
          width_(width),
          height_(height),
          drawing_(view.Drawing()) {}

    void Paint() const {
        const RECT all = tools_.Area(view_.ChartLeft(), 0, width_, height_);
        const ClipScope clip(tools_.Dc(), all);
        tools_.Fill(all, colours_.paper);
        {
            const ClipScope body(tools_.Dc(),
                                 tools_.Area(view_.ChartLeft(), kTop, width_, height_));
            PaintGround();
            for (const GanttLink& link : drawing_.links) PaintLink(link);
            for (const GanttBar& bar : drawing_.bars) PaintBar(bar);
        }
        PaintHeader();
    }

 private:
    static constexpr double kTop = PlanView::kHeaderHeight;

    double X(double inChart) const { return view_.ChartLeft() + inChart; }
    int PixelX(double inChart) const { return tools_.Pixel(X(inChart)); }
    int PixelY(double inRows) const { return tools_.Pixel(kTop + inRows); }

    void PaintGround() const {
        for (const GanttShade& shade : drawing_.shades)
            tools_.Fill({PixelX(shade.left), tools_.Pixel(kTop), PixelX(shade.right),
                         tools_.Pixel(height_)},
                        colours_.shade);
        for (const TimeCell& cell : Cells(TimeBand::Upper))
            tools_.Vertical(PixelX(cell.left - view_.TimeLeft()), kTop, height_,
                            colours_.faintRuling);
        PaintSelectedRow();
        const int today = PixelX(view_.Scale().X(state_.now) - view_.TimeLeft());
        for (double y = kTop; y < height_; y += 6) tools_.Vertical(today, y, y + 3, colours_.today);
    }

    void PaintSelectedRow() const {
        const auto task = view_.SelectedTask();
        const auto row = task ? view_.Outline().RowOf(*task) : std::nullopt;
        if (!row || *row < view_.FirstRow()) return;
        const double top = static_cast<double>(*row - view_.FirstRow()) * kRowHeight;
        RECT area{PixelX(0), PixelY(top), tools_.Pixel(width_), PixelY(top + kRowHeight) - 1};
        tools_.Fill(area, state_.focused ? colours_.selected : colours_.selectedIdle);
    }

    COLORREF RowGround(std::size_t task) const {
        if (view_.SelectedTask() != task) return colours_.paper;
        return state_.focused ? colours_.selected : colours_.selectedIdle;
    }

    std::vector<TimeCell> Cells(TimeBand band) const {
        return view_.Scale().Cells(band, view_.TimeLeft(), view_.TimeLeft() + view_.ChartWidth());
    }

    void PaintHeader() const {
        tools_.Fill(tools_.Area(view_.ChartLeft(), 0, width_, kTop), colours_.header);
        PaintBand(TimeBand::Upper, 0, tools_.Fonts().bold.Get());
        PaintBand(TimeBand::Lower, kRowHeight, tools_.Fonts().small.Get());
        for (const int bottom : {tools_.Pixel(kRowHeight), tools_.Pixel(kTop)})
            tools_.Fill({PixelX(0), bottom - 1, tools_.Pixel(width_), bottom}, colours_.ruling);
    }

    /// The name of a long cell stays in sight while the cell is.
    void PaintBand(TimeBand band, double top, HFONT font) const {
        for (const TimeCell& cell : Cells(band)) {
            const double left = cell.left - view_.TimeLeft();
            const double right = cell.right - view_.TimeLeft();
            tools_.Vertical(PixelX(left), top, top + kRowHeight, colours_.ruling);
            const bool upper = band == TimeBand::Upper;
            RECT area{PixelX(upper ? std::max(left, 0.0) + 6 : left + 1), tools_.Pixel(top),
                      PixelX(right), tools_.Pixel(top + kRowHeight) - 1};
            const ClipScope clip(tools_.Dc(), area);
            if (upper) area.right += 200;  // cut by the clip rather than by an ellipsis
            tools_.Text(cell.label, area, font, colours_.headerText, upper ? DT_LEFT : DT_CENTER);
        }
    }

    void PaintBar(const GanttBar& bar) const {
        const std::string factors =
            TaskTable::Text(view_.Plan(), view_.Figures(), bar.task, TaskColumn::RiskFactors);
        double end = bar.right;
        switch (bar.kind) {
            case BarKind::Milestone:
                PaintDiamond(bar);
                end += kDiamond;
                break;
            case BarKind::Summary:
                PaintSummary(bar);
                break;
            case BarKind::Task:
                PaintTask(bar, !factors.empty());
        }
        const double left = X(end) + kLabelGap;
        tools_.Label(factors,
                     tools_.Area(left, kTop + bar.top, left, kTop + bar.top + kRowHeight - 1),
                     tools_.Fonts().small.Get(), colours_.riskText, RowGround(bar.task));
    }

    void PaintTask(const GanttBar& bar, bool carriesFactors) const {
        const COLORREF inside = carriesFactors ? colours_.riskBar : colours_.bar;
        RECT area{PixelX(bar.left), PixelY(bar.top + kBarTop), PixelX(bar.right),
                  PixelY(bar.top + kBarTop + kBarHeight)};
        tools_.Frame(area, carriesFactors ? colours_.riskBarEdge : colours_.barEdge, inside);
        const COLORREF shade = Shaded(inside, bar.task);
        if (shade == inside) return;
        InflateRect(&area, -1, -1);
        area.top = PixelY(bar.top + kBarTop + kBarHeight - kCriticalHeight);
        if (area.right > area.left) tools_.Fill(area, shade);
    }

    COLORREF Shaded(COLORREF colour, std::size_t task) const {
        const auto share = view_.Figures()[task].criticality;
        return share && colours_.critical ? Mixed(colour, *colours_.critical, *share) : colour;
    }

    void PaintDiamond(const GanttBar& bar) const {
        const int x = PixelX(bar.left);
        const int y = PixelY(bar.top + kBarTop + kBarHeight / 2.0);
        const int half = tools_.Pixel(kDiamond);
        const POINT points[] = {{x, y - half}, {x + half, y}, {x, y + half}, {x - half, y}};
        tools_.Polygon(points, 4, Shaded(colours_.milestone, bar.task));
    }

    /// A bracket over what it sums up: a bar whose ends point down.
    void PaintSummary(const GanttBar& bar) const {
        const int left = PixelX(bar.left), right = PixelX(bar.right);
        const int top = PixelY(bar.top + kSummaryTop);
        const int bottom = PixelY(bar.top + kSummaryTop + kSummaryHeight);
        const COLORREF colour = Shaded(colours_.summary, bar.task);
        tools_.Fill({left, top, right, bottom}, colour);
        const int hook = std::min(tools_.Pixel(kHook), (right - left) / 2);
        const POINT leftHook[] = {
            {left, bottom - 1}, {left + hook, bottom - 1}, {left, bottom + hook}};
        const POINT rightHook[] = {
            {right - 1, bottom - 1}, {right - 1 - hook, bottom - 1}, {right - 1, bottom + hook}};
        tools_.Polygon(leftHook, 3, colour);
        tools_.Polygon(rightHook, 3, colour);
    }

    void PaintLink(const GanttLink& link) const {
        for (std::size_t i = 1; i < link.points.size(); ++i) {
            const GanttPoint& a = link.points[i - 1];
            const GanttPoint& b = link.points[i];
            RECT line{PixelX(std::min(a.x, b.x)), PixelY(std::min(a.y, b.y)),
                      PixelX(std::max(a.x, b.x)) + 1, PixelY(std::max(a.y, b.y)) + 1};
            tools_.Fill(line, colours_.link);
        }
        PaintHead(link.head, PixelX(link.points.back().x), PixelY(link.points.back().y));
    }

    void PaintHead(ArrowHead head, int x, int y) const {
        const int length = tools_.Pixel(5), half = tools_.Pixel(3);
        POINT points[3] = {{x, y}, {}, {}};
        switch (head) {
            case ArrowHead::Right:
                points[1] = {x - length, y - half};
                points[2] = {x - length, y + half};
                break;
            case ArrowHead::Left:
                points[1] = {x + length, y - half};
                points[2] = {x + length, y + half};
                break;
            case ArrowHead::Down:
                points[1] = {x - half, y - length};
                points[2] = {x + half, y - length};
                break;
            case ArrowHead::Up:
                points[1] = {x - half, y + length};
                points[2] = {x + half, y + length};
                break;
        }
        tools_.Polygon(points, 3, colours_.link);
    }

    const PaintTools& tools_;
    const Palette& colours_;
    const PlanView& view_;
    const PlanPaintState& state_;
    double width_;
    double height_;
    GanttDrawing drawing_;
};

}  // namespace

void PaintChart(const PaintTools& tools, const PlanView& view, const PlanPaintState& state,
                double width, double height) {
    GanttPainter(tools, view, state, width, height).Paint();
}

}  // namespace refhost::win32
