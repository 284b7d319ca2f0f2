#include "refhost/workbench/Workbench.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "base/Errors.h"
#include "refhost/charts/FigureText.h"
#include "refhost/engine/Statistics.h"
#include "refhost/workbench/FollowedAnalyses.h"
#include "refhost/workbench/ReportWriter.h"
#include "refhost/workbench/TableExchange.h"
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

/// What a command needs and does; a row a command.
struct Workbench::Facts {
    enum Needs { Nothing, Plan, SelectedTask, AnalysisResults };
    Command command;
    Needs needs;
    void (*run)(Workbench& bench);

    static const Facts& Of(Command command);
};

const Workbench::Facts& Workbench::Facts::Of(Command command) {
    using Bench = Workbench;
    static constexpr Facts kFacts[] = {
        {Command::Open, Nothing,
         [](Bench& b) {
             if (b.document_.OpenByDialog()) b.PlanOpened();
         }},
        {Command::Save, Plan, [](Bench& b) { b.document_.Save(); }},
        {Command::SaveAs, Plan, [](Bench& b) { b.document_.SaveAs(); }},
        {Command::Exit, Nothing,
         [](Bench& b) {
             if (b.document_.MayClose()) b.parts_.window.Quit();
         }},
        {Command::RunAnalysis, Plan, [](Bench& b) { b.RunAnalysisCommand(); }},
        {Command::ShowResults, AnalysisResults, [](Bench& b) { b.ShowResults(); }},
        {Command::WriteReport, Plan, [](Bench& b) { WriteReportByDialog(b.parts_, b.document_); }},
        {Command::EditFactors, Plan, [](Bench& b) { b.parts_.addIn.LaunchEdit(); }},
        {Command::AssignFactors, SelectedTask, [](Bench& b) { b.parts_.addIn.LaunchAssign(); }},
        {Command::ShowDrivingRisks, Plan, [](Bench& b) { b.parts_.addIn.LaunchShow(); }},
        {Command::SaveFactors, Plan, [](Bench& b) { b.parts_.addIn.LaunchSave(); }},
        {Command::LoadFactors, Plan, [](Bench& b) { b.parts_.addIn.LaunchLoad(); }},
        {Command::ImportTable, Plan, [](Bench& b) { ImportTableByDialog(b.parts_); }},
        {Command::ExportTable, Plan, [](Bench& b) { ExportTableByDialog(b.parts_, b.document_); }},
        {Command::FactorOptions, Plan, [](Bench& b) { b.parts_.addIn.LaunchOptions(); }},
        {Command::ZoomIn, Plan, [](Bench& b) { b.view_->Zoom(1); }},
        {Command::ZoomOut, Plan, [](Bench& b) { b.view_->Zoom(-1); }},
        {Command::WholePlan, Plan, [](Bench& b) { b.view_->ShowWholePlan(); }},
        {Command::GoToToday, Plan, [](Bench& b) { b.view_->GoTo(b.Now()); }},
        {Command::GoToSelectedTask, SelectedTask, [](Bench& b) { b.view_->GoToSelectedTask(); }},
        {Command::ExpandAll, Plan, [](Bench& b) { b.view_->SetAllExpanded(true); }},
        {Command::CollapseAll, Plan, [](Bench& b) { b.view_->SetAllExpanded(false); }},
        {Command::ShowKeys, Nothing, [](Bench& b) { b.Tell(kKeys); }},
        {Command::About, Nothing, [](Bench& b) { b.Tell(kAbout); }},
    };
    const auto found =
        std::find_if(std::begin(kFacts), std::end(kFacts),
                     [command](const Facts& facts) { return facts.command == command; });
    if (found == std::end(kFacts)) throw std::logic_error("a command without facts");
    return *found;
}

bool Workbench::IsEnabled(Command command) const {
    switch (Facts::Of(command).needs) {
        case Facts::Plan:
            return view_ != nullptr;
        case Facts::SelectedTask:
            return view_ && view_->SelectedTask();
        case Facts::AnalysisResults:
            return results_.has_value();
        case Facts::Nothing:
            break;
    }
    return true;
}

void Workbench::Run(Command command) {
    if (IsEnabled(command)) Guarded([&] { Facts::Of(command).run(*this); });
}

void Workbench::Open(const std::string& path) {
    Guarded([&] {
        if (document_.Open(path)) PlanOpened();
    });
}

void Workbench::PlanOpened() {
    view_ = std::make_unique<PlanView>(parts_.host.OpenPlan());
    TakeResults(ResultsOf(*parts_.host.OpenPlan()));
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
    frmRunAnalysis ask(parts_.desktop, parts_.host.OpenPlan()->Data().analysis);
    parts_.runner.ShowModal(ask);
    if (!ask.Result()) return;
    parts_.addIn.LaunchStartSchedulon();
    PlanResults found;
    {
        const Flag analysing(analysing_);
        found = AnalyseOpenPlan(parts_, *ask.Result());
    }
    if (found.results.cancelled)
        return Tell("The analysis was cancelled after " +
                    std::to_string(found.results.finish.size()) +
                    " iterations; its results are not kept" +
                    (results_ ? ", those of the one before are." : "."));
    TakeResults(std::move(found));
    results_->without = AnalyseWithout(parts_, *results_);
    KeepResults();
    Sync();
    parts_.window.Refresh();
    ShowResults();
}

void Workbench::TakeResults(std::optional<PlanResults> results) {
    results_ = std::move(results);
    if (!results_) return;
    resultText_ = ShortText(*results_);
    view_->ShowCriticality(CriticalityOf(*results_, results_->plan));
}

/// Has them saved with the plan.
void Workbench::KeepResults() {
    const bool fit = results_->settings.iterations <= kMostStoredIterations;
    parts_.host.OpenPlan()->SetResults(fit ? std::make_shared<StoredResults>(*results_) : nullptr);
}

void Workbench::ShowResults() {
    bool calculated = false;
    frmResults::Calculator calculator;
    if (results_->planIsAnalysed)
        calculator = [&](Outcome outcome) {
            auto found = PrioritiseFactors(parts_, *results_, outcome);
            calculated |= found.has_value();
            return found;
        };
    frmResults form(parts_.desktop, *results_, parts_.host.OpenPlan()->ResultsUpToDate(),
                    calculator);
    parts_.runner.ShowModal(form);
    if (calculated) KeepResults();
}

std::string Workbench::StatusText() {
    if (parts_.host.Busy()) return parts_.host.StatusText();
    if (!view_) return "Open a plan or a project file: Ctrl+O";
    if (!results_) return std::to_string(view_->Outline().TaskCount()) + " tasks";
    return resultText_ + (parts_.host.OpenPlan()->ResultsUpToDate() ? "" : " (out of date)");
}

std::string Workbench::FinishText() const {
    return view_ ? "Finish " + DateAndTimeText(view_->Figures().Finish()) : "";
}

std::string Workbench::CostText() const {
    return view_ ? "Cost " + MoneyText(view_->Figures().Cost()) : "";
}

}  // namespace refhost
