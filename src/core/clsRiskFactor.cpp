#include "core/clsRiskFactor.h"

#include "core/Occurrence.h"
#include "util/Checked.h"

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
}

void clsRiskFactor::ApplyRiskData(std::int32_t visits) {
    durationMultiplier_ = Checked(durationMember->SampledValue() / 10000);
    costMultiplier_ = Checked(costMember->SampledValue() / 10000);
    applied_ = Occurs(*this) && !m_colTasks.empty();
    m_colValues.Append(applied_ ? durationMultiplier_ : 1.0, visits);
    m_colValuesC.Append(applied_ ? costMultiplier_ : 1.0, visits);
}

}  // namespace kestrel
