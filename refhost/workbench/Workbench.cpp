#include "refhost/workbench/Workbench.h"

#include <algorithm>
#include <thread>

#include "base/Errors.h"
#include "refhost/charts/FigureText.h"
#include "refhost/engine/Criticality.h"
#include "refhost/engine/Statistics.h"
#include "refhost/workbench/AnalysisProgress.h"
#include "refhost/workbench/ReportWriter.h"
#include "refhost/workbench/TableExchange.h"
#include "refhost/workbench/WorkProgress.h"
#include "refhost/workbench/frmResults.h"
#include "refhost/workbench/frmRunAnalysis.h"

namespace refhost {
namespace {

using Command = WorkbenchCommand;

constexpr const char* kProgram = "Kestrel";
constexpr const char* kAbout =
    "Kestrel " KESTREL_VERSION
    "\n\nRisk factors for project plans: keep a register of what may happen, assign it to tasks, "
    "run a Monte Carlo analysis, and see what drives the finish date and the cost.";
constexpr const char* kKeys =
    "Up, Down, Page Up, Page Down, Home, End\tselect a task\n"
    "Left, Right\tcollapse or expand a summary, or go up or down a level\n"
    "Enter\tassign risk factors to the selected task\n"
    "Ctrl+Left, Ctrl+Right\tscroll the time scale\n"
    "Ctrl++, Ctrl+-, Ctrl+wheel\tzoom in and out\n"
    "Ctrl+0\tshow the whole plan\n"
    "Ctrl+T\tgo to today\n"
    "Ctrl+G\tgo to the selected task\n"
    "Ctrl+Shift++, Ctrl+Shift+-\texpand or collapse all\n"
    "F4, F5, F6\tedit, assign, show what drives the plan\n"
    "F9\trun the analysis\n"
    "F10, Alt\tmenu\n"
    "Ctrl+O, Ctrl+S, Ctrl+Shift+S\topen, save, save as";

/// An analysis as the window follows it: its progress and the tasks that are critical.
class FollowedAnalysis : public AnalysisWatcher {
 public:
    FollowedAnalysis(WorkbenchWindow& window, std::int32_t iterations, LivePlan& plan)
        : progress_(window, iterations), plan_(plan), criticality_(plan.Data()) {}

    bool AfterIteration(std::int32_t number, std::span<const std::int32_t> drawn,
                        const AnalysisResults& soFar) override {
        criticality_.Note(plan_.Scheduled());
        return progress_.AfterIteration(number, drawn, soFar);
    }

    std::vector<double> Criticality() const {
        std::vector<double> shares;
        for (std::size_t task = 0; task < plan_.TaskCount(); ++task)
            shares.push_back(criticality_.Of(task));
        return shares;
    }

 private:
    AnalysisProgress progress_;
    LivePlan& plan_;
    refhost::Criticality criticality_;
};

class StageWatcher : public AnalysisWatcher {
 public:
    StageWatcher(const char* what, std::int32_t iterations, WorkProgress& progress)
        : what_(what), iterations_(iterations), progress_(progress) {}
    bool AfterIteration(std::int32_t number, std::span<const std::int32_t>,
                        const AnalysisResults&) override {
        return progress_.Show(what_, number, iterations_);
    }

 private:
    const char* what_;
    std::int32_t iterations_;
    WorkProgress& progress_;
};

/// True for as long as it lives.
class Flag {
 public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

