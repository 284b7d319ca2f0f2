#include <optional>

#include "base/Errors.h"
#include "refhost/charts/FigureText.h"
#include "refhost/charts/FinishDistribution.h"
#include "refhost/cli/AddIn.h"
#include "refhost/cli/AnalysisArguments.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/FactorTracker.h"
#include "refhost/cli/FilePath.h"
#include "refhost/cli/ImportArguments.h"
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
class Charts {
 public:
    Charts(const Arguments& arguments, Outputs& outputs) : tornado_(outputs.Find("--chart")) {
        if (!tornado_ || tornado_->IsStraight()) return;
        std::filesystem::path path = FilePath(arguments.Word("--chart"));
        path.replace_filename(FilePath(Utf8Path(path.stem()) + "-finish.svg"));
        finish_ = &outputs.AddBeside("--chart", Utf8Path(path));
    }

    void Write(Session& session, const AnalysisResults& results) {
        if (tornado_)
            tornado_->Write(TornadoSvg(session, kestrel::ui::Measure::Duration, kDefaultTopRisks));
        if (finish_)
            finish_->Write(FinishDistributionSvg(
                results.finish, session.Plan().Name(),
                [](double serial) { return SerialText(serial).substr(0, 10); }));
    }

 private:
    Outputs::File* tornado_;
    Outputs::File* finish_ = nullptr;
};

}  // namespace

void Analyse(const Arguments& arguments, Outputs& outputs) {
    Charts charts(arguments, outputs);
    Session session(arguments.Word("PLAN"), outputs, ReadImportOptions(arguments));
    RefuseImportOptions(arguments, session.Imported());
    FactorTracker factors(session.Host(), session.Desktop());
    const AnalysisSettings settings =
        SettingsOf(arguments, session.Plan().Live().Data(), factors.Register().size());
    std::optional<TraceWriter> trace;
    if (auto* file = outputs.Find("--trace")) trace.emplace(session.Host(), factors, *file);

    AnalysisResults results;
    {
        CommandWatcher watcher(factors, trace ? &*trace : nullptr, settings.iterations);
        results = RunWithAddIn(session, settings, watcher);
    }
    if (results.cancelled)
        throw kestrel::DataError("The analysis was cancelled after " +
                                 std::to_string(results.finish.size()) +
                                 " iterations; nothing is written.");
    const Report report = MakeReport(session, settings, results, factors);

    if (auto* file = outputs.Find("--json")) file->Write(ReportJson(report));
    charts.Write(session, results);
    if (auto* file = outputs.Find("--save")) session.SavePlan(*file);
    outputs.Tell(ReportText(report));
}

}  // namespace refhost
