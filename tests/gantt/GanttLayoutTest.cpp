#include "refhost/gantt/GanttLayout.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "files/PlanText.h"
#include "refhost/charts/FigureText.h"
#include "refhost/gantt/TaskTable.h"
#include "support/GeneratedPlan.h"

namespace refhost {
namespace {

/// A fortnight's plan: a summary of two tasks and a milestone, and a task after them.
constexpr const char* kSmallPlan =
    "<Tasks><Task ID=\"10\" Name=\"Build\" Type=\"1\">"
    "<Task ID=\"11\" Name=\"Walls\" Type=\"0\" Duration=\"480\">"
    "<CostItem Name=\"a\" Cost=\"1000.5\"/><CostItem Name=\"b\" Cost=\"2000\"/></Task>"
    "<Task ID=\"12\" Name=\"Roof\" Type=\"0\" Duration=\"690\"><Link From=\"11\" Type=\"FS\" "
    "Lag=\"0\"/><CostItem Name=\"a\" Cost=\"4000000\"/>"
    "<UserValue Name=\"RiskFactors\">(1)</UserValue></Task>"
    "<Task ID=\"13\" Name=\"Roofed\" Type=\"0\" Duration=\"0\"><Link From=\"12\" Type=\"FS\" "
    "Lag=\"0\"/></Task></Task>"
    "<Task ID=\"20\" Name=\"Paint\" Type=\"0\" Duration=\"960\"><Link From=\"10\" Type=\"FS\" "
    "Lag=\"1440\"/></Task></Tasks>";

TEST(PlanFiguresTest, CellsTellDatesDurationsAndCosts) {
    LivePlan plan(Parse(PlanText(kSmallPlan)));
    PlanFigures figures(plan);
    EXPECT_EQ(TaskTable::Text(plan, figures, 0, TaskColumn::Critical), "");
    figures.SetCriticality(std::vector<double>{1, 1.0 / 3, 1, 0, 0});
    const char* expected[][TaskTable::kColumns] = {
        {"10", "Build", "2d 3h 30m", "2026-01-05 08:00", "2026-01-07 11:30", "4,003,001", "100.0%",
         ""},
        {"11", "Walls", "1d", "2026-01-05 08:00", "2026-01-05 17:00", "3,001", "33.3%", ""},
        {"12", "Roof", "1d 3h 30m", "2026-01-06 08:00", "2026-01-07 11:30", "4,000,000", "100.0%",
         "(1)"},
        {"13", "Roofed", "0d", "2026-01-07 11:30", "2026-01-07 11:30", "", "0.0%", ""},
        {"20", "Paint", "2d", "2026-01-12 11:30", "2026-01-14 11:30", "", "0.0%", ""},
    };
    for (std::size_t task = 0; task < std::size(expected); ++task)
        for (int column = 0; column < TaskTable::kColumns; ++column)
            EXPECT_EQ(TaskTable::Text(plan, figures, task, static_cast<TaskColumn>(column)),
                      expected[task][column]);
    EXPECT_EQ(DateAndTimeText(figures.Finish()), "2026-01-14 11:30");
    EXPECT_EQ(MoneyText(figures.Cost()), "4,003,000.50");
}

TEST(OutlineTest, RowsAreWhatNoCollapsedSummaryHides) {
    std::mt19937 random(7);
    std::vector<TaskData> tasks(300);
    for (std::size_t i = 1; i < tasks.size(); ++i)
        if (random() % 4 != 0) {  // below the task before, or one of those above it
            auto parent = static_cast<std::int32_t>(i) - 1;
            for (auto up = random() % 3; up > 0 && parent >= 0; --up)
                parent = tasks[static_cast<std::size_t>(parent)].parent;
            tasks[i].parent = parent;
        }
    Outline outline(tasks);
    for (int step = 0; step < 200; ++step) {
        const std::size_t task = random() % tasks.size();
        if (step % 20 == 19)
            outline.SetAllExpanded(step % 40 == 19);
        else if (step % 5 == 4)
            outline.Reveal(task);
        else
            outline.SetExpanded(task, random() % 3 == 0);
        EXPECT_TRUE(step % 5 != 4 || step % 20 == 19 || outline.RowOf(task));
        std::size_t rows = 0;
        for (std::size_t i = 0; i < tasks.size(); ++i) {
            bool hidden = false;
            for (auto above = outline.Parent(i); above; above = outline.Parent(*above))
                hidden |= !outline.IsExpanded(*above);
            ASSERT_EQ(outline.RowOf(i).has_value(), !hidden);
            if (hidden) continue;
            ASSERT_EQ(outline.RowOf(i), rows);
            ASSERT_EQ(outline.TaskAt(rows++), i);
        }
        ASSERT_EQ(outline.RowCount(), rows);
    }
}

GanttBar BarAt(double left, double right, int row, BarKind kind = BarKind::Task) {
    return {kind, 0, left, right, row * kRowHeight};
}

TEST(LinkRouteTest, LinesRunAlongTheAxesFromTheRightEndToTheRightEnd) {
    std::mt19937 random(3);
    const auto below = [&random](unsigned bound) { return static_cast<double>(random() % bound); };
    for (int i = 0; i < 2000; ++i) {
        const auto type = static_cast<LinkType>(random() % 4);
        const auto bar = [&](int row) {
            const double left = below(300);
            if (random() % 5 == 0) return BarAt(left, left, row, BarKind::Milestone);
            return BarAt(left, left + 3 + below(60), row);
        };
        const GanttBar from = bar(0);
        const GanttBar to = bar(random() % 2 == 0 ? 3 : -2);
        SCOPED_TRACE(testing::Message() << "type " << static_cast<int>(type) << ", " << from.left
                                        << " to " << to.left << ".." << to.right);
        const GanttLink link = RouteLink(type, from, to);
        const bool leavesFinish =
            type == LinkType::FinishToStart || type == LinkType::FinishToFinish;
        const bool meetsFinish =
            type == LinkType::FinishToFinish || type == LinkType::StartToFinish;
        ASSERT_GE(link.points.size(), 3u);
        EXPECT_NEAR(link.points.front().x, leavesFinish ? from.right : from.left, 6);
        EXPECT_EQ(link.points.front().y, from.top + kBarTop + kBarHeight / 2.0);
        const GanttPoint& tip = link.points.back();
        const GanttPoint& before = link.points[link.points.size() - 2];
        if (link.head == ArrowHead::Up || link.head == ArrowHead::Down) {
            EXPECT_GE(tip.x, to.left);
            EXPECT_LE(tip.x, to.right) << "the arrow points at the bar";
            EXPECT_EQ(before.x, tip.x);
            EXPECT_EQ(tip.y > before.y, link.head == ArrowHead::Down);
        } else {
            EXPECT_NEAR(tip.x, meetsFinish ? to.right : to.left, 6);
            EXPECT_EQ(before.y, tip.y);
            EXPECT_EQ(tip.x > before.x, link.head == ArrowHead::Right);
            EXPECT_EQ(link.head == ArrowHead::Left, meetsFinish) << "from outside";
        }
        for (std::size_t p = 1; p < link.points.size(); ++p)
            EXPECT_TRUE(link.points[p].x == link.points[p - 1].x ||
                        link.points[p].y == link.points[p - 1].y);
    }
}

TEST(GanttShadesTest, ShadesAreTheTimeThatIsNotWorked) {
    const PlanData plan = Parse(WithCalendar(
        "<Day Name=\"Monday\"><Shift From=\"08:00\" To=\"12:00\"/><Shift From=\"13:00\" "
        "To=\"24:00\"/></Day><Day Name=\"Tuesday\"><Shift From=\"00:00\" To=\"17:00\"/></Day>"
        "<Day Name=\"Friday\"><Shift From=\"09:00\" To=\"17:00\"/></Day>"
        "<Holiday Date=\"2026-01-12\"/><WorkingDay Date=\"2026-01-15\"><Shift From=\"09:00\" "
        "To=\"12:00\"/></WorkingDay>"));
    TimeScale scale(plan.start);
    for (int level = 0; level < TimeScale::LevelCount(); ++level) {
        scale.SetLevel(level);
        SCOPED_TRACE(scale.UnitsPerDay());
        const double end = 21 * scale.UnitsPerDay();
        const auto shades = ShadesOf(*plan.calendar, scale, 0, end);
        if (scale.UnitsPerDay() < 2.5) {
            EXPECT_TRUE(shades.empty());
            continue;
        }
        for (std::size_t i = 1; i < shades.size(); ++i)
            EXPECT_GT(shades[i].left, shades[i - 1].right) << "adjoining spans are one";
        const bool hours = scale.UnitsPerDay() >= 90;
        for (Minute at = plan.start; scale.X(at) < end; at += 30) {
            const Shifts& shifts = plan.calendar->On(at / kMinutesPerDay);
            const Minute within = at % kMinutesPerDay;
            bool works = !shifts.empty() && !hours;
            for (const Shift& shift : shifts) works |= within >= shift.from && within < shift.to;
            bool shaded = false;
            const double x = scale.X(at) + scale.UnitsPerDay() * 10 / kMinutesPerDay;
            for (const GanttShade& shade : shades) shaded |= x >= shade.left && x < shade.right;
            if (scale.UnitsPerDay() < 8 && !works) continue;  // too narrow to be seen
            ASSERT_EQ(shaded, !works) << DateAndTimeText(at);
        }
    }
}

TEST(GanttLayoutTest, PartsOfALargePlanShowItWholeAndOnlyThemselves) {
    auto plan = std::make_shared<HostPlan>(GeneratedPlan({.tasks = 2000}));
    const PlanFigures figures(*plan);
    const Outline outline(plan->Data().tasks);
    const auto links = LinksOf(*plan);
    TimeScale scale(figures.Start());
    std::set<std::size_t> seen;
    std::size_t linked = 0;
    const double end = scale.X(figures.Finish());
    for (std::size_t row = 0; row < outline.RowCount(); row += 40)
        for (double left = 0; left < end; left += 800) {
            const GanttDrawing part =
                LayOutGantt(outline, plan->Data(), figures, links, scale, {row, 40, left, 800});
            ASSERT_LE(part.bars.size(), 40u);
            for (const GanttBar& bar : part.bars) {
                seen.insert(bar.task);
                EXPECT_NEAR(bar.left, std::max(-4000.0, scale.X(figures[bar.task].start) - left),
                            0.01);
                EXPECT_EQ(bar.top / kRowHeight, static_cast<int>(bar.task - row));
            }
            linked += part.links.size();
        }
    EXPECT_EQ(seen.size(), 2000u);
    EXPECT_GE(linked, links.size()) << "each link shows in some part";
}

}  // namespace
}  // namespace refhost
