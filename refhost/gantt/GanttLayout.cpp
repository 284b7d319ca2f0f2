#include "refhost/gantt/GanttLayout.h"

#include <algorithm>

namespace refhost {
namespace {

constexpr double kLeastBar = 3;
constexpr double kMilestoneHalf = 7;  ///< of its width
/// Bars and lines are cut this far outside the part: screens count in 16 bits here and there.
constexpr double kBeyond = 4000;

/// Lays out one part.
class Layout {
 public:
    Layout(const Outline& outline, const PlanData& plan, const PlanFigures& figures,
           const TimeScale& scale, const GanttPart& part)
        : outline_(outline), plan_(plan), figures_(figures), scale_(scale), part_(part) {}

    GanttBar BarOf(std::size_t task, std::size_t row) const {
        GanttBar bar;
        bar.task = task;
        bar.top = (static_cast<int>(row) - static_cast<int>(part_.firstRow)) * kRowHeight;
        bar.left = Place(figures_[task].start);
        bar.right = Place(figures_[task].finish);
        if (plan_.tasks[task].type != kOrdinary)
            bar.kind = BarKind::Summary;
        else if (figures_[task].duration == 0)
            bar.kind = BarKind::Milestone;
        if (bar.kind != BarKind::Milestone) bar.right = std::max(bar.right, bar.left + kLeastBar);
        return bar;
    }

    std::vector<GanttBar> Bars() const {
        std::vector<GanttBar> bars;
        for (std::size_t row = part_.firstRow; row < EndRow(); ++row) {
            const GanttBar bar = BarOf(outline_.TaskAt(row), row);
            if (bar.right > -kMilestoneHalf && bar.left < part_.width + kMilestoneHalf)
                bars.push_back(bar);
        }
        return bars;
    }

    std::vector<GanttLink> Links(const std::vector<TaskLink>& links) const {
        std::vector<GanttLink> drawn;
        for (const TaskLink& link : links) {
            const auto from = outline_.RowOf(link.from);
            const auto to = outline_.RowOf(link.to);
            if (!from || !to) continue;
            if (std::max(*from, *to) < part_.firstRow || std::min(*from, *to) >= EndRow()) continue;
            GanttLink route = RouteLink(link.type, BarOf(link.from, *from), BarOf(link.to, *to));
            if (IsOnShow(route)) drawn.push_back(std::move(route));
        }
        return drawn;
    }

 private:
    std::size_t EndRow() const {
        return std::min(part_.firstRow + part_.rows, outline_.RowCount());
    }

    double Place(Minute date) const {
        return std::clamp(scale_.X(date) - part_.left, -kBeyond, part_.width + kBeyond);
    }

    bool IsOnShow(const GanttLink& route) const {
        const auto [least, most] =
            std::minmax_element(route.points.begin(), route.points.end(),
                                [](const auto& a, const auto& b) { return a.x < b.x; });
        return most->x >= 0 && least->x <= part_.width;
    }

    const Outline& outline_;
    const PlanData& plan_;
    const PlanFigures& figures_;
    const TimeScale& scale_;
    const GanttPart& part_;
};

}  // namespace

GanttDrawing LayOutGantt(const Outline& outline, const PlanData& plan, const PlanFigures& figures,
                         const std::vector<TaskLink>& links, const TimeScale& scale,
                         const GanttPart& part) {
    const Layout layout(outline, plan, figures, scale, part);
    GanttDrawing drawing;
    drawing.shades = ShadesOf(plan.calendar.value_or(Calendar::Standard()), scale, part.left,
                              part.left + part.width);
    for (GanttShade& shade : drawing.shades) {
        shade.left -= part.left;
        shade.right -= part.left;
    }
    drawing.bars = layout.Bars();
    drawing.links = layout.Links(links);
    return drawing;
}

}  // namespace refhost
