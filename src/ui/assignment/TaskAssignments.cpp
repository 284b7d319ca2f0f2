#include "ui/assignment/TaskAssignments.h"

#include <optional>
#include <utility>

#include "store/TaskField.h"

namespace kestrel {
namespace {

bool CarriesFactors(std::int16_t type) {
    return type == host::kOrdinaryTask || type == host::kSummaryTask;
}

TaskFields ReadFields(const host::TaskPtr& task, std::int16_t type) {
    TaskFields fields;
    fields.task = task;
    fields.isSummary = type == host::kSummaryTask;
    if (!fields.isSummary) {
        fields.text = task->UserValues()->Item(kRiskFactorsField);
        fields.seriesList = GetRiskList(fields.text, true);
        return fields;
    }
    for (const host::TaskPtr& child : task->ChildTasks()) {
        const std::int16_t childType = child->TaskType();
        if (CarriesFactors(childType)) fields.children.push_back(ReadFields(child, childType));
    }
    return fields;
}

/// The walk over one level of sub-tasks.
class LevelWalk {
 public:
    LevelWalk(SummaryAssignments& found, std::int32_t nRisk) : found_(found), nRisk_(nRisk) {}

    void Walk(const TaskFields& summary) {
        int number = 0;
        for (const TaskFields& child : summary.children) {
            ++number;
            if (child.isSummary)
                LevelWalk(found_, nRisk_).Walk(child);
            else
                Compare(child, number == 1);
            if (!found_.bAllAssignedSame && !found_.bAllSetTheSame) return;
        }
    }

 private:
    void Compare(const TaskFields& child, bool isFirst) {
        const bool assigned = RiskListContains(child.text, nRisk_);
        if (assigned) CompareSeries(RiskListContains(child.seriesList, nRisk_));
        if (isFirst)
            firstAssigned_ = assigned;
        else if (assigned != firstAssigned_)
            found_.bAllAssignedSame = false;
    }

    void CompareSeries(bool inSeries) {
        found_.bAssignedTo = true;
        if (inSeries) found_.bAtleastOneInSeries = true;
        if (!firstInSeries_) firstInSeries_ = inSeries;
        if (inSeries != *firstInSeries_) found_.bAllSetTheSame = false;
    }

    SummaryAssignments& found_;
    std::int32_t nRisk_;
    bool firstAssigned_ = false;         ///< of the level's first child; stays for a summary
    std::optional<bool> firstInSeries_;  ///< of the level's first child that carries the factor
};

FactorState StateBelow(const TaskFields& summary, std::int32_t id) {
    const SummaryAssignments found = GetSummaryAssignments(summary, id);
    return {found.bAssignedTo, found.bAtleastOneInSeries,
            found.bAssignedTo && !found.bAllAssignedSame,
            found.bAtleastOneInSeries && !found.bAllSetTheSame};
}

std::string EditedText(const std::string& text, const std::vector<FactorEdit>& edits) {
    std::string parallel = GetRiskList(text, false);
    std::string series = GetRiskList(text, true);
    for (const FactorEdit& edit : edits) {
        series = SetMembership(std::move(series), edit.id, edit.assigned && edit.inSeries);
        parallel = SetMembership(std::move(parallel), edit.id, edit.assigned && !edit.inSeries);
    }
    return MakeRiskFieldText(parallel, series);
}

void MakeTexts(TaskFields& fields, const std::vector<FactorEdit>& edits) {
    if (!fields.isSummary) fields.text = EditedText(fields.text, edits);
    for (TaskFields& child : fields.children) MakeTexts(child, edits);
}

void WriteTexts(const TaskFields& fields) {
    if (!fields.isSummary) fields.task->UserValues()->PutItem(kRiskFactorsField, fields.text);
    for (const TaskFields& child : fields.children) WriteTexts(child);
}

}  // namespace

TaskFields ReadTaskFields(const host::TaskPtr& task) { return ReadFields(task, task->TaskType()); }

SummaryAssignments GetSummaryAssignments(const TaskFields& summary, std::int32_t nRisk) {
    SummaryAssignments found;
    LevelWalk(found, nRisk).Walk(summary);
    return found;
}

ShownTask ReadShownTask(const host::TaskPtr& task, std::int32_t factorCount) {
    ShownTask shown;
    shown.factors.resize(static_cast<std::size_t>(factorCount));
    if (!task) {
        shown.label = "No task is selected.";
        return shown;
    }
    shown.label = TaskLabel(*task);
    const std::int16_t type = task->TaskType();
    if (!CarriesFactors(type)) {
        shown.label += " (a task of this kind carries no risk factors)";
        return shown;
    }
    shown.task = task;
    shown.assignable = true;
    const TaskFields fields = ReadFields(task, type);
    const std::string parallel = GetRiskList(fields.text, false);
    std::int32_t id = 0;
    for (FactorState& state : shown.factors) {
        ++id;
        if (fields.isSummary) {
            state = StateBelow(fields, id);
        } else if (!fields.text.empty()) {
            state.assigned = RiskListContains(fields.text, id);
            state.inSeries = !RiskListContains(parallel, id);
        }
    }
    return shown;
}

std::string SetMembership(std::string list, std::int32_t id, bool wanted) {
    if (RiskListContains(list, id) == wanted) return list;
    if (!wanted) return RemoveRiskFromList(list, id);
    if (!list.empty()) list += ',';
    return list + std::to_string(id);
}

void SaveAssignments(Desktop& desktop, const host::TaskPtr& task,
                     const std::vector<FactorEdit>& edits) {
    if (edits.empty()) return;
    TaskFields fields = ReadTaskFields(task);
    if (fields.isSummary &&
        desktop.ShowMessage("Changes made on summary tasks will be applied to all sub tasks.  "
                            "Apply changes?",
                            MessageButtons::OkCancel, "") != MessageAnswer::Ok)
        return;
    MakeTexts(fields, edits);
    WriteTexts(fields);
}

}  // namespace kestrel
