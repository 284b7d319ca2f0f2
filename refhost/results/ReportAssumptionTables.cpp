#include "refhost/results/ReportAssumptionTables.h"

#include "base/NumberText.h"
#include "core/model/RiskElements.h"
#include "refhost/charts/FigureText.h"
#include "refhost/results/Html.h"
#include "store/RiskList.h"
#include "store/TaskField.h"

namespace refhost {
namespace {

constexpr std::int64_t kHour = 60;

std::string Percent(double value) { return kestrel::GeneralText(value) + "%"; }

std::string Percentages(const FactorTracker::Factors& factors) {
    std::vector<HtmlColumn> columns{{"ID", true}, {"Risk factor", false}};
    for (const kestrel::RiskElement& percentage : kestrel::kRiskPercentages)
        columns.push_back({percentage.heading, true});
    columns.push_back({"Correlated to", true});
    HtmlTable table(std::move(columns));
    for (const auto& factor : factors) {
        std::vector<std::string> cells{factor->strID, HtmlName(factor->strDescription)};
        for (const kestrel::RiskElement& percentage : kestrel::kRiskPercentages)
            cells.push_back(Percent((*factor).*percentage.figure));
        cells.push_back(factor->CorrelatedTo == 0 ? "" : std::to_string(factor->CorrelatedTo));
        table.Add(std::move(cells));
    }
    return "<h2>Risk factor percentages</h2>\n" +
           (factors.empty() ? "<p>The plan holds no risk factors.</p>\n" : table.Text());
}

/// Working time in hours, as exactly as the minutes are.
std::string Hours(double minutes) { return kestrel::GeneralText(minutes / kHour); }

std::string Distributions(const PlanData& plan) {
    HtmlTable table({{"ID", false},
                     {"Task", false},
                     {"Planned", true},
                     {"Minimum", true},
                     {"Most likely", true},
                     {"Maximum", true}});
    for (const TaskData& task : plan.tasks) {
        if (task.type != kOrdinary) continue;
        const ThreePoint* points = task.distribution ? &*task.distribution : nullptr;
        table.Add({HtmlName(task.id), HtmlName(task.name), Hours(task.duration),
                   points ? Hours(points->minimum) : "", points ? Hours(points->mostLikely) : "",
                   points ? Hours(points->maximum) : ""});
    }
    return "<h2>Duration distributions</h2>\n<p>In working hours. A task without three points "
           "lasts "
           "as planned but for its risk factors.</p>\n" +
           table.Text();
}

std::string Named(const kestrel::RiskIDs& ids, const FactorTracker::Factors& factors) {
    std::string html;
    for (const std::int32_t id : ids) {
        const bool held = id >= 1 && static_cast<std::size_t>(id) <= factors.size();
        html += (html.empty() ? "" : "<br>") + std::to_string(id) + " - " +
                (held ? HtmlName(factors[static_cast<std::size_t>(id) - 1]->strDescription)
                      : std::string("(not in the register)"));
    }
    return html;
}

std::string Assignments(const PlanData& plan, const FactorTracker::Factors& factors) {
    HtmlTable table({{"ID", false}, {"Task", false}, {"In series", false}, {"In parallel", false}});
    bool any = false;
    for (const TaskData& task : plan.tasks) {
        const std::string* field = FindText(task.userValues, kestrel::kRiskFactorsField);
        if (!field || field->empty()) continue;
        any = true;
        const auto group = [&](bool inSeries) {
            return Named(kestrel::ListedIDs(kestrel::GetRiskList(*field, inSeries)), factors);
        };
        table.Add({HtmlName(task.id), HtmlName(task.name), group(true), group(false)});
    }
    return "<h2>Risk factors of each task</h2>\n" +
           (any ? "<p>Series factors multiply, of parallel ones the largest counts.</p>\n" +
                      table.Text()
                : "<p>No task carries a risk factor.</p>\n");
}

}  // namespace

std::string AssumptionTables(const PlanData& plan, const FactorTracker::Factors& factors,
                             const ReportAssumptions& assumptions) {
    std::string html;
    if (assumptions.percentages) html += Percentages(factors);
    if (assumptions.distributions) html += Distributions(plan);
    if (assumptions.assignments) html += Assignments(plan, factors);
    return html;
}

}  // namespace refhost
