#include "refhost/engine/ReferenceHost.h"

#include "base/Errors.h"

namespace refhost {

void ReferenceHost::Open(std::shared_ptr<HostPlan> plan) {
    if (analysing_)
        throw kestrel::HostError("No plan can be opened while an analysis runs; wait for its end.");
    plan_ = std::move(plan);
}

ReferenceHost::AnalysisMark::AnalysisMark(ReferenceHost& host) : host_(host) {
    if (host_.analysing_)
        throw kestrel::HostError("An analysis is running already; wait for its end.");
    host_.analysing_ = true;
}

void ReferenceHost::Raise(void (host::AnalysisEvents::*event)(const host::PlanPtr&)) {
    const host::PlanPtr plan = plan_;
    // By position: the list may shrink under the loop.
    for (std::size_t i = 0; i < sinks_.size(); ++i) (sinks_[i]->*event)(plan);
}

void ReferenceHost::RaiseBeforeRiskAnalysis() {
    Raise(&host::AnalysisEvents::PlanBeforeRiskAnalysis);
}

void ReferenceHost::RaiseAfterRiskIteration() {
    Raise(&host::AnalysisEvents::PlanAfterRiskIteration);
}

void ReferenceHost::RaiseAfterRiskAnalysis() {
    Raise(&host::AnalysisEvents::PlanAfterRiskAnalysis);
}

}  // namespace refhost
