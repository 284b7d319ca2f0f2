#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/analysis/modAnalysis.h"
#include "host/clsSchedulon.h"
#include "store/RegisterDocument.h"
#include "support/FakeDesktop.h"
#include "support/FakeHost.h"

namespace kestrel::test {

/// A factor in few words: impacts are set alike for all three points unless a test sets more.
inline std::shared_ptr<clsRiskFactor> Factor(const std::string& name, double probability,
                                             std::int32_t correlatedTo = 0) {
    auto factor = std::make_shared<clsRiskFactor>();
    factor->strDescription = name;
    factor->dblProb = probability;
    factor->CorrelatedTo = correlatedTo;
    return factor;
}

/// An add-in on a fake host, ready for an analysis.
struct AnalysisFixture {
    FakeHost host;
    FakeDesktop desktop;
    modGlobals globals{desktop};
    clsSchedulon listener{globals};

    AnalysisFixture() { globals.application = host.application; }

    void StoreRegister(const std::vector<std::shared_ptr<clsRiskFactor>>& factors) {
        globals.RiskFactors = factors;
        SaveRegisterToPlan(globals.RiskFactors, *host.plan);
        globals.RiskFactors.clear();
    }

    void Before() { listener.m_SchedyApp_PlanBeforeRiskAnalysis(host.plan); }

    /// One iteration in which the host draws these percentages for the factors' durations and
    /// costs, and these random numbers.
    void Iterate(const std::vector<double>& randoms, const std::vector<double>& durations,
                 const std::vector<double>& costs) {
        for (std::size_t i = 0; i < durations.size(); ++i) {
            host.plan->Find(kDurationGroup)->members[i]->sampled = durations[i] * 100;
            host.plan->Find(kCostGroup)->members[i]->sampled = costs[i] * 100;
        }
        host.plan->randoms.assign(randoms.begin(), randoms.end());
        listener.m_SchedyApp_PlanAfterRiskIteration(host.plan);
    }

    void After() { listener.m_SchedyApp_PlanAfterRiskAnalysis(host.plan); }
};

}  // namespace kestrel::test
