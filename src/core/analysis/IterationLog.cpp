#include "core/analysis/IterationLog.h"

#include "base/NumberText.h"

namespace kestrel {
namespace {

std::string Fragment(const clsRiskFactor& factor, double multiplier) {
    return " * " + factor.strDescription + "(" + PercentText(multiplier) + ")";
}

void Extend(std::string& text, const clsRiskFactor& factor, double multiplier) {
    if (factor.GetApplied() && multiplier != 1) text += Fragment(factor, multiplier);
}

}  // namespace

void IterationLog::Read(std::span<const std::uint32_t> series,
                        std::span<const std::uint32_t> parallel) {
    double duration = 1;
    double cost = 1;
    for (const std::uint32_t index : series) {
        const clsRiskFactor& factor = *factors_[index];
        factor.GetRiskImpact(duration, cost);
        Extend(series_, factor, duration);
        Extend(seriesCost_, factor, cost);
        seriesMultiplier_ *= duration;
        seriesPresent_ = true;
    }
    for (const std::uint32_t index : parallel) {
        const clsRiskFactor& factor = *factors_[index];
        factor.GetRiskImpact(duration, cost);
        if (!parallelPresent_ || duration > parallelMultiplier_) {
            parallelMultiplier_ = duration;
            if (factor.GetApplied() && duration != 1) parallel_ = Fragment(factor, duration);
        }
        Extend(parallelCost_, factor, cost);
        parallelPresent_ = true;
    }
}

std::string IterationLog::Text(std::int32_t duration, bool withCosts) const {
    const bool fromSeries =
        seriesPresent_ && (parallelPresent_ ? seriesMultiplier_ > parallelMultiplier_
                                            : seriesMultiplier_ != parallelMultiplier_);
    std::string text = std::to_string(duration) + (fromSeries ? series_ : parallel_);
    if (withCosts) text += "\r\nCOST(S) impact(s) " + seriesCost_ + parallelCost_;
    return text;
}

}  // namespace kestrel
