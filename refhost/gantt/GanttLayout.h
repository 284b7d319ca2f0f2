#pragma once

#include <string>
#include <vector>

#include "refhost/gantt/LinkList.h"
#include "refhost/gantt/Outline.h"
#include "refhost/gantt/PlanFigures.h"
#include "refhost/gantt/TimeScale.h"

/// What lies where in the visible part of a Gantt chart, in device-independent units from the
/// part's own upper left corner. Nothing outside that part is laid out, so scrolling costs the
/// same in a plan of ten tasks and of ten thousand (but for one look at each link).
namespace refhost {

/// The part on show. Rows beyond the outline's are empty.
struct GanttPart {
    std::size_t firstRow = 0;
    std::size_t rows = 0;
    double left = 0;  ///< on the time scale
    double width = 0;
};

/// Heights within a row.
inline constexpr int kRowHeight = 22;
inline constexpr int kBarTop = 5;
inline constexpr int kBarHeight = 12;

enum class BarKind { Task, Summary, Milestone };

/// A milestone's `left` and `right` are its date. Bars are never narrower than can be seen.
struct GanttBar {
    BarKind kind = BarKind::Task;
    std::size_t task = 0;
    double left = 0;
    double right = 0;
    int top = 0;  ///< of its row
};

struct GanttPoint {
    double x = 0;
    double y = 0;
    bool operator==(const GanttPoint&) const = default;
};

enum class ArrowHead { Right, Left, Up, Down };

/// Lines along the axes, with the arrow's point at the last place.
struct GanttLink {
    std::vector<GanttPoint> points;
    ArrowHead head = ArrowHead::Right;
};

/// Time that is not worked, over the whole height.
struct GanttShade {
    double left = 0;
    double right = 0;
};

struct GanttDrawing {
    std::vector<GanttShade> shades;
    std::vector<GanttBar> bars;
    std::vector<GanttLink> links;  ///< between tasks on show, where the part shows some of them
};

GanttDrawing LayOutGantt(const Outline& outline, const PlanData& plan, const PlanFigures& figures,
                         const std::vector<TaskLink>& links, const TimeScale& scale,
                         const GanttPart& part);

/// Time that is not worked between two places on the scale: whole days, and the hours between
/// shifts where those can be told apart. Adjoining spans are one; what is too narrow to be seen
/// is left out.
std::vector<GanttShade> ShadesOf(const Calendar& calendar, const TimeScale& scale, double left,
                                 double right);

/// How a link runs from one bar to another.
GanttLink RouteLink(LinkType type, const GanttBar& from, const GanttBar& to);

}  // namespace refhost
