#include <iostream>
#include <limits>
#include <memory>

#include "base/Errors.h"
#include "refhost/charts/FigureText.h"
#include "refhost/charts/FinishDistribution.h"
#include "refhost/cli/AddIn.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/FactorTracker.h"
#include "refhost/cli/FilePath.h"
#include "refhost/cli/ImportArguments.h"
#include "refhost/cli/Output.h"
#include "refhost/cli/Progress.h"
#include "refhost/cli/Report.h"
#include "refhost/cli/Session.h"
#include "refhost/cli/ShowCommand.h"
#include "refhost/cli/TraceWriter.h"

namespace refhost {
namespace {

/// Counts occurrences, writes the trace and shows progress while the analysis runs.
class CommandWatcher : public AnalysisWatcher {
 public:
    CommandWatcher(FactorTracker& factors, TraceWriter* trace, std::int32_t iterations)
        : factors_(factors), trace_(trace), progress_(iterations) {}

    bool AfterIteration(std::int32_t number, std::span<const std::int32_t> drawn,
                        const AnalysisResults& soFar) override {
        factors_.Follow();
        if (trace_) trace_->Write(number, drawn, soFar.finish.back(), soFar.cost.back());
        progress_.Show(number);
        return !progress_.CancelRequested();
    }

 private:
    FactorTracker& factors_;
    TraceWriter* trace_;
    Progress progress_;
};

AnalysisSettings SettingsOf(const Arguments& arguments, const PlanData& plan) {
    AnalysisSettings settings = plan.analysis;
    if (const auto iterations =
            arguments.Number("--iterations", 1, std::numeric_limits<std::int32_t>::max()))
        settings.iterations = static_cast<std::int32_t>(*iterations);
    if (const auto seed = arguments.Number("--seed", 0, std::numeric_limits<std::uint64_t>::max()))
        settings.seed = *seed;
    return settings;
}

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

/// The tornado chart, and beside it the distribution of the finish (NAME-finish.svg).
void WriteCharts(const std::string& path, Session& session, const AnalysisResults& results) {
    WriteOutput(path, TornadoSvg(session, kestrel::ui::Measure::Duration, kDefaultTopRisks));
    if (path == "-") return;
    std::filesystem::path finish = FilePath(path);
    finish.replace_filename(FilePath(Utf8Path(finish.stem()) + "-finish.svg"));
    WriteOutput(Utf8Path(finish),
                FinishDistributionSvg(results.finish, session.Plan().Name(), [](double serial) {
                    return SerialText(serial).substr(0, 10);
                }));
}

bool TakesStandardOutput(const Arguments& arguments) {
    for (const char* option : {"--json", "--trace", "--chart", "--save"})
        if (arguments.Option(option) == "-") return true;
    return false;
}

}  // namespace

void Analyse(const Arguments& arguments) {
    Session session(arguments.Positional(0), ReadImportOptions(arguments));
    RefuseImportOptions(arguments, session.Imported());
    const AnalysisSettings settings = SettingsOf(arguments, session.Plan().Live().Data());
    FactorTracker factors(session.Host(), session.Desktop());
    std::unique_ptr<TraceWriter> trace;
    if (const auto path = arguments.Option("--trace"))
        trace = std::make_unique<TraceWriter>(session.Host(), factors, *path);

    AnalysisResults results;
    {
        CommandWatcher watcher(factors, trace.get(), settings.iterations);
        results = RunWithAddIn(session, settings, watcher);
    }
    if (results.cancelled)
        throw kestrel::DataError("The analysis was cancelled after " +
                                 std::to_string(results.finish.size()) +
                                 " iterations; nothing is written.");
    const Report report = MakeReport(session, settings, results, factors);

    if (trace) trace->Commit();
    if (const auto path = arguments.Option("--json")) WriteOutput(*path, ReportJson(report));
    if (const auto path = arguments.Option("--chart")) WriteCharts(*path, session, results);
    if (const auto path = arguments.Option("--save")) session.SavePlan(*path);
    (TakesStandardOutput(arguments) ? std::cerr : std::cout) << ReportText(report) << std::flush;
}

}  // namespace refhost
