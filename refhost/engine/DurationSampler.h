#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "refhost/engine/LivePlan.h"
#include "refhost/engine/TriangularColumns.h"

namespace refhost {

/// Draws the durations of one iteration: every ordinary task with a distribution, in plan order,
/// each as Triangular::Draw gives it.
class DurationSampler {
 public:
    /// Raises kestrel::ArithmeticError naming a task whose draws may not fit 32 bits.
    explicit DurationSampler(const LivePlan& plan);

    /// One duration per task, whole minutes, halves rounded to even; tasks without a
    /// distribution keep theirs. Valid until the next draw.
    std::span<const std::int32_t> Draw(RandomStream& stream);

 private:
    void AddDistribution(const TaskData& task, std::size_t position);

    std::vector<std::int32_t> durations_;
    std::vector<std::uint32_t> tasks_;  ///< that each distribution belongs to
    TriangularColumns shapes_;
    std::vector<std::int32_t> drawn_;
};

}  // namespace refhost
