#include <algorithm>

#include "refhost/gantt/GanttLayout.h"

namespace refhost {
namespace {

constexpr double kStub = 7;  ///< how far a line leaves a bar before it turns

/// The end of a bar that a line leaves or meets.
struct Joint {
    double x = 0;
    double y = 0;
    double outward = 1;  ///< 1 at the right end of the bar, -1 at the left

    double Stub() const { return x + outward * kStub; }
};

Joint JointOf(const GanttBar& bar, bool finish) {
    const double half = bar.kind == BarKind::Milestone ? 6 : 0;
    const double outward = finish ? 1 : -1;
    return {(finish ? bar.right : bar.left) + outward * half, bar.top + kBarTop + kBarHeight / 2.0,
            outward};
}

/// The usual link, where the later task starts after the earlier has ended: across, and down (or
/// up) onto the bar.
GanttLink DropOnto(const Joint& start, const GanttBar& to) {
    const bool down = to.top > start.y;
    const double x = to.kind == BarKind::Milestone
                         ? to.left
                         : std::max(start.x, to.left + std::min(6.0, (to.right - to.left) / 2));
    const double reach = to.kind == BarKind::Milestone ? 1 : 0;
    const double y = to.top + (down ? kBarTop - reach : kBarTop + kBarHeight + reach);
    return {{{start.x, start.y}, {x, start.y}, {x, y}}, down ? ArrowHead::Down : ArrowHead::Up};
}

}  // namespace

GanttLink RouteLink(LinkType type, const GanttBar& from, const GanttBar& to) {
    const bool leavesFinish = type == LinkType::FinishToStart || type == LinkType::FinishToFinish;
    const bool meetsFinish = type == LinkType::FinishToFinish || type == LinkType::StartToFinish;
    const Joint start = JointOf(from, leavesFinish);
    const Joint end = JointOf(to, meetsFinish);
    if (type == LinkType::FinishToStart && to.left >= from.right) return DropOnto(start, to);

    GanttLink link;
    link.head = meetsFinish ? ArrowHead::Left : ArrowHead::Right;
    link.points.push_back({start.x, start.y});
    if (start.outward == end.outward) {
        const double x = start.outward > 0 ? std::max(start.Stub(), end.Stub())
                                           : std::min(start.Stub(), end.Stub());
        link.points.insert(link.points.end(), {{x, start.y}, {x, end.y}});
    } else if ((end.Stub() - start.Stub()) * start.outward >= 0) {
        link.points.insert(link.points.end(), {{end.Stub(), start.y}, {end.Stub(), end.y}});
    } else {
        // The ends face away from each other: round through the gap below or above the first row.
        const double between = to.top > from.top ? from.top + kRowHeight : from.top;
        link.points.insert(link.points.end(), {{start.Stub(), start.y},
                                               {start.Stub(), between},
                                               {end.Stub(), between},
                                               {end.Stub(), end.y}});
    }
    link.points.push_back({end.x, end.y});
    return link;
}

}  // namespace refhost
