#include "core/model/Occurrence.h"

#include <algorithm>
#include <numeric>

#include "base/Errors.h"

namespace kestrel {
namespace {

clsRiskFactor& Leader(const RiskRegister& factors, const clsRiskFactor& follower) {
    const auto position = static_cast<std::size_t>(follower.CorrelatedTo);
    if (position > factors.size())
        throw DataError("Risk factor " + follower.strID + " - " + follower.strDescription +
                        " is correlated to risk factor " + std::to_string(position) +
                        ", but the register holds " + std::to_string(factors.size()) +
                        "; correct its correlation in the editor.");
    return *factors[position - 1];
}

}  // namespace

NumberSharing::NumberSharing(const RiskRegister& factors) : factors_(factors) {
    std::vector<double> positions(factors.size());
    std::iota(positions.begin(), positions.end(), 1.0);
    ShareInTurn(positions);
    for (const auto& factor : factors) {
        const auto position = static_cast<std::uint32_t>(factor->m_dCorRandom);
        governing_.push_back(position == 0 ? kNone : position - 1);
    }
}

void NumberSharing::Share(std::span<const double> drawn) const {
    if (std::find(drawn.begin(), drawn.end(), 0.0) != drawn.end()) return ShareInTurn(drawn);
    for (std::size_t i = 0; i < governing_.size(); ++i)
        factors_[i]->m_dCorRandom = governing_[i] == kNone ? 0 : drawn[governing_[i]];
}

/// A factor that has got 0 counts as one without a number.
void NumberSharing::ShareInTurn(std::span<const double> drawn) const {
    for (const auto& factor : factors_) factor->m_dCorRandom = 0;
    for (std::size_t i = 0; i < factors_.size(); ++i) {
        clsRiskFactor& factor = *factors_[i];
        if (factor.CorrelatedTo == 0 && factor.m_dCorRandom == 0) {
            factor.m_dCorRandom = drawn[i];
        } else if (factor.CorrelatedTo >= 1 && factor.m_dCorRandom == 0) {
            clsRiskFactor& leader = Leader(factors_, factor);
            if (leader.m_dCorRandom == 0) leader.m_dCorRandom = drawn[i];
            factor.m_dCorRandom = leader.m_dCorRandom;
        }
    }
}

}  // namespace kestrel
