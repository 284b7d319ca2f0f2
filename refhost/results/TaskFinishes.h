#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "refhost/engine/Network.h"
#include "refhost/engine/WorkCalendar.h"

namespace refhost {

/// Collects when each ordinary task finishes, over the iterations of an analysis. It keeps at most
/// 32 million finishes (128 MB): where tasks times iterations are more, it takes each second, third
/// ... iteration, the same ones for every task.
class TaskFinishes {
 public:
    TaskFinishes(const PlanData& plan, std::int32_t iterations);

    /// Takes iteration `number` (from 1), whose forward pass the network has just made, where it
    /// is one of those that are kept.
    void Note(std::int32_t number, const Network& network);
    /// Which iterations are kept: each Every()-th.
    std::int32_t Every() const { return every_; }

    /// The percentiles P50 and P80 of each ordinary task, in plan order, to the nearest minute;
    /// at least one iteration must have been kept.
    std::vector<std::pair<Minute, Minute>> Percentiles(WorkCalendar& calendar) const;

 private:
    std::vector<std::size_t> tasks_;  ///< the ordinary ones
    std::int32_t every_ = 1;
    std::vector<std::uint32_t> finishes_;  ///< working minutes; a row a kept iteration
};

}  // namespace refhost
