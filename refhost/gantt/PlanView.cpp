#include "refhost/gantt/PlanView.h"

#include <algorithm>
#include <cmath>

#include "ui/controls/ChartText.h"

namespace refhost {
namespace {

constexpr double kTimeMargin = 30;  ///< before the plan's start
constexpr int kLeastPane = 80;      ///< of table and chart, where the splitter goes

}  // namespace

PlanView::PlanView(std::shared_ptr<HostPlan> plan)
    : plan_(std::move(plan)),
      outline_(plan_->Data().tasks),
      figures_(*plan_),
      links_(LinksOf(*plan_)),
      scale_(StartOfUnit(CalendarUnit::Day, figures_.Start())),
      planChanges_(plan_->Changes()) {
    if (!SelectedTask() && outline_.TaskCount() > 0) plan_->SelectRow(1);
    shownRow_ = plan_->SelectedRow();
}

bool PlanView::Sync() {
    const std::uint64_t before = changes_;
    if (planChanges_ != plan_->Changes()) {
        planChanges_ = plan_->Changes();
        figures_ = PlanFigures(*plan_);
        figures_.SetCriticality(criticality_);
        Changed();
    }
    if (shownRow_ != plan_->SelectedRow()) {
        shownRow_ = plan_->SelectedRow();
        if (const auto task = SelectedTask()) {
            outline_.Reveal(*task);
            ShowRow(*outline_.RowOf(*task));
        }
        Changed();
    }
    return changes_ != before;
}

void PlanView::ShowCriticality(std::vector<double> shares) {
    criticality_ = std::move(shares);
    figures_.SetCriticality(criticality_);
    Changed();
}

void PlanView::Resize(int width, int height) {
    const bool first = width_ == 0;
    width_ = std::max(width, 2 * kLeastPane + kSplitterWidth);
    height_ = std::max(height, kHeaderHeight + kRowHeight);
    if (first) PlaceInitially();
    splitter_ = std::clamp(splitter_, kLeastPane, width_ - kSplitterWidth - kLeastPane);
    ScrollToRow(static_cast<std::ptrdiff_t>(firstRow_));
    ScrollTimeTo(timeLeft_);
    ScrollTableTo(tableLeft_);
    Changed();
}

/// Weeks can be told apart, or more where the whole plan fits.
void PlanView::PlaceInitially() {
    splitter_ = std::min(table_.TotalWidth(), width_ * 3 / 5);
    const int usual = scale_.Level();
    scale_.Fit(figures_.Start(), figures_.Finish(), ChartWidth() - 2 * kTimeMargin);
    scale_.SetLevel(std::max(usual, scale_.Level()));
    timeLeft_ = TimeFrom();
}

int PlanView::ChartWidth() const { return std::max(1, width_ - ChartLeft()); }

GanttDrawing PlanView::Drawing() const {
    const GanttPart part{firstRow_, WholeRows() + 1, timeLeft_, static_cast<double>(ChartWidth())};
    return LayOutGantt(outline_, plan_->Data(), figures_, links_, scale_, part);
}

std::size_t PlanView::WholeRows() const {
    return static_cast<std::size_t>(std::max(1, (height_ - kHeaderHeight) / kRowHeight));
}

void PlanView::ScrollToRow(std::ptrdiff_t row) {
    const auto last =
        static_cast<std::ptrdiff_t>(outline_.RowCount()) - static_cast<std::ptrdiff_t>(WholeRows());
    firstRow_ = static_cast<std::size_t>(
        std::clamp<std::ptrdiff_t>(row, 0, std::max<std::ptrdiff_t>(0, last)));
    Changed();
}

double PlanView::TimeFrom() const { return scale_.X(figures_.Start()) - kTimeMargin; }

double PlanView::TimeTo() const {
    // Room at the right for what stands beside the last bars.
    return std::max(TimeFrom() + ChartWidth(), scale_.X(figures_.Finish()) + 4 * kTimeMargin);
}

void PlanView::ScrollTimeTo(double left) {
    // What is left of the width after adding and taking it off may be less by a rounding.
    const double last = std::max(TimeFrom(), TimeTo() - ChartWidth());
    timeLeft_ = std::round(std::clamp(left, TimeFrom(), last));
    Changed();
}

void PlanView::ScrollTableTo(int left) {
    tableLeft_ = std::clamp(left, 0, std::max(0, table_.TotalWidth() - TableWidth()));
    Changed();
}

void PlanView::ShowRow(std::size_t row) {
    if (row < firstRow_)
        ScrollToRow(static_cast<std::ptrdiff_t>(row));
    else if (row >= firstRow_ + WholeRows())
        ScrollToRow(static_cast<std::ptrdiff_t>(row - WholeRows() + 1));
}

std::optional<std::size_t> PlanView::SelectedTask() const {
    const std::int32_t row = plan_->SelectedRow();
    if (row < 1 || static_cast<std::size_t>(row) > outline_.TaskCount()) return std::nullopt;
    return static_cast<std::size_t>(row) - 1;
}

void PlanView::Select(std::size_t task) {
    plan_->SelectRow(static_cast<std::int32_t>(task) + 1);
    Sync();
}

void PlanView::Zoom(int levels, std::optional<int> x) {
    double place = x ? *x - ChartLeft() : ChartWidth() / 2.0;
    Minute fixed = scale_.DateAt(timeLeft_ + place);
    if (const auto task = SelectedTask(); task && !x) {
        const double start = scale_.X(figures_[*task].start) - timeLeft_;
        if (start >= 0 && start < ChartWidth()) {
            place = start;
            fixed = figures_[*task].start;
        }
    }
    scale_.SetLevel(scale_.Level() + levels);
    ScrollTimeTo(scale_.X(fixed) - place);
}

void PlanView::ShowWholePlan() {
    scale_.Fit(figures_.Start(), figures_.Finish(), ChartWidth() - 2 * kTimeMargin);
    ScrollTimeTo(TimeFrom());
}

void PlanView::GoTo(Minute date) { ScrollTimeTo(scale_.X(date) - ChartWidth() / 3.0); }

void PlanView::GoToSelectedTask() {
    const auto task = SelectedTask();
    if (!task) return;
    outline_.Reveal(*task);
    ShowRow(*outline_.RowOf(*task));
    ScrollTimeTo(scale_.X(figures_[*task].start) - kTimeMargin);
}

/// A selected task that gets hidden hands the selection to the summary that hides it.
void PlanView::SetExpanded(std::size_t task, bool expanded) {
    outline_.SetExpanded(task, expanded);
    if (const auto selected = SelectedTask(); selected && !outline_.RowOf(*selected)) Select(task);
    ScrollToRow(static_cast<std::ptrdiff_t>(firstRow_));
}

void PlanView::SetAllExpanded(bool expanded) {
    outline_.SetAllExpanded(expanded);
    auto task = SelectedTask();
    while (task && !outline_.RowOf(*task)) task = outline_.Parent(*task);
    ScrollToRow(static_cast<std::ptrdiff_t>(firstRow_));
    if (!task) return;
    Select(*task);
    ShowRow(*outline_.RowOf(*task));
}

}  // namespace refhost
