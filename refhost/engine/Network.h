#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "refhost/engine/PlanData.h"
#include "refhost/engine/WorkCalendar.h"

namespace refhost {

/// The plan's links, compiled into one list of steps that a forward pass walks from front to
/// back. Times are working minutes from the plan's start.
///
/// A summary appears in up to two steps: as a gate, which passes the constraints put on it down
/// to every ordinary task below, and as a result, its earliest start and latest finish, where
/// links start from it.
///
/// Times are doubles, the fastest to add and compare. They stay exact: they are whole numbers,
/// and a finish beyond the year 9999, far below 2^53 minutes, has no date.
class Network {
 public:
    enum class Kind : std::uint8_t { Ordinary, Gate, Result };

    /// A time that a step reads: `slot` is 2 x step for its start, + 1 for its finish.
    struct Source {
        std::uint32_t slot;
        std::int32_t lag;
    };

    /// One task, gate or result. Its sources are a range of Sources() from the end of the step
    /// before: first those that bound its start, then those that bound its finish. A task below
    /// a gate has the gate among its sources.
    struct Step {
        double floor = 0;  ///< no start earlier than this
        std::uint32_t startEnd = 0;
        std::uint32_t finishEnd = 0;
        std::uint32_t task = 0;
        Kind kind = Kind::Ordinary;
    };

    struct Totals {
        double finish = 0;  ///< the latest early finish; 0 for a plan without tasks
        double cost = 0;    ///< sum of the cost items in their order
    };

    /// Raises kestrel::DataError naming the tasks of a loop in the links, or a link from a task
    /// that the plan lacks.
    Network(const PlanData& plan, WorkCalendar& calendar);

    /// Forward pass over the durations, one per task in plan order (a summary's is not read).
    /// The costs are added up in the same walk: each sum waits for the one before, which alone
    /// takes as long as the pass and beside it nothing.
    Totals Schedule(std::span<const std::int32_t> durations, std::span<const double> costs);

    /// Early start and finish of an ordinary task, as of the last pass.
    std::int64_t Start(std::size_t task) const { return Whole(2 * stepOf_[task]); }
    std::int64_t Finish(std::size_t task) const { return Whole(2 * stepOf_[task] + 1); }

    /// @name The compiled bounds, for who asks what made a time
    ///@{
    const std::vector<Step>& Steps() const { return steps_; }
    const std::vector<Source>& Sources() const { return sources_; }
    /// The latest finish of an ordinary task, as of the last pass; minus infinity without one.
    double LatestFinish() const { return latestFinish_; }
    /// A slot's time, as of the last pass; minus infinity where nothing bounds a gate's finish.
    double Time(std::uint32_t slot) const { return times_[slot]; }
    ///@}

 private:
    friend class NetworkCompiler;
    class Pass;

    /// A task's step whose start is the later of two slots' times and that nothing else bounds,
    /// while no finish lies before the plan's start.
    struct SimpleStep {
        std::uint32_t first, second;
    };
    /// Simple steps of tasks that follow each other in the plan, then steps of any kind.
    struct Stretch {
        std::uint32_t task = 0;       ///< of the first step, when that is simple
        std::uint32_t simpleEnd = 0;  ///< a step
        std::uint32_t end = 0;        ///< a step
    };

    std::int64_t Whole(std::uint32_t slot) const { return static_cast<std::int64_t>(times_[slot]); }

    std::vector<Step> steps_;
    std::vector<Source> sources_;
    std::vector<SimpleStep> simple_;  ///< one a step; of others than simple ones without meaning
    std::vector<Stretch> stretches_;
    /// Start and finish of each step, then the floors that simple steps read.
    std::vector<double> times_;
    double latestFinish_ = 0;
    std::vector<std::uint32_t> stepOf_;  ///< step of each ordinary task
};

}  // namespace refhost
