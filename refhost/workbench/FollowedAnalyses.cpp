#include "refhost/workbench/FollowedAnalyses.h"

#include <algorithm>
#include <thread>
#include <tuple>

#include "refhost/engine/Criticality.h"
#include "refhost/results/TaskFinishes.h"
#include "refhost/workbench/WorkProgress.h"

namespace refhost {
namespace {

/// The open plan's analysis: its progress and the tasks that are critical.
class PlanWatcher : public AnalysisWatcher {
 public:
    PlanWatcher(WorkbenchWindow& window, std::int32_t iterations, LivePlan& plan)
        : progress_(window, "Risk Analysis"),
          iterations_(iterations),
          plan_(plan),
          criticality_(plan.Data()),
          finishes_(plan.Data(), iterations) {
        progress_.Show("Preparing", 0, iterations);
    }

    bool AfterIteration(std::int32_t number, std::span<const std::int32_t>,
                        const AnalysisResults&) override {
        const Network& network = plan_.Scheduled();
        criticality_.Note(network);
        finishes_.Note(number, network);
        return progress_.ShowIteration(number, iterations_);
    }

    /// Once all iterations are done.
    void TellTasks(StoredResults& found) const {
        found.tasksEvery = finishes_.Every();
        const auto percentiles = finishes_.Percentiles(plan_.WorkingTime());
        auto next = percentiles.begin();
        for (std::size_t task = 0; task < plan_.TaskCount(); ++task) {
            TaskResult figures{plan_.Data().tasks[task].id, criticality_.Of(task), {}, {}};
            if (!plan_.IsSummary(task)) std::tie(figures.p50, figures.p80) = *next++;
            found.tasks.push_back(std::move(figures));
        }
    }

 private:
    WorkProgress progress_;
    std::int32_t iterations_;
    LivePlan& plan_;
    Criticality criticality_;
    TaskFinishes finishes_;
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

}  // namespace

PlanResults AnalyseOpenPlan(const Workbench::Parts& parts, const AnalysisSettings& settings) {
    LivePlan& plan = *parts.host.OpenPlan();
    PlanResults found;
    found.plan = plan.Snapshot();
    found.settings = settings;
    found.when = parts.window.Now();
    PlanWatcher watcher(parts.window, settings.iterations, plan);
    found.results = RunAnalysis(parts.host, settings, &watcher);
    if (!found.results.cancelled) watcher.TellTasks(found);
    return found;
}

std::optional<AnalysisResults> AnalyseWithout(const Workbench::Parts& parts,
                                              const PlanResults& with) {
    const std::unique_ptr<kestrel::Desktop> mute = parts.threadDesktops();  // all has been told
    WorkProgress progress(parts.window, "Risk Analysis");
    StageWatcher watcher("Without risk factors", with.settings.iterations, progress);
    AnalysisResults without = AnalyseWithoutFactors(with.plan, with.settings, *mute, &watcher);
    if (without.cancelled) return std::nullopt;
    return without;
}

std::optional<Priorities> PrioritiseFactors(const Workbench::Parts& parts,
                                            const PlanResults& analysed, Outcome outcome) {
    PriorityQuestion question;
    question.settings = analysed.settings;
    question.outcome = outcome;
    question.threads = std::max(1u, std::thread::hardware_concurrency());
    const std::unique_ptr<kestrel::Desktop> mute = parts.threadDesktops();
    WorkProgress progress(parts.window, "Risk Factors");
    Priorities found =
        Prioritise(analysed.plan, question, *mute, parts.threadDesktops,
                   [&](std::int32_t done, std::int32_t atMost) {
                       return progress.Show("What each risk factor costs", done, atMost);
                   });
    if (found.cancelled) return std::nullopt;
    return found;
}

}  // namespace refhost
