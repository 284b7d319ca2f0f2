#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "core/model/clsRiskFactor.h"

namespace kestrel {

/// The readable account of what an iteration did to one task, such as
/// `10 * Weather(110.0%) * Permits(105.0%)`, with the cost impacts on a second line.
class IterationLog {
 public:
    explicit IterationLog(const std::vector<std::shared_ptr<clsRiskFactor>>& factors)
        : factors_(factors) {}

    /// Collects the fragments of both groups (register indices, in field order).
    void Read(std::span<const std::uint32_t> series, std::span<const std::uint32_t> parallel);

    /// The text for a task that lasted `duration` before: the fragments of the group with the
    /// larger multiplier (of equal ones, the parallel group's) and, on request, the line of cost
    /// impacts.
    std::string Text(std::int32_t duration, bool withCosts) const;

 private:
    const std::vector<std::shared_ptr<clsRiskFactor>>& factors_;
    double seriesMultiplier_ = 1;
    double parallelMultiplier_ = 1;
    bool seriesPresent_ = false;
    bool parallelPresent_ = false;
    std::string series_, parallel_, seriesCost_, parallelCost_;
};

}  // namespace kestrel
