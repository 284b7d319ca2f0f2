#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "refhost/engine/LivePlan.h"

namespace refhost {

/// What a window shows of one task.
struct TaskFigures {
    Minute start = 0;
    Minute finish = 0;
    std::int64_t duration = 0;  ///< working minutes from start to finish
    double cost = 0;            ///< of a summary: with everything below it
    /// Share of the last analysis's iterations, 0 to 1; nothing before one.
    std::optional<double> criticality{};
};

/// Dates, durations and costs of all tasks as the plan stands, fetched at once so that painting
/// asks the plan for nothing.
class PlanFigures {
 public:
    /// Raises kestrel::DataError for a plan whose dates lie beyond the calendar.
    explicit PlanFigures(LivePlan& plan);

    /// One share a task, or none at all.
    void SetCriticality(std::span<const double> shares);

    const TaskFigures& operator[](std::size_t task) const { return tasks_[task]; }
    Minute Start() const { return start_; }
    Minute Finish() const { return finish_; }
    double Cost() const { return cost_; }
    /// Working minutes of the calendar's longest week day, which durations count as a day.
    std::int64_t MinutesPerDay() const { return minutesPerDay_; }

 private:
    void AddToParents(const PlanData& plan);

    std::vector<TaskFigures> tasks_;
    Minute start_ = 0;
    Minute finish_ = 0;
    double cost_ = 0;
    std::int64_t minutesPerDay_ = 0;
};

}  // namespace refhost
