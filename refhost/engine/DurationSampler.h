#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "refhost/engine/LivePlan.h"
#include "refhost/engine/RandomStream.h"
#include "refhost/engine/Triangular.h"

namespace refhost {

/// Draws the durations of one iteration: every ordinary task with a distribution, in plan order.
class DurationSampler {
 public:
    explicit DurationSampler(const LivePlan& plan);

    /// One duration per task, whole minutes, halves rounded to even; tasks without a
    /// distribution keep theirs. Valid until the next draw. Raises kestrel::ArithmeticError
    /// naming a task whose draw does not fit 32 bits.
    std::span<const std::int32_t> Draw(RandomStream& stream);

 private:
    const LivePlan& plan_;
    std::vector<std::int32_t> durations_;
    std::vector<Triangular> distributions_;
    std::vector<std::uint32_t> tasks_;  ///< that each distribution belongs to
};

}  // namespace refhost
