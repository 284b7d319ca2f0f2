#include "refhost/results/ReportRun.h"

#include "refhost/engine/Criticality.h"
#include "refhost/results/Laboratory.h"

namespace refhost {
namespace {

/// One analysis of the report.
class Stage : public AnalysisWatcher {
 public:
    Stage(const char* what, std::int32_t iterations, const ReportProgress& progress)
        : what_(what), iterations_(iterations), progress_(progress) {}

    bool AfterIteration(std::int32_t number, std::span<const std::int32_t>,
                        const AnalysisResults&) override {
        return progress_(what_, number, iterations_);
    }

 private:
    const char* what_;
    std::int32_t iterations_;
    const ReportProgress& progress_;
};

/// The first, which follows factors and tasks.
class FollowedStage : public Stage {
 public:
    FollowedStage(const char* what, std::int32_t iterations, const ReportProgress& progress,
                  LivePlan& plan, FactorTracker& factors, Criticality& criticality)
        : Stage(what, iterations, progress),
          plan_(plan),
          factors_(factors),
          criticality_(criticality) {}

    bool AfterIteration(std::int32_t number, std::span<const std::int32_t> drawn,
                        const AnalysisResults& soFar) override {
        factors_.Follow();
        criticality_.Note(plan_.Scheduled());
        return Stage::AfterIteration(number, drawn, soFar);
    }

 private:
    LivePlan& plan_;
    FactorTracker& factors_;
    Criticality& criticality_;
};

struct Followed {
    AnalysisResults results;
    Report report;
};

/// Nothing when cancelled.
std::optional<Followed> AnalyseFollowed(const PlanData& plan, const AnalysisSettings& settings,
                                        kestrel::Desktop& desktop, const ReportProgress& progress) {
    Laboratory laboratory(plan, desktop);
    LivePlan& live = *laboratory.Host().OpenPlan();
    FactorTracker factors(laboratory.Host(), desktop);
    Criticality criticality(live.Data());
    FollowedStage stage("With every risk factor", settings.iterations, progress, live, factors,
                        criticality);
    Followed found;
    found.results = RunAnalysis(laboratory.Host(), settings, &stage);
    if (found.results.cancelled) return std::nullopt;
    found.report = MakeReport(laboratory.Host(), desktop, settings, found.results, factors);
    found.report.tasks = SharesOf(live.Data(), criticality);
    return found;
}

}  // namespace

std::optional<std::string> MakeReportPage(const PlanData& plan, PriorityQuestion question,
                                          const ReportAssumptions& assumptions,
                                          kestrel::Desktop& desktop, const DesktopMaker& desktops,
                                          const ReportProgress& progress) {
    const auto followed = AnalyseFollowed(plan, question.settings, desktop, progress);
    if (!followed) return std::nullopt;

    const std::unique_ptr<kestrel::Desktop> mute = desktops();  // what is to be told has been
    Stage withoutStage("Without risk factors", question.settings.iterations, progress);
    const AnalysisResults without =
        AnalyseWithoutFactors(plan, question.settings, *mute, &withoutStage);
    if (without.cancelled) return std::nullopt;

    const auto prioritise = [&](Outcome outcome, const char* what) {
        question.outcome = outcome;
        return Prioritise(
            plan, question, *mute, desktops,
            [&](std::int32_t done, std::int32_t atMost) { return progress(what, done, atMost); });
    };
    const Priorities finish = prioritise(Outcome::Finish, "What each risk factor costs in days");
    if (finish.cancelled) return std::nullopt;
    const Priorities cost = prioritise(Outcome::Cost, "What each risk factor costs in money");
    if (cost.cancelled) return std::nullopt;
    return ReportPage(
        {plan, followed->report, followed->results, without, finish, cost, assumptions});
}

}  // namespace refhost
