#include <cmath>
#include <span>

#include "core/IterationLog.h"
#include "core/Occurrence.h"
#include "core/modAnalysis.h"
#include "store/TaskField.h"
#include "util/Checked.h"
#include "util/NumberText.h"

namespace kestrel {
namespace {

void DecideOccurrences(modGlobals& globals) {
    AnalysisState& state = globals.analysis;
    for (const auto& factor : globals.RiskFactors) factor->ResetRisk();
    for (double& number : state.randomNumbers) number = state.riskAnalysis->NextRandom();
    ShareRandomNumbers(globals.RiskFactors, state.randomNumbers);
    for (std::size_t i = 0; i < globals.RiskFactors.size(); ++i) {
        clsRiskFactor& factor = *globals.RiskFactors[i];
        if (state.visits[i] > 0) factor.ApplyRiskData(state.visits[i]);
        factor.GetRiskImpact(state.impacts[i].duration, state.impacts[i].cost);
    }
}

/// A task's groups as this iteration combines them.
struct Combined {
    double duration = 1.0;    ///< the multiplier chosen
    double cost = 1.0;        ///< product over both groups
    bool fromSeries = false;  ///< whether the series group gave `duration`
};

/// Series factors multiply; of parallel factors the largest counts, and of the two groups the
/// larger. Costs always multiply, the groups' products being formed apart.
Combined Combine(const std::vector<Impact>& impacts, std::span<const std::uint32_t> series,
                 std::span<const std::uint32_t> parallel) {
    Impact inSeries;
    for (const std::uint32_t index : series) {
        inSeries.duration *= impacts[index].duration;
        inSeries.cost *= impacts[index].cost;
    }
    Impact inParallel;
    for (std::size_t i = 0; i < parallel.size(); ++i) {
        const Impact& impact = impacts[parallel[i]];
        if (i == 0 || impact.duration > inParallel.duration) inParallel.duration = impact.duration;
        inParallel.cost *= impact.cost;
    }
    Combined result;
    result.fromSeries = parallel.empty()
                            ? inSeries.duration != inParallel.duration
                            : !series.empty() && inSeries.duration > inParallel.duration;
    result.duration = result.fromSeries ? inSeries.duration : inParallel.duration;
    result.cost = inSeries.cost * inParallel.cost;
    return result;
}

std::int32_t ScaledDuration(host::Task& task, std::int32_t duration, double multiplier) {
    std::int32_t result = 0;
    const double scaled = duration * multiplier;
    if (!RoundToInt32(scaled, result))
        throw ArithmeticError("Task " + TaskLabel(task) + " would last " +
                              GeneralText(Checked(scaled)) +
                              ", which is more than a duration can hold; lower the duration "
                              "percentages of its risk factors.");
    return result;
}

/// Writes the task's costs from the costs before the analysis; `position` runs over all tasks.
void PutCosts(AnalysisState& state, std::size_t& position, std::uint32_t end, double multiplier) {
    for (; position < end; ++position)
        state.costItems[position]->PutCost(Checked(state.baseCosts[position] * multiplier));
}

void ApplyToTasks(modGlobals& globals) {
    AnalysisState& state = globals.analysis;
    const std::uint32_t* factors = state.groupFactors.data();
    std::size_t groupStart = 0;
    std::size_t costPosition = 0;
    for (const FactorTask& entry : state.factorTasks) {
        const std::span series{factors + groupStart, factors + entry.seriesEnd};
        const std::span parallel{factors + entry.seriesEnd, factors + entry.parallelEnd};
        groupStart = entry.parallelEnd;
        const std::int32_t duration = entry.task->Duration();
        Combined combined;
        if (entry.ordinary) combined = Combine(state.impacts, series, parallel);
        entry.task->PutDuration(ScaledDuration(*entry.task, duration, combined.duration));

        const bool hasCosts = costPosition < entry.costEnd;
        if (state.logIterations) {
            IterationLog log(globals.RiskFactors);
            if (entry.ordinary) log.Read(series, parallel);
            entry.task->UserValues()->PutItem(
                kIterationsField, log.Text(duration, combined.fromSeries,
                                           hasCosts && combined.cost != 1.0 && combined.cost != 0));
        }
        PutCosts(state, costPosition, entry.costEnd, combined.cost);
    }
}

}  // namespace

void ApplyIteration(modGlobals& globals) {
    AnalysisState& state = globals.analysis;
    state.plan->PutAutoCalculate(false);
    DecideOccurrences(globals);
    ApplyToTasks(globals);
    state.plan->PutAutoCalculate(true);
    if (state.options->RecalculateAll())
        state.plan->RecalculateAll();
    else
        state.plan->Recalculate();
    state.ProjectFinishSamples.push_back(state.summary->Finish());
    state.ProjectCostSamples.push_back(state.summary->Cost());
}

}  // namespace kestrel
