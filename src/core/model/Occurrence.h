#pragma once

#include <memory>
#include <vector>

#include "core/model/clsRiskFactor.h"

namespace kestrel {

/// Decides which random number governs each factor in one iteration: `drawn` holds one number
/// per factor, in register order. Correlated factors share the number of whichever comes first,
/// so they occur together or nested; every factor's number is drawn, whether or not it is used.
/// Raises DataError when a factor follows one that the register lacks.
void ShareRandomNumbers(const std::vector<std::shared_ptr<clsRiskFactor>>& factors,
                        const std::vector<double>& drawn);

/// Whether the factor's number lets it occur: number x 100 <= probability.
inline bool Occurs(const clsRiskFactor& factor) {
    return factor.m_dCorRandom * 100 <= factor.dblProb;
}

}  // namespace kestrel
