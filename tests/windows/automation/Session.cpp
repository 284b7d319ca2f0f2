#include "windows/automation/Session.h"

#include <gtest/gtest.h>

#include "com/automation/HostLink.h"
#include "store/SaveLoadCommands.h"

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

}  // namespace

Session::Session() {
    for (const char* option : {"ShowIterations", "OptionSetting", "AssignView"})
        host.application->settings[{"RiskFactors", "RiskFactors", option}] =
            option == std::string("ShowIterations") ? "TRUE" : "1";
    modGlobals globals{desktop};
    globals.RiskFactors = {Factor("Rain", 100), Factor("Größe", 60, 1)};
    SaveRegisterToPlan(globals.RiskFactors, *host.plan);
    const auto summary = host.AddTask("1", "Works", "2");
    host.AddTask("2", "Dig", "(1(P));(2)", summary.get())->AddCost(100);
    host.AddTask("3", "Fill", "1", summary.get())->AddCost(50);
    host.plan->currentRow = 2;
    runner_.script = PressButtons;
    globals.application = host.application;
    desktop.chosenFiles = {"stored.xml"};
    SaveRiskFactorsToFile(globals);
}

void Session::DrawNumbers() {
    for (const char* name : {kDurationGroup, kCostGroup})
        if (const auto group = host.plan->Find(name))
            for (const auto& member : group->members) member->sampled = 11000.0 + 100 * iteration_;
    host.plan->randoms = {0.5, 0.25};
    host.plan->finish = 45000.5 + iteration_;
    host.plan->cost = 1000.0 * iteration_++;
}

void Session::Raise(const std::function<std::string(EventId)>& raise, EventId event) {
    if (event == kIteration) DrawNumbers();
    const std::string failure = raise(event);
    if (!failure.empty()) failures.push_back(failure);
}

void Session::RunCommands(clsKestrelDll& addin) {
    addin.LaunchEdit();
    addin.LaunchAssign();
    addin.LaunchShow();
    addin.LaunchOptions();
    desktop.chosenFiles = {"saved.xml"};
    addin.LaunchSave();
    desktop.chosenFiles = {"stored.xml"};
    addin.LaunchLoad();
}

void Session::Run(const std::function<host::ApplicationPtr()>& attach,
                  const std::function<std::string(EventId)>& raise) {
    clsKestrelDll addin(attach, desktop, runner_);
    try {
        addin.LaunchStartSchedulon();
    } catch (const HostError& error) {
        failures.push_back(error.what());
    }
    for (const EventId event : {kBefore, kIteration, kIteration, kAfter}) Raise(raise, event);
    RunCommands(addin);
    addin.LaunchStopSchedulon();
}

std::string Session::Outcome() {
    std::string all = host.plan->texts["RiskFactors"];
    for (const auto& task : host.plan->tasks) {
        all += "\ntask " + task->id + " " + std::to_string(task->duration);
        for (const auto& [name, text] : task->texts) all += " " + name + "=" + text;
        for (const auto& item : task->costItems) all += " " + std::to_string(item->cost);
    }
    for (const auto& group : host.plan->groups) {
        all += "\ngroup " + group->name + " " + group->description + (group->flagged ? "!" : "");
        for (const auto& member : group->members)
            all += " " + member->name + "=" + std::to_string(member->value);
    }
    for (const auto& [name, type] : host.plan->userFields)
        all += "\nfield " + name + " " + std::to_string(type);
    for (const auto& [key, value] : host.application->settings)
        all += "\nsetting " + std::get<2>(key) + "=" + value;
    for (const auto& text : host.application->statusTexts) all += "\nstatus " + text;
    for (const auto& message : desktop.messages) all += "\nmessage " + message.text;
    all += "\nrow " + std::to_string(host.plan->currentRow) + ", recalculated " +
           std::to_string(host.plan->recalculations);
    for (const auto& [path, bytes] : desktop.files) all += "\nfile " + path + " " + bytes;
    return all;
}

void RunDirectly(Session& session) {
    session.Run([&] { return session.host.application; },
                [&](EventId event) -> std::string {
                    host::AnalysisEvents& sink = *session.host.application->sinks.at(0);
                    const host::PlanPtr plan = session.host.plan;
                    if (event == kBefore) sink.PlanBeforeRiskAnalysis(plan);
                    if (event == kIteration) sink.PlanAfterRiskIteration(plan);
                    if (event == kAfter) sink.PlanAfterRiskAnalysis(plan);
                    return {};
                });
}

AutomationSession::AutomationSession() : events_(new EventSource(script, {})) {
    const auto application = ShowApplication(script, session.host.application);
    application->others = ComPtr<IUnknown>(static_cast<IProvideClassInfo*>(events_.Get()));
    application_ = ComPtr<IDispatch>(application.Get());
    plan_ = ComPtr<IDispatch>(ShowPlan(script, session.host.plan).Get());
}

AutomationSession::~AutomationSession() {
    application_ = nullptr;
    plan_ = nullptr;
    events_ = nullptr;
    EXPECT_EQ(script->objects, 0) << "objects of the host are still held";
}

host::ApplicationPtr AutomationSession::Attach() { return com::WrapApplication(application_); }

std::string AutomationSession::Raise(EventId event) {
    return events_->RaisePlan(event, plan_.Get());
}

void AutomationSession::Run() {
    session.Run([this] { return Attach(); }, [this](EventId event) { return Raise(event); });
}

}  // namespace kestrel::test
