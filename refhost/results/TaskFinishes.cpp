#include "refhost/results/TaskFinishes.h"

#include <algorithm>
#include <cmath>

namespace refhost {
namespace {

constexpr std::int64_t kMostFinishes = 32'000'000;

/// As Percentile of Statistics.h, of dates that stand in for `finishes`. Leaves those in another
/// order.
Minute DateAt(std::vector<std::uint32_t>& finishes, double share, WorkCalendar& calendar) {
    const double position = static_cast<double>(finishes.size() - 1) * share;
    const auto below = static_cast<std::ptrdiff_t>(position);
    const auto at = finishes.begin() + below;
    std::nth_element(finishes.begin(), at, finishes.end());
    const Minute date = calendar.DateOf(*at);
    if (at + 1 == finishes.end()) return date;
    const Minute next = calendar.DateOf(*std::min_element(at + 1, finishes.end()));
    return date +
           std::llround(static_cast<double>(next - date) * (position - static_cast<double>(below)));
}

}  // namespace

TaskFinishes::TaskFinishes(const PlanData& plan, std::int32_t iterations) {
    for (std::size_t task = 0; task < plan.tasks.size(); ++task)
        if (plan.tasks[task].type == kOrdinary) tasks_.push_back(task);
    const std::int64_t all = static_cast<std::int64_t>(tasks_.size()) * iterations;
    every_ = std::min(static_cast<std::int32_t>(all / kMostFinishes) + 1, iterations);
}

void TaskFinishes::Note(std::int32_t number, const Network& network) {
    if (number % every_ != 0) return;
    // The last instant that has a date is a working minute below 2^32.
    for (const std::size_t task : tasks_)
        finishes_.push_back(static_cast<std::uint32_t>(network.Finish(task)));
}

std::vector<std::pair<Minute, Minute>> TaskFinishes::Percentiles(WorkCalendar& calendar) const {
    // Several tasks at a time, as those of one iteration lie side by side.
    constexpr std::size_t kTogether = 16;
    const std::size_t rows = tasks_.empty() ? 0 : finishes_.size() / tasks_.size();
    std::vector<std::vector<std::uint32_t>> columns(kTogether, std::vector<std::uint32_t>(rows));
    std::vector<std::pair<Minute, Minute>> percentiles;
    for (std::size_t first = 0; first < tasks_.size(); first += kTogether) {
        const std::size_t count = std::min(kTogether, tasks_.size() - first);
        for (std::size_t row = 0; row < rows; ++row)
            for (std::size_t i = 0; i < count; ++i)
                columns[i][row] = finishes_[row * tasks_.size() + first + i];
        for (std::size_t i = 0; i < count; ++i) {
            const Minute p50 = DateAt(columns[i], 0.5, calendar);
            percentiles.emplace_back(p50, DateAt(columns[i], 0.8, calendar));
        }
    }
    return percentiles;
}

}  // namespace refhost
