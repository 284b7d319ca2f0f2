#include "store/TaskField.h"

#include <algorithm>

#include "store/RiskList.h"
#include "util/Trapped.h"

namespace kestrel {
namespace {

std::string FieldText(host::Task& task) { return task.UserValues()->Item(kRiskFactorsField); }

void WarnOfInvalidItem(Desktop& desktop, host::Task& task, const std::string& item) {
    desktop.ShowMessage(
        "Risk Factors are stored in the task custom field (RiskFactors) as a string of numbers "
        "that refers to a Risk Factors ID. Multiple assignments are separated by commas.\r\n\r\n"
        "However some of the text in this field for '" +
            TaskLabel(task) +
            "' contains an assignment that does not correspond to a Risk Category ID. This "
            "assignment text is: " +
            item +
            "\r\n\r\nThis can occur when the field has manually edited to store other information "
            "for about the task, the text has become corrupt or the RiskFactor number referenced "
            "does not exist.\r\n\r\n"
            "Selecting OK will delete the text that does not correspond to an existing Risk "
            "Category ID. Cancel will leave existing text in the Notes 2 field but you will not "
            "be able to assign any additional RiskFactors to this task.\r\n\r\n"
            "Note: You will receive a warning for each assignment that does not correspond to a "
            "Risk Category ID.",
        MessageButtons::OkCancel, "Warning");
}

/// Adds the ID unless it is there; a duplicate is told.
void AddOnce(Desktop& desktop, host::Task& task, RiskIDs& ids, std::int32_t id) {
    if (std::find(ids.begin(), ids.end(), id) == ids.end()) {
        ids.push_back(id);
        return;
    }
    desktop.ShowMessage("There is a duplicate RiskFactor assigned to task " + TaskLabel(task) +
                        " and will be ignored.");
}

/// The field text once the factor is gone. Both groups are written anew, whether or not they
/// held the factor.
std::string WithoutFactor(const std::string& fieldText, std::int32_t deleted) {
    std::string lists[2];
    for (const bool inSeries : {false, true}) {
        std::string& list = lists[inSeries];
        list = GetRiskList(fieldText, inSeries);
        if (RiskListContains(list, deleted)) list = RemoveRiskFromList(list, deleted);
        list = RenumberRiskList(list, deleted);
    }
    return MakeRiskFieldText(lists[0], lists[1]);
}

std::string WithoutFactors(std::string text, const std::vector<std::int32_t>& deleted) {
    for (const std::int32_t id : deleted) text = WithoutFactor(text, id);
    return text;
}

}  // namespace

std::string TaskLabel(host::Task& task) { return task.ID() + " - " + task.Name(); }

void GetTaskRiskFactors(modGlobals& globals, host::Task& task, RiskIDs& ids, bool inSeries) {
    const std::string list = GetRiskList(FieldText(task), inSeries);
    const auto last = static_cast<std::int64_t>(globals.RiskFactors.size());
    ids.clear();
    for (const RiskListItem& item : RiskListItems(list)) {
        if (item.id < 1 || item.id > last)
            WarnOfInvalidItem(globals.desktop, task, std::string(item.text));
        else
            AddOnce(globals.desktop, task, ids, item.id);
    }
}

void GetAllTaskRiskFactors(modGlobals& globals, host::Task& task, RiskIDs& ids) {
    ids = AllListedIDs(globals.desktop, task, FieldText(task));
}

RiskIDs AllListedIDs(Desktop& desktop, host::Task& task, std::string_view fieldText) {
    std::string list = GetRiskList(fieldText, true);
    const std::string parallel = GetRiskList(fieldText, false);
    if (!list.empty() && !parallel.empty()) list += ',';
    list += parallel;
    RiskIDs ids;
    for (const RiskListItem& item : RiskListItems(list)) AddOnce(desktop, task, ids, item.id);
    return ids;
}

void RenumberTaskRiskFactors(modGlobals& globals, const std::vector<std::int32_t>& deleted) {
    const host::PlanPtr plan = globals.application->ActivePlan();
    if (!plan) return;
    EnsureTextField(*plan, kRiskFactorsField);

    for (const host::TaskPtr& task : plan->Tasks()->Enumerate()) {
        const std::string before = FieldText(*task);
        const std::string after = WithoutFactors(before, deleted);
        if (after != before) task->UserValues()->PutItem(kRiskFactorsField, after);
    }
}

void EnsureTextField(host::Plan& plan, const std::string& name) {
    const auto fields = plan.UserFieldDefinitions();
    if (!FoundOrNothing([&] { return fields->Item(name); })) fields->Add(name, host::kTextField);
}

}  // namespace kestrel
