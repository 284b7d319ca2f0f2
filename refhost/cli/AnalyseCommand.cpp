#include <filesystem>
#include <optional>

#include "base/Errors.h"
#include "refhost/charts/FigureText.h"
#include "refhost/charts/FinishDistribution.h"
#include "refhost/cli/AddIn.h"
#include "refhost/cli/AnalysisArguments.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/ImportArguments.h"
#include "refhost/cli/Progress.h"
#include "refhost/cli/Report.h"
#include "refhost/cli/Session.h"
#include "refhost/cli/ShowCommand.h"
#include "refhost/cli/TraceWriter.h"
#include "refhost/engine/Criticality.h"
#include "refhost/files/ValueText.h"
#include "refhost/results/FactorTracker.h"
#include "refhost/system/FilePath.h"

namespace refhost {
namespace {

/// Counts occurrences, writes the trace and shows progress while the analysis runs.
class CommandWatcher : public AnalysisWatcher {
 public:
    CommandWatcher(LivePlan& plan, FactorTracker& factors, TraceWriter* trace,
                   Criticality* criticality, std::int32_t iterations)
        : plan_(plan),
          factors_(factors),
          trace_(trace),
          criticality_(criticality),
          progress_(iterations) {}

    bool AfterIteration(std::int32_t number, std::span<const std::int32_t> drawn,
                        const AnalysisResults& soFar) override {
        factors_.Follow();
        if (trace_) trace_->Write(number, drawn, soFar.finish.back(), soFar.cost.back());
        if (criticality_) criticality_->Note(plan_.Scheduled());
        progress_.Show(number);
        return !progress_.CancelRequested();
    }

 private:
    LivePlan& plan_;
    FactorTracker& factors_;
    TraceWriter* trace_;
    Criticality* criticality_;
    Progress progress_;
};

AnalysisResults RunWithAddIn(Session& session, const AnalysisSettings& settings,
                             AnalysisWatcher& watcher) {
    const auto addIn = MakeAddIn(session);
    addIn->Start();
    return RunAnalysis(session.Host(), settings, &watcher);
}

std::optional<Minute> TargetFinish(const Arguments& arguments) {
    const auto text = arguments.Option("--target-finish");
    if (!text) return std::nullopt;
    if (const auto date = ReadTargetDate(*text)) return date;
    throw UsageError("'" + *text + "' is no value for --target-finish; give a date as 2027-10-01 " +
                     "or 2027-10-01T17:00");
}

std::optional<double> TargetCost(const Arguments& arguments) {
    const auto text = arguments.Option("--target-cost");
    if (!text) return std::nullopt;
    if (const auto number = ReadNumber(*text)) return number;
    throw UsageError("'" + *text + "' is no value for --target-cost; give an amount as 31500000");
}

/// The tornado chart, and beside it the distribution of the finish (NAME-finish.svg).
class Charts {
 public:
    Charts(const Arguments& arguments, Outputs& outputs) : tornado_(outputs.Find("--chart")) {
        if (!tornado_ || tornado_->IsStraight()) return;
        std::filesystem::path path = FilePath(arguments.Word("--chart"));
        path.replace_filename(FilePath(Utf8Path(path.stem()) + "-finish.svg"));
        finish_ = &outputs.AddBeside("--chart", Utf8Path(path));
    }

    void Write(const Report& report, const AnalysisResults& results) {
        if (tornado_)
            tornado_->Write(TornadoSvg(WithAlignedSensitivities(report.factors, report.figures),
                                       report.planName, kestrel::ui::Measure::Duration,
                                       kDefaultTopRisks,
                                       "Correlation of one impact per iteration with the finish"));
        if (finish_)
            finish_->Write(FinishDistributionSvg(
                results.finish, report.planName,
                [](double serial) { return SerialText(serial).substr(0, 10); }));
    }

 private:
    Outputs::File* tornado_;
    Outputs::File* finish_ = nullptr;
};

struct Analysed {
    AnalysisResults results;
    Report report;
};

/// Analyses the session's plan with the add-in attached. The trace may be nullptr. Raises
/// kestrel::DataError when the user cancels.
Analysed AnalyseSession(Session& session, const AnalysisSettings& settings, FactorTracker& factors,
                        TraceWriter* trace, bool withCriticality) {
    LivePlan& plan = session.Plan();
    std::optional<Criticality> criticality;
    if (withCriticality) criticality.emplace(plan.Data());
    Analysed analysed;
    {
        CommandWatcher watcher(plan, factors, trace, criticality ? &*criticality : nullptr,
                               settings.iterations);
        analysed.results = RunWithAddIn(session, settings, watcher);
    }
    if (analysed.results.cancelled)
        throw kestrel::DataError("The analysis was cancelled after " +
                                 std::to_string(analysed.results.finish.size()) +
                                 " iterations; nothing is written.");
    analysed.report =
        MakeReport(session.Host(), session.Desktop(), settings, analysed.results, factors);
    if (criticality) analysed.report.tasks = SharesOf(plan.Data(), *criticality);
    return analysed;
}

}  // namespace

void Analyse(const Arguments& arguments, Outputs& outputs) {
    Charts charts(arguments, outputs);
    const auto targetFinish = TargetFinish(arguments);
    const auto targetCost = TargetCost(arguments);
    Session session(arguments.Word("PLAN"), outputs, ReadImportOptions(arguments));
    RefuseImportOptions(arguments, session.Imported());
    FactorTracker factors(session.Host(), session.Desktop());
    const AnalysisSettings settings =
        SettingsOf(arguments, session.Plan().Data(), factors.Register().size());
    std::optional<TraceWriter> trace;
    if (auto* file = outputs.Find("--trace")) trace.emplace(session.Host(), factors, *file);

    auto [results, report] = AnalyseSession(session, settings, factors, trace ? &*trace : nullptr,
                                            arguments.Has("--criticality"));
    if (targetFinish || targetCost) report.target = ChancesOf(results, targetFinish, targetCost);

    if (auto* file = outputs.Find("--json")) file->Write(ReportJson(report));
    charts.Write(report, results);
    if (auto* file = outputs.Find("--save")) session.SavePlan(*file);
    outputs.Tell(ReportText(report));
}

}  // namespace refhost
