#include <algorithm>
#include <limits>
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

/// A task's groups as this iteration combines them: impacts of the series group multiply, of the
/// parallel group's durations the largest counts, of its costs the product.
struct Combined {
    Impact series;
    Impact parallel;
    bool seriesPresent = false;
    bool parallelPresent = false;

    /// The larger of the groups that are present.
    double Duration() const {
        if (!parallelPresent) return series.duration;
        if (!seriesPresent) return parallel.duration;
        return std::max(series.duration, parallel.duration);
    }
    double Cost() const { return series.cost * parallel.cost; }
    /// Whether the log tells the series group's factors: when that group gave the multiplier.
    /// Without a parallel group a product of exactly 1 tells none.
    bool FromSeries() const {
        return seriesPresent &&
               (parallelPresent ? series.duration > parallel.duration : series.duration != 1.0);
    }
};

Combined Combine(const std::vector<Impact>& impacts, std::span<const std::uint32_t> series,
                 std::span<const std::uint32_t> parallel) {
    Combined result;
    for (const std::uint32_t index : series) {
        result.series.duration *= impacts[index].duration;
        result.series.cost *= impacts[index].cost;
    }
    double largest = -std::numeric_limits<double>::infinity();
    for (const std::uint32_t index : parallel) {
        largest = std::max(largest, impacts[index].duration);
        result.parallel.cost *= impacts[index].cost;
    }
    result.seriesPresent = !series.empty();
    result.parallelPresent = !parallel.empty();
    if (result.parallelPresent) result.parallel.duration = largest;
    return result;
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

void WriteLog(modGlobals& globals, const FactorTask& entry, std::span<const std::uint32_t> series,
              std::span<const std::uint32_t> parallel, std::int32_t duration,
              const Combined& combined, bool hasCosts) {
    IterationLog log(globals.RiskFactors);
    if (entry.ordinary) log.Read(series, parallel);
    const bool tellCosts = hasCosts && combined.Cost() != 1.0 && combined.Cost() != 0;
    entry.task->UserValues()->PutItem(kIterationsField,
                                      log.Text(duration, combined.FromSeries(), tellCosts));
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
        PutScaledDuration(*entry.task, duration, combined.Duration());
        if (state.logIterations)
            WriteLog(globals, entry, series, parallel, duration, combined,
                     costPosition < entry.costEnd);
        PutCosts(state, costPosition, entry.costEnd, combined.Cost());
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
