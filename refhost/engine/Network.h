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
class Network {
 public:
    /// Raises kestrel::DataError naming the tasks of a loop in the links, or a link from a task
    /// that the plan lacks.
    Network(const PlanData& plan, WorkCalendar& calendar);

    /// Forward pass over the durations, one per task in plan order (a summary's is not read).
    /// Answers the plan's finish, the latest early finish.
    std::int64_t Schedule(std::span<const std::int32_t> durations);

    /// Early start and finish of an ordinary task, as of the last pass.
    std::int64_t Start(std::size_t task) const { return times_[2 * stepOf_[task]]; }
    std::int64_t Finish(std::size_t task) const { return times_[2 * stepOf_[task] + 1]; }

 private:
    friend class NetworkCompiler;

    enum class Kind : std::uint8_t { Ordinary, Gate, Result };

    /// A time that a step reads: `slot` is 2 x step for its start, + 1 for its finish.
    struct Source {
        std::uint32_t slot;
        std::int32_t lag;
    };

    /// One task, gate or result. Its sources are a range of `sources_` from the end of the step
    /// before: first those that bound its start, then those that bound its finish.
    struct Step {
        std::int64_t floor = 0;  ///< no start earlier than this
        std::uint32_t startEnd = 0;
        std::uint32_t finishEnd = 0;
        std::uint32_t task = 0;
        Kind kind = Kind::Ordinary;
    };

    std::vector<Step> steps_;
    std::vector<Source> sources_;
    std::vector<std::int64_t> times_;    ///< start and finish of each step
    std::vector<std::uint32_t> stepOf_;  ///< step of each ordinary task
};

}  // namespace refhost