 private:
    bool& flag_;
};

}  // namespace

Workbench::Workbench(const Parts& parts)
    : parts_(parts), document_(parts.host, parts.settings, parts.desktop, parts.runner) {}

void Workbench::Tell(const std::string& text) {
    parts_.desktop.ShowMessage(text, kestrel::MessageButtons::Ok, kProgram);
}

template <class Work>
void Workbench::Guarded(Work&& work) {
    if (running_) return;
    {
        const Flag running(running_);
        try {
            work();
        } catch (const kestrel::HostError& error) {
            Tell(error.what());
        } catch (const kestrel::DataError& error) {
            Tell(error.what());
        }
    }
    Sync();
    parts_.window.Refresh();
}

bool Workbench::IsEnabled(Command command) const {
    switch (command) {
        case Command::Open:
        case Command::Exit:
        case Command::ShowKeys:
        case Command::About:
            return true;
        case Command::ShowResults:
            return results_.has_value();
        case Command::AssignFactors:
        case Command::GoToSelectedTask:
            return view_ && view_->SelectedTask();
        default:
            return view_ != nullptr;
    }
}

void Workbench::Run(Command command) {
    if (!IsEnabled(command)) return;
    Guarded([&] {
        if (!RunFileCommand(command) && !RunFactorCommand(command)) RunViewCommand(command);
    });
}

bool Workbench::RunFileCommand(Command command) {
    switch (command) {
        case Command::Open:
            if (document_.OpenByDialog()) PlanOpened();
            return true;
        case Command::Save:
            document_.Save();
            return true;
        case Command::SaveAs:
            document_.SaveAs();
            return true;
        case Command::Exit:
            if (document_.MayClose()) parts_.window.Quit();
            return true;
        case Command::RunAnalysis:
            RunAnalysisCommand();
            return true;
        case Command::ShowResults:
            ShowResults();
            return true;
        case Command::WriteReport:
            WriteReportByDialog(parts_, document_);
            return true;
        default:
            return false;
    }
}

bool Workbench::RunFactorCommand(Command command) {
    switch (command) {
        case Command::EditFactors:
            parts_.addIn.LaunchEdit();
            return true;
        case Command::AssignFactors:
            parts_.addIn.LaunchAssign();
            return true;
        case Command::ShowDrivingRisks:
            parts_.addIn.LaunchShow();
            return true;
        case Command::SaveFactors:
            parts_.addIn.LaunchSave();
            return true;
        case Command::LoadFactors:
            parts_.addIn.LaunchLoad();
            return true;
        case Command::ImportTable:
            ImportTableByDialog(parts_);
            return true;
        case Command::ExportTable:
            ExportTableByDialog(parts_, document_);
            return true;
        case Command::FactorOptions:
            parts_.addIn.LaunchOptions();
            return true;
        default:
            return false;
    }
}

void Workbench::RunViewCommand(Command command) {
    switch (command) {
        case Command::ZoomIn:
            return view_->Zoom(1);
        case Command::ZoomOut:
            return view_->Zoom(-1);
        case Command::WholePlan:
            return view_->ShowWholePlan();
        case Command::GoToToday:
            return view_->GoTo(parts_.window.Now());
        case Command::GoToSelectedTask:
            return view_->GoToSelectedTask();
        case Command::ExpandAll:
            return view_->SetAllExpanded(true);
        case Command::CollapseAll:
            return view_->SetAllExpanded(false);
        case Command::ShowKeys:
            return Tell(kKeys);
        case Command::About:
            return Tell(kAbout);
        default:
            return;
    }
}

void Workbench::Open(const std::string& path) {
    Guarded([&] {
        if (document_.Open(path)) PlanOpened();
    });
}

void Workbench::PlanOpened() {
    results_.reset();
    view_ = std::make_unique<PlanView>(parts_.host.OpenPlan());
    view_->OnOpenTask = [this] { Run(Command::AssignFactors); };
    parts_.window.Refresh();
}

bool Workbench::MayClose() {
    bool may = false;
    Guarded([&] { may = document_.MayClose(); });
    return may;
}

bool Workbench::Sync() { return view_ && !analysing_ && view_->Sync(); }

void Workbench::RunAnalysisCommand() {
    HostPlan& plan = *parts_.host.OpenPlan();
    frmRunAnalysis ask(parts_.desktop, plan.Live().Data().analysis);
    parts_.runner.ShowModal(ask);
    if (!ask.Result()) return;
    parts_.addIn.LaunchStartSchedulon();
    PlanResults found;
    found.plan = plan.Live().Snapshot();
    found.settings = *ask.Result();
    found.when = parts_.window.Now();
    {
        const Flag analysing(analysing_);
        FollowedAnalysis watcher(parts_.window, found.settings.iterations, plan.Live());
        found.results = refhost::RunAnalysis(parts_.host, found.settings, &watcher);
        found.criticality = watcher.Criticality();
    }
    if (found.results.cancelled)
        return Tell("The analysis was cancelled after " +
                    std::to_string(found.results.finish.size()) +
                    " iterations; its results are not kept" +
                    (results_ ? ", those of the one before are." : "."));
    results_ = std::move(found);
    view_->ShowCriticality(results_->criticality);
    AnalyseWithout();
    const Summary finish = Summarise(results_->results.finish);
    resultText_ = std::to_string(results_->settings.iterations) + " iterations, seed " +
                  std::to_string(results_->settings.seed) + ": P50 " +
                  SerialText(finish.p50).substr(0, 10) + ", P80 " +
                  SerialText(finish.p80).substr(0, 10);
    Sync();
    parts_.window.Refresh();
    ShowResults();
}

/// The same analysis in which no factor occurs; left out when the user cancels it.
void Workbench::AnalyseWithout() {
    const std::unique_ptr<kestrel::Desktop> mute = parts_.threadDesktops();  // all has been told
    WorkProgress progress(parts_.window, "Risk Analysis");
    StageWatcher watcher("Without risk factors", results_->settings.iterations, progress);
    AnalysisResults without =
        AnalyseWithoutFactors(results_->plan, results_->settings, *mute, &watcher);
    if (!without.cancelled) results_->without = std::move(without);
}

std::optional<Priorities> Workbench::Calculate(Outcome outcome) {
    PriorityQuestion question;
    question.settings = results_->settings;
    question.outcome = outcome;
    question.threads = std::max(1u, std::thread::hardware_concurrency());
    const std::unique_ptr<kestrel::Desktop> mute = parts_.threadDesktops();
    WorkProgress progress(parts_.window, "Risk Factors");
    Priorities found =
        Prioritise(results_->plan, question, *mute, parts_.threadDesktops,
                   [&](std::int32_t done, std::int32_t atMost) {
                       return progress.Show("What each risk factor costs", done, atMost);
                   });
    if (found.cancelled) return std::nullopt;
    return found;
}

void Workbench::ShowResults() {
    frmResults form(parts_.desktop, *results_, parts_.host.OpenPlan()->Live().ResultsUpToDate(),
                    [this](Outcome outcome) { return Calculate(outcome); });
    parts_.runner.ShowModal(form);
}

std::string Workbench::StatusText() {
    if (parts_.host.Busy()) return parts_.host.StatusText();
    if (!view_) return "Open a plan or a project file: Ctrl+O";
    if (!results_) return std::to_string(view_->Outline().TaskCount()) + " tasks";
    return resultText_ + (parts_.host.OpenPlan()->Live().ResultsUpToDate() ? "" : " (out of date)");
}

std::string Workbench::FinishText() const {
    return view_ ? "Finish " + DateAndTimeText(view_->Figures().Finish()) : "";
}

std::string Workbench::CostText() const {
    return view_ ? "Cost " + MoneyText(view_->Figures().Cost()) : "";
}

}  // namespace refhost
