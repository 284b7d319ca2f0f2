#include "refhost/gantt/PlanView.h"

#include <gtest/gtest.h>

#include "files/PlanText.h"
#include "support/GeneratedPlan.h"

namespace refhost {
namespace {

using kestrel::ui::Key;
using kestrel::ui::KeyEvent;
using Kind = PlanPlace::Kind;

/// A, with B (with C, D) and E below it; F.
constexpr const char* kOutline =
    "<Tasks><Task ID=\"A\" Name=\"A\" Type=\"1\"><Task ID=\"B\" Name=\"B\" Type=\"1\">"
    "<Task ID=\"C\" Name=\"C\" Type=\"0\" Duration=\"480\"/>"
    "<Task ID=\"D\" Name=\"D\" Type=\"0\" Duration=\"480\"/></Task>"
    "<Task ID=\"E\" Name=\"E\" Type=\"0\" Duration=\"48000\"/></Task>"
    "<Task ID=\"F\" Name=\"F\" Type=\"0\" Duration=\"0\"/></Tasks>";

class PlanViewTest : public testing::Test {
 protected:
    PlanViewTest() { view.Resize(1200, 600); }

    std::string Selected() const {
        const auto task = view.SelectedTask();
        return task ? plan->Data().tasks[*task].id : "";
    }
    std::string Shown() const {
        std::string ids;
        for (std::size_t row = 0; row < view.Outline().RowCount(); ++row)
            ids += plan->Data().tasks[view.Outline().TaskAt(row)].id;
        return ids;
    }
    void Press(Key key, bool ctrl = false) {
        KeyEvent event;
        event.key = key;
        event.ctrl = ctrl;
        view.KeyDown(event);
    }

