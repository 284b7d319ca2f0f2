#include "refhost/gantt/PlanFigures.h"

#include <algorithm>

namespace refhost {
namespace {

std::int64_t LongestWeekDay(const Calendar& calendar) {
    std::int64_t longest = 0;
    for (const Shifts& shifts : calendar.week) {
        std::int64_t minutes = 0;
        for (const Shift& shift : shifts) minutes += shift.to - shift.from;
        longest = std::max(longest, minutes);
    }
    return longest > 0 ? longest : 480;  // a calendar of exceptions only
}

}  // namespace

PlanFigures::PlanFigures(LivePlan& plan)
    : tasks_(plan.TaskCount()),
      start_(plan.WorkingTime().DateOf(0)),
      finish_(plan.FinishDate()),
      cost_(plan.TotalCost()),
      minutesPerDay_(LongestWeekDay(plan.Data().calendar.value_or(Calendar::Standard()))) {
    for (std::size_t task = 0; task < tasks_.size(); ++task) {
        TaskFigures& figures = tasks_[task];
        const auto [start, finish] = plan.StartAndFinish(task);
        figures.duration = finish - start;
        figures.start = plan.WorkingTime().StartOf(start, finish > start);
        figures.finish = plan.WorkingTime().DateOf(finish);
        for (std::size_t item = plan.FirstCost(task); item < plan.FirstCost(task + 1); ++item)
            figures.cost += plan.Cost(item);
    }
    AddToParents(plan.Data());
}

void PlanFigures::SetCriticality(std::span<const double> shares) {
    for (std::size_t task = 0; task < tasks_.size(); ++task)
        tasks_[task].criticality =
            shares.empty() ? std::nullopt : std::optional<double>(shares[task]);
}

void PlanFigures::AddToParents(const PlanData& plan) {
    for (std::size_t task = tasks_.size(); task-- > 0;)
        if (const std::int32_t parent = plan.tasks[task].parent; parent >= 0)
            tasks_[static_cast<std::size_t>(parent)].cost += tasks_[task].cost;
}

}  // namespace refhost
