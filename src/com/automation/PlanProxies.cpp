#include "com/automation/PlanProxies.h"

#include "com/automation/GroupProxies.h"
#include "com/automation/HostList.h"
#include "com/automation/TaskProxies.h"
#include "com/automation/ViewProxy.h"

namespace kestrel::com {

using win32::Bstr;

std::shared_ptr<host::AnalysisOptions> RiskAnalysisProxy::Options() {
    return Wrap<AnalysisOptionsProxy>(analysis_.Needed(HostMember::RiskAnalysisOptions));
}

std::shared_ptr<host::UserFieldDefinition> UserFieldDefinitionsProxy::Item(
    const std::string& name) {
    return Wrap<UserFieldDefinitionProxy>(
        fields_.Find(HostMember::UserFieldDefinitionsItem, Bstr(name)));
}

void UserFieldDefinitionsProxy::Add(const std::string& name, std::int16_t type) {
    fields_.Run(HostMember::UserFieldDefinitionsAdd, Bstr(name), type);
}

std::shared_ptr<host::TaskCollection> PlanProxy::Tasks() {
    return Wrap<TasksProxy>(plan_.Needed(HostMember::PlanTasks));
}

std::string PlanProxy::GetText(const std::string& name) {
    return plan_.Text(HostMember::PlanGetText, plan_.Connection().SlotName(name));
}

void PlanProxy::SetText(const std::string& name, const std::string& text) {
    plan_.Run(HostMember::PlanSetText, plan_.Connection().SlotName(name), Bstr(text));
}

std::shared_ptr<host::SummaryTask> PlanProxy::SummaryTask() {
    return Wrap<SummaryTaskProxy>(plan_.Needed(HostMember::PlanSummaryTask));
}

std::shared_ptr<host::RiskAnalysis> PlanProxy::RiskAnalysis() {
    return Wrap<RiskAnalysisProxy>(plan_.Needed(HostMember::PlanRiskAnalysis));
}

std::shared_ptr<host::GroupCollection> PlanProxy::Groups() {
    return Wrap<GroupsProxy>(plan_.Needed(HostMember::PlanGroups));
}

std::shared_ptr<host::UserFieldDefinitions> PlanProxy::UserFieldDefinitions() {
    return Wrap<UserFieldDefinitionsProxy>(plan_.Needed(HostMember::PlanUserFieldDefinitions));
}

std::shared_ptr<host::View> PlanProxy::CurrentView() {
    return Wrap<ViewProxy>(plan_.Child(HostMember::PlanCurrentView));
}

}  // namespace kestrel::com
