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
    /// A link to the task whose range of bounds it stands in.
    struct Bound {
        std::uint32_t from;
        std::int32_t lag;
        bool fromFinish;
        bool onFinish;
    };
    static constexpr std::uint32_t kNone = ~0u;
    enum End : std::uint8_t { kStart = 1, kFinish = 2, kCounted = 4 };

    void AddBounds(const PlanData& plan);
    void MarkTask(std::uint32_t task, End end);
    void MarkSource(const Network& network, const Bound& bound, std::int64_t time);
    /// Earliest start or latest finish below a summary, found once an iteration.
    std::int64_t SummaryTime(const Network& network, std::uint32_t summary, bool finish);
    void FollowBounds(const Network& network, std::uint32_t task);
    void CountMarked();

    std::int64_t iterations_ = 0;
    std::vector<std::int64_t> critical_;   ///< iterations, per task
    std::vector<std::uint32_t> ordinary_;  ///< tasks, in plan order
    std::vector<std::uint32_t> parent_;    ///< kNone for none
    std::vector<std::uint32_t> linked_;    ///< nearest summary above with links to it, or kNone
    std::vector<std::uint32_t> end_;       ///< per task: behind its last descendant
    std::vector<std::uint32_t> boundEnd_;  ///< per task: end of its range of bounds_
    std::vector<Bound> bounds_;
    std::vector<bool> isSummary_;

    /// @name Of one iteration
    ///@{
    std::vector<std::uint8_t> marks_;
    std::vector<std::uint32_t> touched_;                        ///< tasks with marks
    std::vector<std::uint32_t> waiting_;                        ///< binding starts not yet followed
    std::vector<std::pair<std::int64_t, std::int64_t>> times_;  ///< of summaries, where known
    std::vector<std::uint32_t> timed_;                          ///< summaries whose times are known
    ///@}
};

}  // namespace refhost
