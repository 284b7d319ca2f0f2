#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "refhost/engine/Network.h"
#include "refhost/engine/PlanData.h"

namespace refhost {

/// Counts, over the iterations of an analysis, how often each task is critical: its start binds
/// the plan's finish. What binds is found backwards from every task that finishes last: a binding
/// finish makes the task's start binding, and a binding start the start or finish of every
/// predecessor whose bound (of the task's own links and of the links to a summary above it) it
/// equals. A summary's start or finish is that of the tasks below it that make it.
class Criticality {
 public:
    explicit Criticality(const PlanData& plan);

    /// Counts the iteration whose forward pass the network has just made.
    void Note(const Network& network);

    /// Share of the iterations, 0 to 1, in which the task, or any task below the summary, was
    /// critical; 0 before the first.
    double Of(std::size_t task) const;

 private:
    static constexpr std::uint32_t kNone = ~0u;

    /// A link to the task whose range of bounds it stands in.
    struct Bound {
        double lag;
        std::uint32_t from;
        std::uint32_t slot;  ///< of the time that it reads; without meaning for a summary's
        bool fromFinish;
        bool onFinish;
        bool fromSummary;
    };

    void AddBounds(const PlanData& plan);
    void FindSlots(const Network& network);
    void Mark(std::uint32_t task) {
        if (marked_[task]) return;
        marked_[task] = 1;
        critical_.push_back(task);
    }
    void FollowBounds(const Network& network, std::uint32_t task);
    void MarkBelow(const Network& network, const Bound& bound, double time);
    /// Earliest start or latest finish below a summary, found once an iteration.
    double SummaryTime(const Network& network, std::uint32_t summary, bool finish);
    void CountCritical();

    std::int64_t iterations_ = 0;
    std::vector<std::int64_t> counts_;     ///< iterations in which it was critical, per task
    std::vector<std::uint32_t> parent_;    ///< kNone for none
    std::vector<std::uint32_t> linked_;    ///< nearest summary above with links to it, or kNone
    std::vector<std::uint32_t> end_;       ///< per task: behind its last descendant
    std::vector<std::uint32_t> boundEnd_;  ///< per task: end of its range of bounds_
    std::vector<Bound> bounds_;
    std::vector<std::uint32_t> slot_;  ///< per ordinary task: that of its start; kNone for others

    /// @name Of one iteration
    ///@{
    std::vector<std::uint8_t> marked_;              ///< per task: critical, or a summary above one
    std::vector<std::uint32_t> critical_;           ///< the tasks marked, in the order of finding
    std::vector<std::pair<double, double>> times_;  ///< of summaries, where known
    std::vector<std::uint32_t> timed_;              ///< summaries whose times are known
    ///@}
};

}  // namespace refhost
