#include "store/SaveLoadCommands.h"

#include <string>
#include <utility>
#include <vector>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "core/model/RisksAssignedToTask.h"
#include "store/RegisterDocument.h"
#include "store/TaskField.h"
#include "util/Trapped.h"
#include "util/frmBrowse.h"
#include "util/modXmlToolbox.h"

namespace kestrel {
namespace {

ui::frmBrowse Browse(modGlobals& globals, const char* title) {
    ui::frmBrowse browse(globals.desktop);
    browse.DialogTitle = title;
    browse.DefaultExt = "XML";
    browse.Filter = "RiskFactors (*.xml)|*.xml";
    return browse;
}

RisksAssignedToTask AssignedTo(modGlobals& globals, host::Task& task) {
    RisksAssignedToTask risks{task.ID(), {}};
    for (const bool inSeries : {true, false}) {
        RiskIDs ids;
        GetTaskRiskFactors(globals, task, ids, inSeries);
        for (const std::int32_t id : ids) risks.Assigned.push_back({std::to_string(id), inSeries});
    }
    return risks;
}

XmlNode TaskElement(const RisksAssignedToTask& risks) {
    XmlNode element = CreateXmlElement("Task");
    element.Append(CreateXmlElement("ID", risks.TaskID));
    for (const AssignedRiskFactor& assigned : risks.Assigned)
        element.Append(CreateXmlElement("AssignedRiskFactor", assigned.ID))
            .Append(CreateXmlElement("InSeries", assigned.InSeries ? "1" : "0"));
    return element;
}

RisksAssignedToTask ReadTask(const XmlNode& element) {
    RisksAssignedToTask risks{GetChildText("ID", element), {}};
    for (const XmlNode& child : element.children) {
        if (child.name != "AssignedRiskFactor" || child.children.empty()) continue;
        const std::string text = child.children.front().TextContent();
        const std::string_view id = Trimmed(text);  // files laid out by hand hold line breaks
        if (id.empty()) continue;
        const bool inSeries = LeadingNumber(child.children.back().TextContent()) != 0;
        risks.Assigned.push_back({std::string(id), inSeries});
    }
    return risks;
}

std::string FieldText(const RisksAssignedToTask& risks) {
    std::string parallel, series;
    for (const AssignedRiskFactor& assigned : risks.Assigned) {
        std::string& list = assigned.InSeries ? series : parallel;
        if (!list.empty()) list += ',';
        list += assigned.ID;
    }
    return MakeRiskFieldText(parallel, series);
}

/// The ID as it stands before the ID without blanks: IDs may begin or end with one.
host::TaskPtr FindTask(host::TaskCollection& tasks, const std::string& id) {
    const auto find = [&](const std::string& text) {
        return FoundOrNothing([&] { return tasks.Item(text); });
    };
    if (host::TaskPtr task = find(id)) return task;
    const std::string trimmed(Trimmed(id));
    return trimmed == id ? nullptr : find(trimmed);
}

}  // namespace

void SaveRiskFactorsToFile(modGlobals& globals) {
    ui::frmBrowse browse = Browse(globals, "Save Risk Factors and Assignments");
    browse.ShowSave();
    if (browse.FileName.empty()) return;

    const host::PlanPtr plan = OpenPlan(globals);
    OpenRegister(globals, *plan);
    XmlDocument document;
    LoadXmlFromString(globals.desktop, document, plan->GetText(kRegisterText));
    if (!IsRegisterRoot(document.root))
        throw DataError("The plan holds no risk factors, so there is nothing to save.");

    // An earlier load leaves its tasks in the stored text.
    std::erase_if(document.root.children, [](const XmlNode& n) { return n.name == "Task"; });
    for (const host::TaskPtr& task : plan->Tasks()->Enumerate()) {
        const RisksAssignedToTask risks = AssignedTo(globals, *task);
        if (!risks.Assigned.empty()) document.root.Append(TaskElement(risks));
    }
    globals.desktop.WriteFile(browse.FileName, SerialiseXmlFile(document.root));
}

void LoadRiskFactorsFromFile(modGlobals& globals) {
    ui::frmBrowse browse = Browse(globals, "Load Risk Factors and Assignments");
    browse.ShowOpen();
    if (browse.FileName.empty()) return;

    // Every Version loads, and so does a file without one.
    XmlDocument document;
    LoadXmlFromFile(globals.desktop, document, browse.FileName);
    if (!IsRegisterRoot(document.root)) {
        globals.desktop.ShowMessage("The file " + browse.FileName +
                                        " is not a valid Risk Factors file or may be "
                                        "corrupted and cannot be loaded. ",
                                    MessageButtons::OkCancel, "");
        return;
    }
    if (globals.desktop.ShowMessage(
            "The Risk Factors and Risks Assigned to Tasks will be overwritten by selecting the "
            "Load Risk Factors and Assignments Option",
            MessageButtons::YesNo, "") != MessageAnswer::Yes)
        return;

    const host::PlanPtr plan = OpenPlan(globals);
    Trapped([&] { EnsureTextField(*plan, kRiskFactorsField); });
    // All that can be refused is worked out before the first change.
    const std::string registerText = SerialiseXml(document.root);
    std::vector<std::pair<std::string, std::string>> fields;  // text by task
    for (const XmlNode* element : SelectElements(document, "Task")) {
        const RisksAssignedToTask risks = ReadTask(*element);
        fields.emplace_back(risks.TaskID, FieldText(risks));
    }
    const auto tasks = plan->Tasks();
    for (const host::TaskPtr& task : tasks->Enumerate())
        task->UserValues()->PutItem(kRiskFactorsField, "");
    plan->SetText(kRegisterText, registerText);
    for (const auto& [taskId, text] : fields)
        if (const host::TaskPtr task = FindTask(*tasks, taskId))
            task->UserValues()->PutItem(kRiskFactorsField, text);
}

}  // namespace kestrel
