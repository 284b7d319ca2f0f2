#include <algorithm>
#include <span>

#include "base/Checked.h"
#include "base/NumberText.h"
#include "core/analysis/IterationLog.h"
#include "core/analysis/modAnalysis.h"
#include "core/model/Occurrence.h"
#include "store/TaskField.h"

namespace kestrel {
namespace {

void DecideOccurrences(AnalysisState& state) {
    for (double& number : state.randomNumbers) number = state.riskAnalysis->NextRandom();
    if (!state.sharing) state.sharing.emplace(state.factors);
    state.sharing->Share(state.randomNumbers);
    for (std::size_t i = 0; i < state.factors.size(); ++i) {
        clsRiskFactor& factor = *state.factors[i];
        if (state.visits[i] > 0) factor.ApplyRiskData(state.visits[i]);
        factor.GetRiskImpact(state.impacts[i].duration, state.impacts[i].cost);
    }
}

Impact ProductOf(const Impact* impacts, std::span<const std::uint32_t> factors) {
    Impact product;
    for (const std::uint32_t index : factors) {
        product.duration *= impacts[index].duration;
        product.cost *= impacts[index].cost;
    }
    return product;
}

/// Of the durations the largest; costs multiply as in series.
Impact LargestOf(const Impact* impacts, std::span<const std::uint32_t> factors) {
    Impact result = impacts[factors.front()];
    for (const std::uint32_t index : factors.subspan(1)) {
        result.duration = std::max(result.duration, impacts[index].duration);
        result.cost *= impacts[index].cost;
    }
    return result;
}

/// What a task's groups make together: the duration impact of the larger group that is present,
/// the product of both groups' costs.
Impact Combine(const Impact* impacts, std::span<const std::uint32_t> series,
               std::span<const std::uint32_t> parallel) {
    if (parallel.empty()) return ProductOf(impacts, series);
    if (series.empty()) return LargestOf(impacts, parallel);
    const Impact inSeries = ProductOf(impacts, series);
    const Impact inParallel = LargestOf(impacts, parallel);
    return {std::max(inSeries.duration, inParallel.duration), inSeries.cost * inParallel.cost};
}

/// Both multipliers of every factor task, apart from the host calls: after each of those
/// everything would have to be read again.
void CombineImpacts(AnalysisState& state) {
    const Impact* const impacts = state.impacts.data();
    for (std::size_t i = 0; i < state.slots.size(); ++i) {
        const ImpactSlots& slots = state.slots[i];
        const Impact a = impacts[slots.series[0]], b = impacts[slots.series[1]];
        const Impact c = impacts[slots.parallel[0]], d = impacts[slots.parallel[1]];
        state.combined[i] = {std::max(a.duration * b.duration, std::max(c.duration, d.duration)),
                             (a.cost * b.cost) * (c.cost * d.cost)};
    }
    const std::uint32_t* const factors = state.groupFactors.data();
    for (const std::uint32_t i : state.crowded) {
        const FactorTask& entry = state.factorTasks[i];
        const std::uint32_t start = i == 0 ? 0 : state.factorTasks[i - 1].parallelEnd;
        state.combined[i] = Combine(impacts, {factors + start, factors + entry.seriesEnd},
                                    {factors + entry.seriesEnd, factors + entry.parallelEnd});
    }
}

[[noreturn]] void RefuseDuration(host::Task& task, double scaled) {
    throw ArithmeticError("Task " + TaskLabel(task) + " would last " +
                          GeneralText(Checked(scaled)) +
                          ", which is more than a duration can hold; lower the duration "
                          "percentages of its risk factors.");
}

void PutScaledDuration(host::Task& task, std::int32_t duration, double multiplier) {
    std::int32_t result = 0;
    const double scaled = duration * multiplier;
    if (!RoundToInt32(scaled, result)) RefuseDuration(task, scaled);
    task.PutDuration(result);
}

void WriteLog(const AnalysisState& state, const FactorTask& entry,
              std::span<const std::uint32_t> series, std::span<const std::uint32_t> parallel,
              std::int32_t duration, double costMultiplier, bool hasCosts) {
    IterationLog log(state.factors);
    if (entry.ordinary) log.Read(series, parallel);
    const bool tellCosts = hasCosts && costMultiplier != 1.0 && costMultiplier != 0;
    entry.task->UserValues()->PutItem(kIterationsField, log.Text(duration, tellCosts));
}

void ApplyToTasks(AnalysisState& state) {
    CombineImpacts(state);
    const Impact* combined = state.combined.data();
    const std::uint32_t* const factors = state.groupFactors.data();
    const std::shared_ptr<host::CostItem>* const costItems = state.costItems.data();
    const double* const baseCosts = state.baseCosts.data();  // paired by running position
    const bool log = state.logIterations;
    std::uint32_t group = 0;
    std::uint32_t cost = 0;
    for (const FactorTask& entry : state.factorTasks) {
        const std::int32_t duration = entry.task->Duration();
        PutScaledDuration(*entry.task, duration, combined->duration);
        if (log)
            WriteLog(state, entry, {factors + group, factors + entry.seriesEnd},
                     {factors + entry.seriesEnd, factors + entry.parallelEnd}, duration,
                     combined->cost, cost < entry.costEnd);
        for (; cost < entry.costEnd; ++cost)
            costItems[cost]->PutCost(Checked(baseCosts[cost] * combined->cost));
        group = entry.parallelEnd;
        ++combined;
    }
}

}  // namespace

void ApplyIteration(AnalysisState& state) {
    state.plan->PutAutoCalculate(false);
    DecideOccurrences(state);
    ApplyToTasks(state);
    state.plan->PutAutoCalculate(true);
    if (state.options->RecalculateAll())
        state.plan->RecalculateAll();
    else
        state.plan->Recalculate();
    // Asked for each time: a host may hand out what the plan comes to at that moment.
    const auto summary = state.plan->SummaryTask();
    state.ProjectFinishSamples.push_back(summary->Finish());
    state.ProjectCostSamples.push_back(summary->Cost());
}

}  // namespace kestrel
