#include "windows/automation/Session.h"

#include "com/automation/HostLink.h"
#include "core/AnalysisFixture.h"
#include "host/clsKestrelDll.h"
#include "refhost/files/PlanFile.h"
#include "store/SaveLoadCommands.h"
#include "support/ScriptedRunner.h"

namespace kestrel::test {
namespace {

/// What to press in whichever window opens.
void PressButtons(User& user) {
    for (const char* button : {"cmdNext", "cmdOKRisk", "cmdOK"}) {
        if (!user.TheForm().IsOpen()) return;
        if (const Control* found = user.TheForm().Find(button); found && found->Enabled())
            user.Click(button);
    }
}

refhost::PlanData SessionPlan() {
    refhost::PlanData plan = refhost::test::SmallPlan();
    plan.tasks[1].userValues = {{"RiskFactors", "(1(P));(2)"}};
    plan.tasks[2].userValues = {{"RiskFactors", "1"}};
    plan.tasks[0].userValues = {{"RiskFactors", "2"}};
    plan.userFields.push_back({"RiskFactors", 1});
    return plan;
}

host::ApplicationPtr Borrowed(refhost::ReferenceHost& host) {
    return {std::shared_ptr<void>(), &host};
}

}  // namespace

Session::Session() : offered(SessionPlan()) {
    offered.settings.values = {
        {"ShowIterations", "TRUE"}, {"OptionSetting", "1"}, {"AssignView", "1"}};
    offered.Plan().SelectRow(2);
    modGlobals globals{desktop};
    globals.application = Borrowed(offered.host);
    globals.RiskFactors = {Factor("Rain", 100), Factor("Größe", 60, 1)};
    SaveRegisterToPlan(globals.RiskFactors, offered.Plan());
    desktop.chosenFiles = {"stored.xml"};
    SaveRiskFactorsToFile(globals);
}

void Session::Try(const std::function<void()>& step) {
    try {
        step();
    } catch (const HostError& error) {
        failures.push_back(error.what());
    } catch (const DataError& error) {
        failures.push_back(error.what());
    }
}

void Session::Run(const std::function<host::ApplicationPtr()>& attach) {
    ScriptedRunner runner;
    runner.script = PressButtons;
    clsKestrelDll addIn(attach, desktop, runner);
    refhost::AnalysisSettings settings;
    settings.iterations = 2;
    Try([&] { addIn.LaunchStartSchedulon(); });
    Try([&] { RunAnalysis(offered.host, settings); });
    addIn.LaunchEdit();
    addIn.LaunchAssign();
    addIn.LaunchShow();
    addIn.LaunchOptions();
    desktop.chosenFiles = {"saved.xml"};
    addIn.LaunchSave();
    desktop.chosenFiles = {"stored.xml"};
    addIn.LaunchLoad();
    Try([&] { addIn.LaunchStopSchedulon(); });
}

void Session::RunDirectly() {
    Run([this] { return Borrowed(offered.host); });
}

host::ApplicationPtr Session::Attach(const std::shared_ptr<Interception>& between) {
    return com::WrapApplication(between->Over(offered.application.Get()),
                                std::make_shared<win32::FloatingPointBorder>());
}

void Session::RunThrough(const std::shared_ptr<Interception>& between) {
    Run([&] { return Attach(between); });
}

std::string Session::Outcome() {
    std::string all = refhost::WritePlan(offered.Plan().Snapshot());
    for (const auto& [key, value] : offered.settings.values)
        all += "\nsetting " + key + "=" + value;
    for (const auto& message : desktop.messages) all += "\nmessage " + message.text;
    for (const auto& [path, bytes] : desktop.files) all += "\nfile " + path + " " + bytes;
    return all + "\nrow " + std::to_string(offered.Plan().SelectedRow()) + " status " +
           offered.host.StatusText();
}

}  // namespace kestrel::test
