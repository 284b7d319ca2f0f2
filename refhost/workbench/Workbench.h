#pragma once

#include <memory>
#include <optional>
#include <string>

#include "refhost/gantt/PlanView.h"
#include "refhost/results/LaboratoryPool.h"
#include "refhost/workbench/AddInCommands.h"
#include "refhost/workbench/PlanDocument.h"
#include "refhost/workbench/ResultsView.h"
#include "refhost/workbench/WorkbenchCommand.h"

namespace refhost {

/// What the workbench asks of the window that shows it.
class WorkbenchWindow {
 public:
    virtual ~WorkbenchWindow() = default;
    /// Shows the workbench as it is now. Called whenever anything may have changed.
    virtual void Refresh() = 0;
    /// Shows a form beside the work of this thread until HideProgress.
    virtual void ShowProgress(kestrel::ui::Form& form) = 0;
    /// Paints that form and lets in what the user does to it.
    virtual void RefreshProgress() = 0;
    virtual void HideProgress() noexcept = 0;
    /// Ends the program.
    virtual void Quit() = 0;
    /// The user's date and time.
    virtual Minute Now() = 0;
};

/// What the host's window does: the open plan with its view, the commands of the menus, the texts
/// of title and status bar. Failures are told to the user and go no further.
class Workbench {
 public:
    /// All that is referred to must outlive the workbench.
    struct Parts {
        ReferenceHost& host;
        Settings& settings;
        kestrel::Desktop& desktop;
        kestrel::ui::FormRunner& runner;
        AddInCommands& addIn;
        WorkbenchWindow& window;
        DesktopMaker threadDesktops;  ///< for analyses on other threads
    };
    explicit Workbench(const Parts& parts);

    PlanDocument& Document() { return document_; }
    /// Nothing while no plan is open.
    PlanView* View() { return view_.get(); }
    /// Of the last analysis of the open plan; nothing before one.
    const PlanResults* Results() const { return results_ ? &*results_ : nullptr; }

    /// Does nothing for a command that is not enabled now, or while another one runs.
    void Run(WorkbenchCommand command);
    bool IsEnabled(WorkbenchCommand command) const;
    void Open(const std::string& path);
    /// Whether the window may close; the user has been asked about unsaved changes.
    bool MayClose();

    /// The user's date and time.
    Minute Now() { return parts_.window.Now(); }

    /// Takes over what the add-in or a program has changed. Answers whether there is anything to
    /// repaint.
    bool Sync();
    /// The host's own status text while it is busy, or else what there is to say of the plan.
    std::string StatusText();
    std::string FinishText() const;
    std::string CostText() const;

 private:
    struct Facts;

    void RunAnalysisCommand();
    void TakeResults(std::optional<PlanResults> results);
    void KeepResults();
    void ShowResults();
    void PlanOpened();
    /// Runs a command and tells its failure.
    template <class Command>
    void Guarded(Command&& command);
    void Tell(const std::string& text);

    Parts parts_;
    PlanDocument document_;
    std::unique_ptr<PlanView> view_;
    std::optional<PlanResults> results_;
    std::string resultText_;  ///< `results_` in short
    bool running_ = false;    ///< a command runs
    bool analysing_ = false;  ///< the plan holds an iteration's figures
};

}  // namespace refhost
