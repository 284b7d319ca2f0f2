#include "core/model/clsRiskFactor.h"

#include "base/Checked.h"
#include "core/model/Occurrence.h"

namespace kestrel {

void clsRiskFactor::PrepObjForAnalysis() {
    m_colTasks.clear();
    m_colValues.Clear();
    m_colValuesC.Clear();
    ResetRisk();
}

void clsRiskFactor::ResetRisk() {
    m_dCorRandom = 0;
    applied_ = false;
    durationMultiplier_ = 1.0;
    costMultiplier_ = 1.0;
}

void clsRiskFactor::ApplyRiskData(std::int32_t visits) {
    const double durations[] = {1.0, Checked(durationMember->SampledValue() / 10000)};
    const double costs[] = {1.0, Checked(costMember->SampledValue() / 10000)};
    // Chosen by position: whether a factor occurs is chance, and no branch may hang on it.
    applied_ = Occurs(*this) & !m_colTasks.empty();
    durationMultiplier_ = durations[applied_];
    costMultiplier_ = costs[applied_];
    m_colValues.Append(durationMultiplier_, visits);
    m_colValuesC.Append(costMultiplier_, visits);
}

}  // namespace kestrel
