#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/model/clsRiskFactor.h"

namespace kestrel {

/// Decides which random number governs each factor of a register in an iteration. Correlated
/// factors share the number of whichever comes first, so they occur together or nested; every
/// factor's number is drawn, whether or not it is used.
class NumberSharing {
 public:
    /// The register must outlive it, its correlations unchanged. Raises DataError when a factor
    /// follows one that the register lacks.
    explicit NumberSharing(const RiskRegister& factors);

    /// Sets every factor's m_dCorRandom; `drawn` holds one number per factor, in register order.
    void Share(std::span<const double> drawn) const;

 private:
    static constexpr std::uint32_t kNone = ~0u;

    void ShareInTurn(std::span<const double> drawn) const;

    const RiskRegister& factors_;
    /// Per factor: the number that governs it in every iteration in which none of them is 0.
    std::vector<std::uint32_t> governing_;
};

/// Whether the factor's number lets it occur: number x 100 <= probability.
inline bool Occurs(const clsRiskFactor& factor) {
    return factor.m_dCorRandom * 100 <= factor.dblProb;
}

}  // namespace kestrel
