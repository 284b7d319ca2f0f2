#include "core/modAnalysis.h"
#include "core/modPearsons.h"

namespace kestrel {
namespace {

/// A project series with its statistics, computed once for all factors.
struct ProjectSeries {
    explicit ProjectSeries(const std::vector<double>& values)
        : samples(values),
          mean(CollectionMean(values)),
          deviation(CollectionStdDev(values, mean)) {}

    double CorrelationWith(const ImpactHistory& history) {
        if (samples.empty() || history.Count() == 0) return 0;
        return CollectionPearson(samples, history, true, mean, deviation);
    }

    const std::vector<double>& samples;
    double mean;
    double deviation;
};

}  // namespace

void CalculateSensitivities(modGlobals& globals) {
    globals.application->PutBusy(true);
    ProjectSeries finish(globals.analysis.ProjectFinishSamples);
    ProjectSeries cost(globals.analysis.ProjectCostSamples);
    for (const auto& factor : globals.RiskFactors) {
        globals.application->PutStatusText(factor->strDescription);
        factor->dblDurSens = finish.CorrelationWith(factor->m_colValues);
        factor->m_dCostSens = cost.CorrelationWith(factor->m_colValuesC);
    }
    globals.application->PutBusy(false);
}

}  // namespace kestrel