    std::shared_ptr<HostPlan> plan = std::make_shared<HostPlan>(Parse(PlanText(kOutline)));
    PlanView view{plan};
};

TEST_F(PlanViewTest, KeysWalkTheOutline) {
    const struct {
        Key key;
        const char *selected, *shown;
    } steps[] = {
        {Key::Up, "A", "ABCDEF"},    {Key::Down, "B", "ABCDEF"},   {Key::Right, "C", "ABCDEF"},
        {Key::Right, "C", "ABCDEF"}, {Key::Left, "B", "ABCDEF"},   {Key::Left, "B", "ABEF"},
        {Key::Down, "E", "ABEF"},    {Key::Up, "B", "ABEF"},       {Key::Right, "B", "ABCDEF"},
        {Key::End, "F", "ABCDEF"},   {Key::Left, "F", "ABCDEF"},   {Key::Home, "A", "ABCDEF"},
        {Key::Left, "A", "AF"},      {Key::PageDown, "F", "AF"},   {Key::PageUp, "A", "AF"},
        {Key::Right, "A", "ABCDEF"}, {Key::Delete, "A", "ABCDEF"},
    };
    for (const auto& step : steps) {
        Press(step.key);
        EXPECT_EQ(Selected(), step.selected);
        EXPECT_EQ(Shown(), step.shown);
    }
}

TEST_F(PlanViewTest, TheAddInSeesAndMovesTheSelection) {
    Press(Key::Down);
    EXPECT_EQ(plan->CurrentView()->CurrentRow(), 2) << "rows count all tasks, hidden ones too";
    view.SetAllExpanded(false);
    EXPECT_EQ(Selected(), "A") << "what hides the selected task";
    EXPECT_EQ(Shown(), "AF");
    EXPECT_FALSE(view.Sync());
    plan->CurrentView()->PutCurrentRow(4);
    EXPECT_TRUE(view.Sync());
    EXPECT_EQ(Shown(), "ABCDEF") << "a hidden task is revealed";
    EXPECT_EQ(Selected(), "D");
    plan->CurrentView()->PutCurrentRow(99);
    view.Sync();
    EXPECT_EQ(Selected(), "");
    Press(Key::Down);
    EXPECT_EQ(Selected(), "A");
}

TEST_F(PlanViewTest, ChangesOfThePlanShow) {
    const Minute before = view.Figures().Finish();
    plan->TaskAt(4)->PutDuration(96000);
    EXPECT_TRUE(view.Sync());
    EXPECT_GT(view.Figures().Finish(), before);
}

TEST_F(PlanViewTest, TheMouseSelectsExpandsAndSizes) {
    const int name = view.Table().Left(1);
    const int header = PlanView::kHeaderHeight;
    const auto click = [&](int x, int y, bool twice = false) {
        view.MouseDown({.x = x, .y = y, .shift = false, .ctrl = false, .doubleClick = twice});
    };
    click(name + PlanView::kIndent + 4, header + kRowHeight + 3);  // the box of B
    EXPECT_EQ(Shown(), "ABEF");
    EXPECT_EQ(Selected(), "A");
    int opened = 0;
    view.OnOpenTask = [&] { ++opened; };
    click(view.ChartLeft() + 300, header + 2 * kRowHeight + 3);
    EXPECT_EQ(Selected(), "E");
    click(name + 100, header + kRowHeight + 3, true);
    EXPECT_EQ(Selected(), "B");
    EXPECT_EQ(opened, 1);
    click(name + 100, header + 30 * kRowHeight, true);
    EXPECT_EQ(opened, 1) << "below the last row";

    const int border = view.Table().Left(2);
    EXPECT_EQ(view.At(border + 2, 10), (PlanPlace{Kind::ColumnBorder, 0, 1}));
    click(border + 2, 10);
    view.MouseMove(border + 52);
    EXPECT_EQ(view.Table().Left(2), border + 50);
    view.MouseMove(0);
    EXPECT_EQ(view.Table().Width(TaskColumn::Name), TaskTable::kLeastWidth);
    view.MouseUp();
    view.MouseMove(700);
    EXPECT_EQ(view.Table().Width(TaskColumn::Name), TaskTable::kLeastWidth);

    click(view.TableWidth() + 1, 300);
    view.MouseMove(400);
    EXPECT_EQ(view.TableWidth(), 399);
    view.MouseMove(9999);
    EXPECT_LT(view.ChartLeft(), 1200 - 50) << "the chart never goes";
}

TEST_F(PlanViewTest, ZoomKeepsTheDateUnderTheMouse) {
    view.Zoom(3);
    view.ScrollTimeTo(view.TimeFrom() + 200);
    const int x = view.ChartLeft() + 150;
    const auto dateAt = [&] { return view.Scale().DateAt(view.TimeLeft() + x - view.ChartLeft()); };
    const Minute before = dateAt();
    for (const int levels : {1, 1, -1, -1}) {
        view.Zoom(levels, x);
        EXPECT_NEAR(static_cast<double>(dateAt()), static_cast<double>(before),
                    kMinutesPerDay / view.Scale().UnitsPerDay() + 1);
    }
    view.ShowWholePlan();
    EXPECT_GE(view.Scale().X(view.Figures().Start()), view.TimeLeft());
    EXPECT_LE(view.Scale().X(view.Figures().Finish()), view.TimeLeft() + view.ChartWidth());
}

TEST(LargePlanViewTest, TheSelectedRowStaysInSight) {
    auto plan = std::make_shared<HostPlan>(GeneratedPlan({.tasks = 10000}));
    PlanView view(plan);
    view.Resize(1200, 600);
    const auto inSight = [&](std::size_t task) {
        const std::size_t row = view.Outline().RowOf(task).value();
        return row >= view.FirstRow() && row < view.FirstRow() + view.WholeRows();
    };
    const struct {
        Key key;
        std::size_t selected;
    } steps[] = {{Key::PageDown, view.WholeRows()},
                 {Key::Down, view.WholeRows() + 1},
                 {Key::End, 9999},
                 {Key::Up, 9998},
                 {Key::Home, 0}};
    for (const auto& step : steps) {
        view.KeyDown({.key = step.key});
        EXPECT_EQ(view.SelectedTask(), step.selected);
        EXPECT_TRUE(inSight(step.selected));
    }
    plan->SelectRow(5001);
    view.Sync();
    EXPECT_TRUE(inSight(5000));
    view.ScrollToRow(20000);
    EXPECT_EQ(view.FirstRow() + view.WholeRows(), 10000u) << "no empty rows below the last";
    view.GoToSelectedTask();
    EXPECT_TRUE(inSight(5000));
    const double start = view.Scale().X(view.Figures()[5000].start) - view.TimeLeft();
    EXPECT_GE(start, 0);
    EXPECT_LT(start, view.ChartWidth());
}

}  // namespace
}  // namespace refhost
