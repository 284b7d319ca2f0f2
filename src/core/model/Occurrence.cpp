#include "core/model/Occurrence.h"

#include "base/Errors.h"

namespace kestrel {
namespace {

clsRiskFactor& Leader(const std::vector<std::shared_ptr<clsRiskFactor>>& factors,
                      const clsRiskFactor& follower) {
    const auto position = static_cast<std::size_t>(follower.CorrelatedTo);
    if (position > factors.size())
        throw DataError("Risk factor " + follower.strID + " - " + follower.strDescription +
                        " is correlated to risk factor " + std::to_string(position) +
                        ", but the register holds " + std::to_string(factors.size()) +
                        "; correct its correlation in the editor.");
    return *factors[position - 1];
}

}  // namespace

void ShareRandomNumbers(const std::vector<std::shared_ptr<clsRiskFactor>>& factors,
                        const std::vector<double>& drawn) {
    for (std::size_t i = 0; i < factors.size(); ++i) {
        clsRiskFactor& factor = *factors[i];
        if (factor.CorrelatedTo == 0 && factor.m_dCorRandom == 0) {
            factor.m_dCorRandom = drawn[i];
        } else if (factor.CorrelatedTo >= 1 && factor.m_dCorRandom == 0) {
            clsRiskFactor& leader = Leader(factors, factor);
            if (leader.m_dCorRandom == 0) leader.m_dCorRandom = drawn[i];
            factor.m_dCorRandom = leader.m_dCorRandom;
        }
    }
}

}  // namespace kestrel
