#include "refhost/results/Report.h"

#include <algorithm>

namespace refhost {

Report MakeReport(ReferenceHost& host, kestrel::Desktop& desktop, const AnalysisSettings& settings,
                  const AnalysisResults& results, const FactorTracker& factors) {
    Report report;
    report.planName = host.OpenPlan()->Name();
    report.settings = settings;
    report.deterministicFinish = results.deterministicFinish;
    report.deterministicCost = results.deterministicCost;
    report.finish = Summarise(results.finish);
    report.cost = Summarise(results.cost);
    report.factors = FactorTracker::ReadRegister(host, desktop);
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

std::vector<TaskShare> MostCritical(const std::vector<TaskShare>& tasks, std::size_t count) {
    std::vector<TaskShare> ranked;
    for (const TaskShare& task : tasks)
        if (task.criticality > 0) ranked.push_back(task);
    std::stable_sort(ranked.begin(), ranked.end(), [](const TaskShare& a, const TaskShare& b) {
        return a.criticality > b.criticality;
    });
    ranked.resize(std::min(count, ranked.size()));
    return ranked;
}

}  // namespace refhost
