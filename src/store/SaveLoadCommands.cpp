#include "store/SaveLoadCommands.h"

#include <string>
#include <utility>
#include <vector>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "store/OpenPlan.h"
#include "store/RegisterDocument.h"
#include "store/TaskField.h"
#include "util/HostLookup.h"
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

void AppendAssignments(XmlNode& task, const RiskIDs& ids, const char* inSeries) {
    for (const std::int32_t id : ids) {
        XmlNode& assigned = task.Append(CreateXmlElement("AssignedRiskFactor", std::to_string(id)));
        assigned.Append(CreateXmlElement("InSeries", inSeries));
    }
}

/// The task with its assignments; without children beyond its ID when it has none.
XmlNode TaskElement(modGlobals& globals, host::Task& task) {
    XmlNode element = CreateXmlElement("Task");
    element.Append(CreateXmlElement("ID", task.ID()));
    for (const bool inSeries : {true, false}) {
        RiskIDs ids;
        GetTaskRiskFactors(globals, task, ids, inSeries);
        AppendAssignments(element, ids, inSeries ? "1" : "0");
    }
    return element;
}

/// A `Task` element as the text of the task's field.
std::string FieldText(const XmlNode& element) {
    std::string parallel, series;
    for (const XmlNode& child : element.children) {
        if (child.name != "AssignedRiskFactor" || child.children.empty()) continue;
        const std::string text = child.children.front().TextContent();
        const std::string_view id = Trimmed(text);  // files laid out by hand hold line breaks
        if (id.empty()) continue;
        const bool inSeries = LeadingNumber(child.children.back().TextContent()) != 0;
        std::string& list = inSeries ? series : parallel;
        if (!list.empty()) list += ',';
        list += id;
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

/// What a file says of one task.
struct Assignment {
    std::string taskId;
    std::string fieldText;
};

std::vector<Assignment> AssignmentsOf(const XmlDocument& document) {
    std::vector<Assignment> assignments;
    for (const XmlNode* element : SelectElements(document, "Task"))
        assignments.push_back({GetChildText("ID", *element), FieldText(*element)});
    return assignments;
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
        XmlNode element = TaskElement(globals, *task);
        if (element.children.size() > 1) document.root.Append(std::move(element));
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
    const std::vector<Assignment> assignments = AssignmentsOf(document);
    const auto tasks = plan->Tasks();
    for (const host::TaskPtr& task : tasks->Enumerate())
        task->UserValues()->PutItem(kRiskFactorsField, "");
    plan->SetText(kRegisterText, registerText);
    for (const Assignment& assignment : assignments)
        if (const host::TaskPtr task = FindTask(*tasks, assignment.taskId))
            task->UserValues()->PutItem(kRiskFactorsField, assignment.fieldText);
}

}  // namespace kestrel
