#include <algorithm>
#include <limits>

#include "base/Checked.h"
#include "base/Errors.h"
#include "core/analysis/modAnalysis.h"
#include "store/RegisterDocument.h"
#include "store/TaskField.h"
#include "util/Trapped.h"

namespace kestrel {
namespace {

template <typename Action>
void IgnoringHostErrors(Action action) {
    try {
        action();
    } catch (const HostError&) {
        // A group or member that is absent is simply skipped.
    }
}

void RemoveFactorGroups(host::GroupCollection& groups) {
    const auto duration = groups.Item(kDurationGroup);
    if (!duration) return;
    for (const auto& member : duration->Members()->Enumerate())
        IgnoringHostErrors([&] {
            if (const auto group = member->Group()) groups.Remove(group->Name());
        });
}

void RemoveOldGroups(host::Plan& plan) {
    IgnoringHostErrors([&] { plan.PutAutoCalculate(false); });
    IgnoringHostErrors([&] { RemoveFactorGroups(*plan.Groups()); });
    for (const char* name : {kDurationGroup, kCostGroup})
        IgnoringHostErrors([&] { plan.Groups()->Remove(name); });
    IgnoringHostErrors([&] { plan.PutAutoCalculate(true); });
    IgnoringHostErrors([&] { plan.Recalculate(); });
}

host::GroupPtr FetchGroup(host::GroupCollection& groups, const std::string& name,
                          const std::string& description) {
    host::GroupPtr group = FoundOrNothing([&] { return groups.Item(name); });
    if (!group) group = groups.Add(name);
    group->PutDescription(description);
    group->PutFlagged(false);
    return group;
}

struct Percentages {
    double minimum, mostLikely, maximum;
};

void SetDistribution(host::Member& member, const Percentages& percent) {
    const auto distribution = member.Distribution(true);
    distribution->PutShape(0);
    distribution->PutMinimum(Checked(percent.minimum * 100));
    distribution->PutMostLikely(Checked(percent.mostLikely * 100));
    distribution->PutMaximum(Checked(percent.maximum * 100));
    member.PutValue(distribution->Value());
}

host::MemberPtr FetchMember(host::MemberCollection& members, const std::string& name,
                            const Percentages& percent) {
    host::MemberPtr member = FoundOrNothing([&] { return members.Item(name); });
    if (!member) member = members.Add(name);
    member->PutValue(1.0);
    SetDistribution(*member, percent);
    return member;
}

/// Gives the factor its two variables, which stand for its own group.
void BuildVariablesOf(clsRiskFactor& factor, const std::string& groupName,
                      host::MemberCollection& durations, host::MemberCollection& costs) {
    try {
        factor.durationMember =
            FetchMember(durations, groupName, {factor.dblMin, factor.dblML, factor.dblMax});
        factor.costMember =
            FetchMember(costs, groupName, {factor.dblCostMin, factor.dblCostML, factor.dblCostMax});
    } catch (const ArithmeticError& error) {
        throw ArithmeticError("Risk factor " + factor.strID + " - " + factor.strDescription + ": " +
                              error.what());
    }
    factor.PrepObjForAnalysis();
}

void BuildSampledVariables(const RiskRegister& factors, host::Plan& plan) {
    const auto groups = plan.Groups();
    const auto durations = FetchGroup(*groups, kDurationGroup, "Risk Factors")->Members();
    const auto costs = FetchGroup(*groups, kCostGroup, "Risk Factor Costs")->Members();
    for (const auto& factor : factors) {
        const auto group =
            FetchGroup(*groups, kFactorGroupPrefix + factor->strID, factor->strDescription);
        BuildVariablesOf(*factor, group->Name(), *durations, *costs);
    }
}

/// Lists the task with every factor that it carries.
void ListTask(AnalysisState& state, const host::TaskPtr& task, const RiskIDs& ids) {
    const auto held = static_cast<std::int32_t>(state.factors.size());
    for (const std::int32_t id : ids) {
        if (id < 1 || id > held)
            throw DataError("Task " + TaskLabel(*task) + " carries risk factor " +
                            std::to_string(id) + ", but the register holds " +
                            std::to_string(held) + ".");
        state.factors[static_cast<std::size_t>(id) - 1]->m_colTasks.push_back(task);
    }
}

void AppendGroup(AnalysisState& state, std::string_view fieldText, bool inSeries) {
    for (const std::int32_t id : ListedIDs(GetRiskList(fieldText, inSeries))) {
        const auto index = static_cast<std::uint32_t>(id - 1);
        state.groupFactors.push_back(index);
        ++state.visits[index];
    }
}

using CostItems = std::vector<std::shared_ptr<host::CostItem>>;

/// Keeps what every iteration needs of the task.
void KeepForIterations(AnalysisState& state, const host::TaskPtr& task, std::string_view fieldText,
                       const CostItems& costs) {
    FactorTask entry;
    entry.task = task;
    entry.ordinary = task->TaskType() == host::kOrdinaryTask;
    AppendGroup(state, fieldText, true);
    entry.seriesEnd = static_cast<std::uint32_t>(state.groupFactors.size());
    AppendGroup(state, fieldText, false);
    entry.parallelEnd = static_cast<std::uint32_t>(state.groupFactors.size());
    state.costItems.insert(state.costItems.end(), costs.begin(), costs.end());
    entry.costEnd = static_cast<std::uint32_t>(state.costItems.size());
    state.factorTasks.push_back(std::move(entry));
}

/// Gives every factor task its slots, behind two neutral impacts at the end of the list: one that
/// changes nothing, and one in the place of a group that is not there, which never is the largest.
void AssignSlots(AnalysisState& state) {
    const auto count = static_cast<std::uint32_t>(state.factors.size());
    const std::uint32_t unchanged = count, absent = count + 1;
    state.impacts.assign(count, {});
    state.impacts.push_back({1.0, 1.0});
    state.impacts.push_back({-std::numeric_limits<double>::infinity(), 1.0});

    std::uint32_t start = 0;
    for (std::uint32_t i = 0; i < state.factorTasks.size(); ++i) {
        const FactorTask& entry = state.factorTasks[i];
        const std::uint32_t series = entry.seriesEnd - start;
        const std::uint32_t parallel = entry.parallelEnd - entry.seriesEnd;
        const std::uint32_t* const factors = state.groupFactors.data() + start;
        start = entry.parallelEnd;
        ImpactSlots slots{{unchanged, unchanged}, {absent, absent}};
        if (entry.ordinary && (series > 2 || parallel > 2)) {
            state.crowded.push_back(i);
        } else if (entry.ordinary) {
            if (series == 0 && parallel > 0) slots.series[0] = absent;
            std::copy_n(factors, series, slots.series);
            std::copy_n(factors + series, parallel, slots.parallel);
        }
        state.slots.push_back(slots);
    }
}

/// Reads every task's field, once. Answers the cost items of the tasks with any text in it.
CostItems BuildTaskLists(Desktop& desktop, AnalysisState& state, host::Plan& plan) {
    state.visits.assign(state.factors.size(), 0);
    CostItems all;
    for (const auto& task : plan.Tasks()->Enumerate()) {
        const std::string fieldText = task->UserValues()->Item(kRiskFactorsField);
        if (fieldText.empty()) continue;
        const CostItems costs = task->CostItems();
        all.insert(all.end(), costs.begin(), costs.end());
        const RiskIDs ids = AllListedIDs(desktop, *task, fieldText);
        if (ids.empty()) continue;
        ListTask(state, task, ids);
        KeepForIterations(state, task, fieldText, costs);
    }
    return all;
}

}  // namespace

void PrepareAnalysis(modGlobals& globals, AnalysisState& state) {
    state.factors = ReadRegister(globals.desktop, state.registerText);

    host::Plan& plan = *state.plan;
    const host::PlanPtr activePlan = OpenPlan(globals);
    activePlan->PutAutoCalculate(false);
    RemoveOldGroups(plan);
    EnsureTaskFields(plan);

    plan.PutAutoCalculate(false);
    BuildSampledVariables(state.factors, plan);
    const CostItems costs = BuildTaskLists(globals.desktop, state, plan);
    plan.PutAutoCalculate(true);
    for (const auto& item : costs) state.baseCosts.push_back(item->Cost());

    state.riskAnalysis = activePlan->RiskAnalysis();
    state.options = plan.RiskAnalysis()->Options();
    state.randomNumbers.resize(state.factors.size());
    AssignSlots(state);
    state.combined.resize(state.factorTasks.size());
    activePlan->PutAutoCalculate(true);
}

}  // namespace kestrel
