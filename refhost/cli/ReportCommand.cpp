#include "refhost/cli/AnalyseCommand.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/MuteDesktop.h"
#include "refhost/cli/PrioritiseCommand.h"
#include "refhost/results/ReportPage.h"
#include "util/modToolBox.h"

namespace refhost {
namespace {

ReportAssumptions AssumptionsOf(const Arguments& arguments) {
    ReportAssumptions assumptions;
    const std::string list = arguments.Option("--assumptions").value_or("");
    if (list.empty()) return assumptions;
    for (int piece = 1; piece <= kestrel::CountListItems(list, ","); ++piece) {
        const std::string item = kestrel::GetListItem(list, piece, ",");
        if (item == "percentages")
            assumptions.percentages = true;
        else if (item == "distributions")
            assumptions.distributions = true;
        else if (item == "assignments")
            assumptions.assignments = true;
        else
            throw UsageError("'" + item +
                             "' is no value for --assumptions; name percentages, distributions, "
                             "assignments, parted by commas");
    }
    return assumptions;
}

}  // namespace

void WriteReport(const Arguments& arguments, Outputs& outputs) {
    const ReportAssumptions assumptions = AssumptionsOf(arguments);
    Session session(arguments.Word("PLAN"), outputs);
    const PlanData plan = session.Plan().Live().Snapshot();
    PriorityQuestion question = QuestionOf(arguments, session);

    FactorTracker factors(session.Host(), session.Desktop());
    const auto [results, report] =
        AnalyseSession(session, question.settings, factors, nullptr, true);
    MuteDesktop mute;  // the analysis has told what there is to tell
    const AnalysisResults without = AnalyseWithoutFactors(plan, question.settings, mute);
    const Priorities finish = RunPrioritise(plan, question, mute);
    question.outcome = Outcome::Cost;
    const Priorities cost = RunPrioritise(plan, question, mute);
    outputs.Find("-o")->Write(
        ReportPage({plan, report, results, without, finish, cost, assumptions}));
}

}  // namespace refhost
