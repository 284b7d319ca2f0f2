#include <optional>
#include <utility>

#include "base/Errors.h"
#include "refhost/cli/Commands.h"
#include "refhost/cli/PrioritiseCommand.h"
#include "refhost/cli/Progress.h"
#include "refhost/results/ReportRun.h"
#include "refhost/system/MuteDesktop.h"
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
    const PlanData plan = session.Plan().Snapshot();
    const PriorityQuestion question = QuestionOf(arguments, session);

    std::optional<Progress> progress;
    const char* shown = nullptr;
    const auto page = MakeReportPage(
        plan, question, assumptions, session.Desktop(),
        [] { return std::make_unique<MuteDesktop>(); },
        [&](const char* what, std::int32_t done, std::int32_t of) {
            if (std::exchange(shown, what) != what) {
                progress.reset();
                progress.emplace(of, 1);
            }
            progress->Show(done);
            return !progress->CancelRequested();
        });
    if (!page) throw kestrel::DataError("The analyses were cancelled; nothing is written.");
    outputs.Find("-o")->Write(*page);
}

}  // namespace refhost
