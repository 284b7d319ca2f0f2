#include "refhost/engine/Analysis.h"

#include "refhost/engine/DurationSampler.h"

namespace refhost {
namespace {

/// Keeps the plan's durations and costs and puts them back at the end, however it comes.
class BaseKeeper {
 public:
    explicit BaseKeeper(LivePlan& plan) : plan_(plan) { plan_.KeepBase(); }
    ~BaseKeeper() { Restore(); }
    BaseKeeper(const BaseKeeper&) = delete;
    BaseKeeper& operator=(const BaseKeeper&) = delete;
    void Restore() {
        if (restored_) return;
        restored_ = true;
        plan_.PutAutoCalculate(true);
        plan_.RestoreBase();
    }

 private:
    LivePlan& plan_;
    bool restored_ = false;
};

void RunIterations(ReferenceHost& application, std::int32_t iterations, AnalysisWatcher* watcher,
                   AnalysisResults& results) {
    HostPlan& plan = *application.OpenPlan();
    DurationSampler sampler(plan);
    for (std::int32_t number = 1; number <= iterations && !results.cancelled; ++number) {
        plan.NumbersHandedOut().clear();
        const std::span<const std::int32_t> drawn = sampler.Draw(plan.Stream());
        plan.BeginIteration(drawn);
        plan.GroupList().Sample(plan.Stream());
        application.RaiseAfterRiskIteration();
        results.finish.push_back(DateSerial(plan.FinishDate()));
        results.cost.push_back(plan.TotalCost());
        if (watcher && !watcher->AfterIteration(number, drawn, results)) results.cancelled = true;
    }
}

}  // namespace

AnalysisResults RunAnalysis(ReferenceHost& application, const AnalysisSettings& settings,
                            AnalysisWatcher* watcher) {
    const ReferenceHost::AnalysisMark running(application);
    HostPlan& plan = *application.OpenPlan();
    AnalysisSettings kept = settings;
    kept.upToDate = false;
    plan.SetAnalysis(kept);
    plan.Stream().Seed(settings.seed);

    AnalysisResults results;
    results.deterministicFinish = plan.FinishDate();
    results.deterministicCost = plan.TotalCost();
    BaseKeeper base(plan);
    application.RaiseBeforeRiskAnalysis();
    RunIterations(application, settings.iterations, watcher, results);
    base.Restore();
    application.RaiseAfterRiskAnalysis();
    if (!results.cancelled) {
        kept.upToDate = true;
        plan.SetAnalysis(kept);
        plan.SetResults(nullptr);  // those of an earlier analysis
    }
    return results;
}

}  // namespace refhost
