#include "windows/support/OfferedHost.h"

#include "base/Errors.h"

namespace refhost::test {

void TestProgram::OpenPlan(const std::string& path) {
    if (path != "other.kplan")
        throw kestrel::DataError("'" + path + "' is not there; name a file that is.");
    PlanData other;
    other.name = "Other";
    other.start = Minute{46027} * kMinutesPerDay;
    host->Open(std::make_shared<HostPlan>(std::move(other)));
}

PlanData SmallPlan() {
    PlanData plan;
    plan.name = "Größe";
    plan.start = Minute{46027} * kMinutesPerDay + 480;  // Monday, 2026-01-05 08:00
    plan.texts.emplace_back("Note", "naïve");
    plan.userFields.push_back({"Owner", 1});
    TaskData summary;
    summary.id = "S";
    summary.name = "Works";
    summary.type = kSummary;
    TaskData first;
    first.id = "A";
    first.name = "Dig";
    first.parent = 0;
    first.duration = 480;
    first.costItems = {{"Labour", 12.5}, {"Plant", 100}};
    first.userValues.emplace_back("Owner", "Ada");
    TaskData second = first;
    second.id = "B";
    second.costItems.clear();
    second.links.push_back({"A", LinkType::FinishToStart, 0});
    plan.tasks = {summary, first, second};
    return plan;
}

OfferedHost::OfferedHost(PlanData plan) {
    program.host = &host;
    host.Open(std::make_shared<HostPlan>(std::move(plan)));
    Plan().GroupList().Add("G")->Members()->Add("M");
    server = std::make_shared<automation::AutomationServer>(host, program);
    application = server->Application();
}

OfferedHost::~OfferedHost() {
    application.Reset();
    server->Disconnect();
}

}  // namespace refhost::test
