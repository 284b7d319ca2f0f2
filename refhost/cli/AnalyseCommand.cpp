#include "refhost/cli/AnalyseCommand.h"

#include <iostream>
#include <limits>
#include <memory>
#include <optional>

#include "base/Errors.h"
#include "refhost/charts/FigureText.h"
#include "refhost/charts/FinishDistribution.h"
#include "refhost/cli/AddIn.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/FilePath.h"
#include "refhost/cli/ImportArguments.h"
#include "refhost/cli/Output.h"
#include "refhost/cli/Progress.h"
#include "refhost/cli/Report.h"
#include "refhost/cli/Session.h"
#include "refhost/cli/ShowCommand.h"
#include "refhost/cli/TraceWriter.h"
#include "refhost/engine/Criticality.h"
#include "refhost/files/ValueText.h"
#include "refhost/results/FactorTracker.h"

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

Report MakeReport(Session& session, const AnalysisSettings& settings,
                  const AnalysisResults& results, const FactorTracker& factors) {
    Report report;
    report.planName = session.Plan().Name();
    report.settings = settings;
    report.deterministicFinish = results.deterministicFinish;
    report.deterministicCost = results.deterministicCost;
    report.finish = Summarise(results.finish);
    report.cost = Summarise(results.cost);
    report.factors = FactorTracker::ReadRegister(session.Host(), session.Desktop());
    report.figures = FiguresOf(factors, results);
    return report;
}

std::vector<TaskShare> SharesOf(const PlanData& plan, const Criticality& criticality) {
    std::vector<TaskShare> shares;
    for (std::size_t i = 0; i < plan.tasks.size(); ++i)
        if (plan.tasks[i].type == kOrdinary)
            shares.push_back({plan.tasks[i].id, plan.tasks[i].name, criticality.Of(i)});
    return shares;
}

/// "2027-10-01T17:00", seconds or not, "T" or a blank; a date alone stands for its end.
std::optional<Minute> TargetFinish(const Arguments& arguments) {
    const auto text = arguments.Option("--target-finish");
    if (!text) return std::nullopt;
    if (const auto day = ReadDate(*text)) return (Minute{*day} + 1) * kMinutesPerDay;
    std::string whole = *text;
    if (whole.size() > 10 && whole[10] == ' ') whole[10] = 'T';
    if (whole.size() == 16) whole += ":00";
    if (const auto instant = ReadDateTime(whole)) return instant;
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
void WriteCharts(const std::string& path, const Report& report, const AnalysisResults& results) {
    WriteOutput(path, TornadoSvg(WithAlignedSensitivities(report.factors, report.figures),
                                 report.planName, kestrel::ui::Measure::Duration, kDefaultTopRisks,
                                 "Correlation of one impact per iteration with the finish"));
    if (path == "-") return;
    std::filesystem::path finish = FilePath(path);
    finish.replace_filename(FilePath(Utf8Path(finish.stem()) + "-finish.svg"));
    WriteOutput(Utf8Path(finish),
                FinishDistributionSvg(results.finish, report.planName, [](double serial) {
                    return SerialText(serial).substr(0, 10);
                }));
}

bool TakesStandardOutput(const Arguments& arguments) {
    for (const char* option : {"--json", "--trace", "--chart", "--save"})
        if (arguments.Option(option) == "-") return true;
    return false;
}

}  // namespace

AnalysisSettings SettingsOf(const Arguments& arguments, const PlanData& plan) {
    AnalysisSettings settings = plan.analysis;
    if (const auto iterations =
            arguments.Number("--iterations", 1, std::numeric_limits<std::int32_t>::max()))
        settings.iterations = static_cast<std::int32_t>(*iterations);
    if (const auto seed = arguments.Number("--seed", 0, std::numeric_limits<std::uint64_t>::max()))
        settings.seed = *seed;
    return settings;
}

Analysed AnalyseSession(Session& session, const AnalysisSettings& settings, FactorTracker& factors,
                        TraceWriter* trace, bool withCriticality) {
    LivePlan& plan = session.Plan().Live();
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
    analysed.report = MakeReport(session, settings, analysed.results, factors);
    if (criticality) analysed.report.tasks = SharesOf(plan.Data(), *criticality);
    return analysed;
}

void Analyse(const Arguments& arguments) {
    Session session(arguments.Positional(0), ReadImportOptions(arguments));
    RefuseImportOptions(arguments, session.Imported());
    const AnalysisSettings settings = SettingsOf(arguments, session.Plan().Live().Data());
    const auto targetFinish = TargetFinish(arguments);
    const auto targetCost = TargetCost(arguments);
    FactorTracker factors(session.Host(), session.Desktop());
    std::unique_ptr<TraceWriter> trace;
    if (const auto path = arguments.Option("--trace"))
        trace = std::make_unique<TraceWriter>(session.Host(), factors, *path);

    auto [results, report] =
        AnalyseSession(session, settings, factors, trace.get(), arguments.Has("--criticality"));
    if (targetFinish || targetCost) report.target = ChancesOf(results, targetFinish, targetCost);

    if (trace) trace->Commit();
    if (const auto path = arguments.Option("--json")) WriteOutput(*path, ReportJson(report));
    if (const auto path = arguments.Option("--chart")) WriteCharts(*path, report, results);
    if (const auto path = arguments.Option("--save")) session.SavePlan(*path);
    (TakesStandardOutput(arguments) ? std::cerr : std::cout) << ReportText(report) << std::flush;
}

}  // namespace refhost
