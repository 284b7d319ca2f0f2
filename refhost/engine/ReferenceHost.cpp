#include "refhost/engine/ReferenceHost.h"

namespace refhost {

void ReferenceHost::RaiseBeforeRiskAnalysis() {
    for (host::AnalysisEvents* sink : sinks_) sink->PlanBeforeRiskAnalysis(plan_);
}

void ReferenceHost::RaiseAfterRiskIteration() {
    for (host::AnalysisEvents* sink : sinks_) sink->PlanAfterRiskIteration(plan_);
}

void ReferenceHost::RaiseAfterRiskAnalysis() {
    for (host::AnalysisEvents* sink : sinks_) sink->PlanAfterRiskAnalysis(plan_);
}

}  // namespace refhost
