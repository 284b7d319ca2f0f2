#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "refhost/engine/Network.h"
#include "refhost/engine/PlanData.h"
#include "refhost/engine/WorkCalendar.h"

namespace refhost {

/// A plan at work: its data with the durations and costs of the moment, scheduled on demand.
///
/// Every change marks the plan for recalculation; the forward pass runs when a scheduled value
/// is next read, or on Recalculate, and never twice for one change. While automatic calculation
/// is suspended, scheduled values stay those of the moment of suspension.
class LivePlan {
 public:
    /// Raises kestrel::DataError for a plan that cannot be scheduled (a loop in its links, a
    /// calendar without working time).
    explicit LivePlan(PlanData data);

    /// The plan with its current durations and costs, fit for saving.
    PlanData Snapshot() const;
    const PlanData& Data() const { return data_; }
    /// Rises with every change to what a file would hold, and while an analysis runs.
    std::uint64_t Changes() const {
        noted_ = false;
        return changes_;
    }
    std::size_t TaskCount() const { return data_.tasks.size(); }
    /// Positions of the tasks directly below one, in plan order.
    const std::vector<std::size_t>& Children(std::size_t task) const { return children_[task]; }

    /// @name Values
    ///@{
    /// Of a summary: the working minutes between its earliest start and latest finish.
    std::int32_t Duration(std::size_t task) {
        return summary_[task] ? SummaryDuration(task) : durations_[task];
    }
    /// Ignored for a summary.
    void PutDuration(std::size_t task, std::int32_t duration) {
        if (!IsSummary(task)) Put(durations_[task], duration);
    }
    bool IsSummary(std::size_t task) const { return summary_[task] != 0; }
    std::size_t FirstCost(std::size_t task) const { return firstCost_[task]; }
    double Cost(std::size_t item) const { return costs_[item]; }
    void PutCost(std::size_t item, double cost) { Put(costs_[item], cost); }
    /// Where a value stands for as long as the plan, for an object that reads and puts one often.
    /// It is written through Put only.
    std::int32_t* DurationOf(std::size_t task) { return &durations_[task]; }
    double* CostOf(std::size_t item) { return &costs_[item]; }
    template <typename Value>
    void Put(Value& place, Value value) {
        NoteChange(place != value);
        place = value;
    }
    void SetText(const std::string& name, const std::string& text);
    void SetUserValue(std::size_t task, const std::string& name, const std::string& text);
    void AddUserField(const std::string& name, std::int16_t type);
    ///@}

    /// @name Schedule
    ///@{
    void PutAutoCalculate(bool automatic);
    void Recalculate();
    /// The plan's finish and the sum of all cost items in plan order.
    Minute FinishDate();
    double TotalCost();
    /// Early dates of an ordinary task or a summary.
    std::pair<std::int64_t, std::int64_t> StartAndFinish(std::size_t task);
    WorkCalendar& WorkingTime() { return calendar_; }
    /// The network with the early dates of all tasks.
    const Network& Scheduled() {
        Refresh();
        return network_;
    }
    ///@}

    /// @name Analysis
    ///@{
    std::span<const std::int32_t> Durations() const { return durations_; }
    /// Keeps the durations and costs that every iteration starts from.
    void KeepBase();
    /// Puts costs back and takes the durations drawn for an iteration, one per task; they must
    /// stay as they are until the next call.
    void BeginIteration(std::span<const std::int32_t> drawn);
    /// Puts every duration and cost back.
    void RestoreBase();
    void SetAnalysis(const AnalysisSettings& settings) {
        noted_ = false;
        changes_ += data_.analysis != settings;
        data_.analysis = settings;
    }
    bool ResultsUpToDate() const { return data_.analysis.upToDate; }
    /// What the plan is saved with; nothing for none.
    void SetResults(std::shared_ptr<const StoredResults> results) {
        noted_ = false;
        changes_ += data_.results != results;
        data_.results = std::move(results);
    }
    ///@}

 private:
    std::int32_t SummaryDuration(std::size_t task);
    /// Once a change is noted the others pass by, until something has happened after which it
    /// counts again: what three notes say at every put, each waiting for the one before, is the
    /// same. Whether a value differs is chance in an analysis, and no branch may hang on it.
    void NoteChange(bool changed) {
        if (noted_) return;
        noted_ = changed;
        stale_ |= changed;
        data_.analysis.upToDate &= !changed;
        changes_ += changed;
    }
    void NoteTextChange(bool changed);
    void Refresh();
    void RunSchedule(std::span<const std::int32_t> durations, std::span<const double> costs);

    PlanData data_;
    WorkCalendar calendar_;
    Network network_;
    std::vector<std::vector<std::size_t>> children_;
    std::vector<char> summary_;  ///< per task; beside the big TaskData, for speed
    std::vector<std::int32_t> durations_, baseDurations_;
    std::vector<double> costs_, baseCosts_;  ///< of all tasks, in plan order
    std::vector<std::size_t> firstCost_;     ///< per task, and one past the end

    /// Durations of an iteration that has not been scheduled yet: read only when somebody asks
    /// for a scheduled value before the add-in has changed and recalculated the plan.
    std::span<const std::int32_t> pending_;
    bool automatic_ = true;
    bool stale_ = true;
    /// A change of a value is noted in stale_, upToDate and changes_, none of which has been reset
    /// or read since.
    mutable bool noted_ = false;
    std::uint64_t changes_ = 0;
    std::int64_t finish_ = 0;
    double cost_ = 0;
};

}  // namespace refhost
