#include "base/Errors.h"
#include "core/analysis/modAnalysis.h"
#include "store/OpenPlan.h"
#include "store/RegisterDocument.h"
#include "store/TaskField.h"

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
    host::GroupPtr group = groups.Item(name);
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
    distribution->PutMinimum(percent.minimum * 100);
    distribution->PutMostLikely(percent.mostLikely * 100);
    distribution->PutMaximum(percent.maximum * 100);
    member.PutValue(distribution->Value());
}

host::MemberPtr FetchMember(host::MemberCollection& members, const std::string& name,
                            const Percentages& percent) {
    host::MemberPtr member = members.Item(name);
    if (!member) member = members.Add(name);
    member->PutValue(1.0);
    SetDistribution(*member, percent);
    return member;
}

void BuildSampledVariables(modGlobals& globals, host::Plan& plan) {
    const auto groups = plan.Groups();
    const auto durations = FetchGroup(*groups, kDurationGroup, "Risk Factors")->Members();
    const auto costs = FetchGroup(*groups, kCostGroup, "Risk Factor Costs")->Members();
    std::size_t n = 0;
    for (const auto& factor : globals.RiskFactors) {
        const std::string name =
            FetchGroup(*groups, kFactorGroupPrefix + std::to_string(++n), factor->strDescription)
                ->Name();
        factor->durationMember =
            FetchMember(*durations, name, {factor->dblMin, factor->dblML, factor->dblMax});
        factor->costMember =
            FetchMember(*costs, name, {factor->dblCostMin, factor->dblCostML, factor->dblCostMax});
        factor->PrepObjForAnalysis();
    }
}

void AppendDescendants(host::Task& task, std::vector<host::TaskPtr>& list) {
    for (const auto& child : task.ChildTasks()) {
        list.push_back(child);
        AppendDescendants(*child, list);
    }
}

/// Lists the task with every factor that it carries.
void ListTask(modGlobals& globals, const host::TaskPtr& task, const RiskIDs& ids,
              std::int16_t type) {
    const auto held = static_cast<std::int32_t>(globals.RiskFactors.size());
    for (const std::int32_t id : ids) {
        if (id < 1 || id > held)
            throw DataError("Task " + TaskLabel(*task) + " carries risk factor " +
                            std::to_string(id) + ", but the register holds " +
                            std::to_string(held) + ".");
        auto& list = globals.RiskFactors[static_cast<std::size_t>(id) - 1]->m_colTasks;
        list.push_back(task);
        if (type == host::kSummaryTask) AppendDescendants(*task, list);
    }
}

void AppendGroup(AnalysisState& state, std::string_view fieldText, bool inSeries) {
    for (const std::int32_t id : ListedIDs(GetRiskList(fieldText, inSeries))) {
        const auto index = static_cast<std::uint32_t>(id - 1);
        state.groupFactors.push_back(index);
        ++state.visits[index];
    }
}

/// Keeps what every iteration needs of the task, so that no field is read or parsed again.
void KeepForIterations(AnalysisState& state, const host::TaskPtr& task, std::int16_t type) {
    const std::string fieldText = task->UserValues()->Item(kRiskFactorsField);
    FactorTask entry;
    entry.task = task;
    entry.ordinary = type == host::kOrdinaryTask;
    AppendGroup(state, fieldText, true);
    entry.seriesEnd = static_cast<std::uint32_t>(state.groupFactors.size());
    AppendGroup(state, fieldText, false);
    entry.parallelEnd = static_cast<std::uint32_t>(state.groupFactors.size());
    for (auto& item : task->CostItems()) state.costItems.push_back(std::move(item));
    entry.costEnd = static_cast<std::uint32_t>(state.costItems.size());
    state.factorTasks.push_back(std::move(entry));
}

void BuildTaskLists(modGlobals& globals, const std::vector<host::TaskPtr>& tasks) {
    AnalysisState& state = globals.analysis;
    state.visits.assign(globals.RiskFactors.size(), 0);
    RiskIDs ids;
    for (const auto& task : tasks) {
        GetAllTaskRiskFactors(globals, *task, ids);
        if (ids.empty()) continue;
        const std::int16_t type = task->TaskType();
        ListTask(globals, task, ids, type);
        KeepForIterations(state, task, type);
    }
}

void SnapshotBaseCosts(AnalysisState& state, const std::vector<host::TaskPtr>& tasks) {
    for (const auto& task : tasks) {
        if (task->UserValues()->Item(kRiskFactorsField).empty()) continue;
        for (const auto& item : task->CostItems()) state.baseCosts.push_back(item->Cost());
    }
}

}  // namespace

void PrepareAnalysis(modGlobals& globals, const host::PlanPtr& plan) {
    AnalysisState fresh;
    fresh.active = globals.analysis.active;
    fresh.logIterations = globals.analysis.logIterations;
    fresh.plan = plan;
    globals.analysis = std::move(fresh);
    AnalysisState& state = globals.analysis;

    const host::PlanPtr activePlan = OpenPlan(globals);
    activePlan->PutAutoCalculate(false);
    RemoveOldGroups(*plan);

    globals.RiskFactors.clear();
    LoadRegisterFromPlan(globals, *plan);

    plan->PutAutoCalculate(false);
    BuildSampledVariables(globals, *plan);
    const std::vector<host::TaskPtr> tasks = plan->Tasks()->Enumerate();
    BuildTaskLists(globals, tasks);
    plan->PutAutoCalculate(true);
    SnapshotBaseCosts(state, tasks);

    state.riskAnalysis = activePlan->RiskAnalysis();
    state.options = plan->RiskAnalysis()->Options();
    state.summary = plan->SummaryTask();
    state.randomNumbers.resize(globals.RiskFactors.size());
    state.impacts.resize(globals.RiskFactors.size());
    state.combined.resize(state.factorTasks.size());
    activePlan->PutAutoCalculate(true);
}

}  // namespace kestrel
