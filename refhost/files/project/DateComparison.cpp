#include "refhost/files/project/DateComparison.h"

#include <algorithm>
#include <cstdlib>

#include "base/Errors.h"
#include "refhost/engine/LivePlan.h"

namespace refhost {
namespace {

bool LargerShift(const MovedTask& one, const MovedTask& other) {
    return std::abs(one.shift) > std::abs(other.shift);
}

class Comparison {
 public:
    Comparison(const PlanData& plan, const ProjectOutline& outline, const ProjectDates& dates,
               const std::vector<RowLinks>& links)
        : live_(plan), outline_(outline), dates_(dates), links_(links) {}

    DateComparison Run() {
        for (std::size_t i = 0; i < dates_.rows.size(); ++i) CompareRow(i);
        if (fileFinish_) {
            WorkCalendar& time = live_.WorkingTime();
            const bool stays = time.WorkingMinutesUntil(*fileFinish_) == finish_;
            found_.finishShift = stays ? 0 : time.DateOf(finish_) - *fileFinish_;
        }
        std::stable_sort(found_.moved.begin(), found_.moved.end(), LargerShift);
        return std::move(found_);
    }

 private:
    RowDates ShownDates(std::size_t index) const {
        RowDates shown = dates_.rows[index];
        const auto& fixed = live_.Data().tasks[index].noEarlierThan;
        if (outline_.rows[index].external)
            (shown.finish == fixed ? shown.start : shown.finish).reset();
        return shown;
    }

    void CompareRow(std::size_t index) {
        const RowDates shown = ShownDates(index);
        const auto [start, finish] = live_.StartAndFinish(index);
        finish_ = std::max(finish_, finish);
        if (shown.finish)
            fileFinish_ = std::max(fileFinish_.value_or(*shown.finish), *shown.finish);
        if (!shown.start && !shown.finish) return;
        ++found_.compared;
        WorkCalendar& time = live_.WorkingTime();
        MovedTask task;
        task.start = time.StartOf(start, finish > start);
        task.finish = time.DateOf(finish);
        if (shown.start && time.WorkingMinutesUntil(*shown.start) != start)
            task.shift = task.start - *shown.start;
        if (shown.finish && time.WorkingMinutesUntil(*shown.finish) != finish &&
            std::abs(task.finish - *shown.finish) > std::abs(task.shift))
            task.shift = task.finish - *shown.finish;
        if (task.shift == 0) return;
        const TaskData& data = live_.Data().tasks[index];
        task.id = data.id;
        task.name = data.name;
        task.fileStart = shown.start;
        task.fileFinish = shown.finish;
        task.zeroPercentLag = links_[index].zeroPercentLag;
        found_.moved.push_back(std::move(task));
    }

    LivePlan live_;
    const ProjectOutline& outline_;
    const ProjectDates& dates_;
    const std::vector<RowLinks>& links_;
    DateComparison found_;
    std::int64_t finish_ = 0;  ///< of the plan, in working minutes
    std::optional<Minute> fileFinish_;
};

}  // namespace

DateComparison CompareDates(const PlanData& plan, const ProjectOutline& outline,
                            const ProjectDates& dates, const std::vector<RowLinks>& links) {
    try {
        return Comparison(plan, outline, dates, links).Run();
    } catch (const kestrel::DataError& error) {
        // A plan that cannot be scheduled (a loop, say) can be imported and mended.
        DateComparison none;
        none.failure = error.what();
        return none;
    }
}

}  // namespace refhost
