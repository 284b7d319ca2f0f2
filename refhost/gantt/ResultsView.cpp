#include "refhost/gantt/ResultsView.h"

#include <algorithm>

#include "base/NumberText.h"
#include "refhost/charts/FigureText.h"
#include "refhost/charts/FinishDistribution.h"
#include "refhost/engine/Statistics.h"

namespace refhost {
namespace {

constexpr int kPercentiles[] = {5, 10, 20, 30, 40, 50, 60, 70, 80, 90, 95};

/// Share of the ascending values that are no larger.
std::string ChanceText(const std::vector<double>& ascending, double value) {
    const auto kept = std::upper_bound(ascending.begin(), ascending.end(), value);
    return kestrel::PercentText(static_cast<double>(kept - ascending.begin()) /
                                static_cast<double>(ascending.size()));
}

}  // namespace

std::vector<ResultRow> ResultRows(const AnalysisResults& results) {
    std::vector<double> finish(results.finish), cost(results.cost);
    std::sort(finish.begin(), finish.end());
    std::sort(cost.begin(), cost.end());
    const Summary finishSummary = Summarise(results.finish);
    const Summary costSummary = Summarise(results.cost);

    std::vector<ResultRow> rows;
    rows.push_back({"As planned", DateAndTimeText(results.deterministicFinish),
                    MoneyText(results.deterministicCost)});
    rows.push_back({"Chance to keep that",
                    ChanceText(finish, DateSerial(results.deterministicFinish)),
                    ChanceText(cost, results.deterministicCost)});
    rows.push_back({"Mean", SerialText(finishSummary.mean), MoneyText(costSummary.mean)});
    rows.push_back({"Standard deviation", kestrel::FixedText(finishSummary.sd, 1) + " days",
                    MoneyText(costSummary.sd)});
    rows.push_back({"Least", SerialText(finish.front()), MoneyText(cost.front())});
    for (const int percent : kPercentiles)
        rows.push_back({"P" + std::to_string(percent),
                        SerialText(Percentile(finish, percent / 100.0)),
                        MoneyText(Percentile(cost, percent / 100.0))});
    rows.push_back({"Most", SerialText(finish.back()), MoneyText(cost.back())});
    return rows;
}

kestrel::ui::ChartDrawing ResultDrawing(const PlanResults& results, ResultMeasure measure,
                                        int width, int height) {
    const std::string title =
        results.planName + ": " + std::to_string(results.settings.iterations) + " iterations";
    if (measure == ResultMeasure::Cost)
        return CostDistribution(results.results.cost, title, width, height);
    const auto date = [](double serial) { return SerialText(serial).substr(0, 10); };
    return FinishDistribution(results.results.finish, title, date, width, height);
}

}  // namespace refhost
