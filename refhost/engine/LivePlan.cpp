#include "refhost/engine/LivePlan.h"

#include <algorithm>
#include <limits>

#include "base/Errors.h"

namespace refhost {

LivePlan::LivePlan(PlanData data)
    : data_(std::move(data)),
      calendar_(data_.calendar.value_or(Calendar::Standard()), data_.start),
      network_(data_, calendar_),
      children_(data_.tasks.size()) {
    for (std::size_t i = 0; i < data_.tasks.size(); ++i) {
        const TaskData& task = data_.tasks[i];
        summary_.push_back(task.type != kOrdinary ? 1 : 0);
        durations_.push_back(task.duration);
        firstCost_.push_back(costs_.size());
        for (const CostEntry& entry : task.costItems) costs_.push_back(entry.cost);
        if (task.parent >= 0) children_[static_cast<std::size_t>(task.parent)].push_back(i);
    }
    firstCost_.push_back(costs_.size());
}

PlanData LivePlan::Snapshot() const {
    PlanData data = data_;
    for (std::size_t i = 0; i < data.tasks.size(); ++i) {
        data.tasks[i].duration = durations_[i];
        for (std::size_t k = 0; k < data.tasks[i].costItems.size(); ++k)
            data.tasks[i].costItems[k].cost = costs_[firstCost_[i] + k];
    }
    return data;
}

std::int32_t LivePlan::SummaryDuration(std::size_t task) {
    const auto [start, finish] = StartAndFinish(task);
    const std::int64_t span = finish - start;
    if (span > std::numeric_limits<std::int32_t>::max())
        throw kestrel::ArithmeticError("Summary task " + data_.tasks[task].id + " - " +
                                       data_.tasks[task].name + " lasts " + std::to_string(span) +
                                       " minutes, which is more than a duration can hold.");
    return static_cast<std::int32_t>(span);
}

void LivePlan::SetText(const std::string& name, const std::string& text) {
    NoteTextChange(SetNamedText(data_.texts, name, text));
}

void LivePlan::SetUserValue(std::size_t task, const std::string& name, const std::string& text) {
    NoteTextChange(SetNamedText(data_.tasks[task].userValues, name, text));
}

void LivePlan::NoteTextChange(bool changed) {
    if (!changed) return;
    data_.analysis.upToDate = false;
    ++changes_;
}

void LivePlan::AddUserField(const std::string& name, std::int16_t type) {
    data_.userFields.push_back({name, type});
    ++changes_;
}

void LivePlan::PutAutoCalculate(bool automatic) {
    if (!automatic && pending_.empty()) Refresh();
    automatic_ = automatic;
}

void LivePlan::Recalculate() {
    if (!stale_) return;
    RunSchedule(durations_, costs_);
    stale_ = false;
    noted_ = false;
    pending_ = {};
}

/// Brings scheduled values up to what the caller may see now.
void LivePlan::Refresh() {
    if (automatic_) {
        Recalculate();
    } else if (!pending_.empty()) {
        RunSchedule(pending_, baseCosts_);
        pending_ = {};
    }
}

void LivePlan::RunSchedule(std::span<const std::int32_t> durations, std::span<const double> costs) {
    const Network::Totals totals = network_.Schedule(durations, costs);
    finish_ = static_cast<std::int64_t>(totals.finish);
    cost_ = totals.cost;
}

Minute LivePlan::FinishDate() {
    Refresh();
    return calendar_.DateOf(finish_);
}

double LivePlan::TotalCost() {
    Refresh();
    return cost_;
}

std::pair<std::int64_t, std::int64_t> LivePlan::StartAndFinish(std::size_t task) {
    Refresh();
    if (data_.tasks[task].type == kOrdinary) return {network_.Start(task), network_.Finish(task)};
    bool any = false;
    std::pair<std::int64_t, std::int64_t> whole{0, 0};
    std::vector<std::size_t> below(children_[task]);
    while (!below.empty()) {
        const std::size_t child = below.back();
        below.pop_back();
        if (data_.tasks[child].type != kOrdinary) {
            below.insert(below.end(), children_[child].begin(), children_[child].end());
            continue;
        }
        const std::int64_t start = network_.Start(child);
        const std::int64_t finish = network_.Finish(child);
        whole.first = any ? std::min(whole.first, start) : start;
        whole.second = any ? std::max(whole.second, finish) : finish;
        any = true;
    }
    return whole;
}

void LivePlan::KeepBase() {
    baseDurations_ = durations_;
    baseCosts_ = costs_;
}

void LivePlan::BeginIteration(std::span<const std::int32_t> drawn) {
    std::copy(drawn.begin(), drawn.end(), durations_.begin());
    std::copy(baseCosts_.begin(), baseCosts_.end(), costs_.begin());
    pending_ = drawn;
    stale_ = true;
    ++changes_;
}

void LivePlan::RestoreBase() {
    std::copy(baseDurations_.begin(), baseDurations_.end(), durations_.begin());
    std::copy(baseCosts_.begin(), baseCosts_.end(), costs_.begin());
    pending_ = {};
    stale_ = true;
    ++changes_;
}

}  // namespace refhost
