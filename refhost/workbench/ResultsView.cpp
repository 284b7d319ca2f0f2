#include "refhost/workbench/ResultsView.h"

#include <algorithm>
#include <unordered_map>

#include "base/NumberText.h"
#include "refhost/charts/Cloud.h"
#include "refhost/charts/FigureText.h"
#include "refhost/charts/FinishDistribution.h"
#include "refhost/engine/Statistics.h"
#include "refhost/files/ValueText.h"
#include "refhost/results/PriorityTexts.h"
#include "refhost/results/Targets.h"

namespace refhost {
namespace {

constexpr int kPercentiles[] = {5, 10, 20, 30, 40, 50, 60, 70, 80, 90, 95};

std::vector<double> Ascending(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values;
}

/// The rows of percentiles, and of mean and ends.
class FigureRows {
 public:
    FigureRows(const AnalysisResults& results, ResultTable& table)
        : plannedFinish_(DateSerial(results.deterministicFinish)),
          plannedCost_(results.deterministicCost),
          table_(table) {}

    void Add(const std::string& name, double finish, double cost) {
        table_.rows.push_back({name, SerialText(finish),
                               DifferenceText(Outcome::Finish, finish - plannedFinish_),
                               MoneyText(cost), WholeMoneyText(cost - plannedCost_)});
    }

 private:
    double plannedFinish_;
    double plannedCost_;
    ResultTable& table_;
};

std::string DayText(double serial) { return SerialText(serial).substr(0, 10); }

std::string ChartTitle(const PlanResults& results) {
    return results.plan.name + ": " + std::to_string(results.settings.iterations) + " iterations";
}

}  // namespace

std::optional<PlanResults> ResultsOf(const LivePlan& plan) {
    if (!plan.Data().results) return std::nullopt;
    return PlanResults{*plan.Data().results, plan.Snapshot(), plan.ResultsUpToDate()};
}

std::string ShortText(const PlanResults& results) {
    const Summary finish = Summarise(results.results.finish);
    return std::to_string(results.settings.iterations) + " iterations, seed " +
           std::to_string(results.settings.seed) + ": P50 " + SerialText(finish.p50).substr(0, 10) +
           ", P80 " + SerialText(finish.p80).substr(0, 10);
}

std::string OriginText(const PlanResults& results, bool upToDate) {
    std::string text = std::to_string(results.settings.iterations) + " iterations, seed " +
                       std::to_string(results.settings.seed) + ", " + DateAndTimeText(results.when);
    if (results.settings.iterations > kMostStoredIterations)
        text += ", too many to be saved with the plan";
    if (results.tasksEvery > 1)
        text += "; tasks: one iteration of " + std::to_string(results.tasksEvery);
    if (!upToDate) text += ". The plan has changed since.";
    return text;
}

std::vector<double> CriticalityOf(const StoredResults& results, const PlanData& plan) {
    std::unordered_map<std::string, double> shares;
    for (const TaskResult& task : results.tasks) shares.emplace(task.id, task.criticality);
    std::vector<double> all;
    for (const TaskData& task : plan.tasks) {
        const auto found = shares.find(task.id);
        all.push_back(found == shares.end() ? 0 : found->second);
    }
    return all;
}

ResultTable DistributionTable(const AnalysisResults& results) {
    const std::vector<double> finish = Ascending(results.finish), cost = Ascending(results.cost);
    const Summary finishSummary = Summarise(results.finish), costSummary = Summarise(results.cost);
    const Target planned = ChancesOf(results, std::nullopt, std::nullopt);
    ResultTable table{{{"Result", 128},
                       {"Finish", 112, true},
                       {"Contingency", 84, true},
                       {"Cost", 104, true},
                       {"Contingency", 84, true}},
                      {}};
    table.rows.push_back({"As planned", DateAndTimeText(results.deterministicFinish), "",
                          MoneyText(results.deterministicCost), ""});
    table.rows.push_back({"Chance to keep that", kestrel::PercentText(planned.chanceFinish), "",
                          kestrel::PercentText(planned.chanceCost), ""});
    table.rows.push_back({"Standard deviation", kestrel::FixedText(finishSummary.sd, 1) + " days",
                          "", MoneyText(costSummary.sd), ""});
    FigureRows figures(results, table);
    figures.Add("Mean", finishSummary.mean, costSummary.mean);
    figures.Add("Least", finish.front(), cost.front());
    for (const int percent : kPercentiles)
        figures.Add("P" + std::to_string(percent), Percentile(finish, percent / 100.0),
                    Percentile(cost, percent / 100.0));
    figures.Add("Most", finish.back(), cost.back());
    return table;
}

ResultTable JointTable(const AnalysisResults& results) {
    const std::vector<double> finish = Ascending(results.finish), cost = Ascending(results.cost);
    ResultTable table{
        {{"Result", 128}, {"Finish", 130, true}, {"Cost", 124, true}, {"Both kept", 130, true}},
        {}};
    const auto add = [&](const std::string& name, double serial, double amount) {
        std::size_t both = 0;
        for (std::size_t i = 0; i < finish.size(); ++i)
            both += results.finish[i] <= serial && results.cost[i] <= amount;
        table.rows.push_back(
            {name, SerialText(serial), MoneyText(amount),
             kestrel::PercentText(static_cast<double>(both) / static_cast<double>(finish.size()))});
    };
    add("As planned", DateSerial(results.deterministicFinish), results.deterministicCost);
    for (const int percent : kPercentiles)
        add("P" + std::to_string(percent), Percentile(finish, percent / 100.0),
            Percentile(cost, percent / 100.0));
    return table;
}

ResultTable FactorTable(const Priorities& priorities) {
    const Outcome outcome = priorities.question.outcome;
    const std::string percentile = PercentileName(priorities.question.percentile);
    ResultTable table{{{"ID", 36, true},
                       {"Risk factor", 250},
                       {"It alone costs", 100, true},
                       {percentile + " without it", 126, true}},
                      {}};
    std::vector<FactorCost> factors = priorities.factors;
    std::stable_sort(factors.begin(), factors.end(),
                     [](const FactorCost& a, const FactorCost& b) { return a.saved > b.saved; });
    for (const FactorCost& factor : factors)
        table.rows.push_back({std::to_string(factor.id), factor.name,
                              DifferenceText(outcome, factor.saved),
                              FigureText(outcome, factor.without)});
    return table;
}

ResultTable CriticalTaskTable(const PlanResults& results) {
    ResultTable table{{{"ID", 90},
                       {"Task", 560},
                       {"Critical", 90, true},
                       {"P50 finish", 130, true},
                       {"P80 finish", 130, true}},
                      {}};
    std::unordered_map<std::string, const std::string*> names;
    for (const TaskData& task : results.plan.tasks) names.emplace(task.id, &task.name);
    std::vector<const TaskResult*> ranked;
    for (const TaskResult& task : results.tasks)
        if (task.p50 && task.p80) ranked.push_back(&task);
    std::stable_sort(ranked.begin(), ranked.end(), [](const TaskResult* a, const TaskResult* b) {
        return a->criticality > b->criticality;
    });
    for (const TaskResult* task : ranked) {
        const auto name = names.find(task->id);
        table.rows.push_back({task->id, name == names.end() ? "" : *name->second,
                              kestrel::PercentText(task->criticality), DateAndTimeText(*task->p50),
                              DateAndTimeText(*task->p80)});
    }
    return table;
}

kestrel::ui::ChartDrawing ResultDrawing(const PlanResults& results, Outcome measure, int width,
                                        int height) {
    const std::string title = ChartTitle(results);
    const AnalysisResults& found = results.results;
    DistributionContext context;
    if (measure == Outcome::Cost) {
        context.planned = found.deterministicCost;
        if (results.without) context.without = Ascending(results.without->cost);
        return CostDistribution(found.cost, title, width, height, context);
    }
    context.planned = DateSerial(found.deterministicFinish);
    if (results.without) context.without = Ascending(results.without->finish);
    return FinishDistribution(found.finish, title, DayText, width, height, context);
}

kestrel::ui::ChartDrawing JointDrawing(const PlanResults& results, const std::string& finish,
                                       const std::string& cost, int width, int height) {
    const auto date = ReadTargetDate(finish);
    const auto amount = ReadNumber(cost);
    std::optional<CloudTarget> target;
    if (date && amount) target = {DateSerial(*date), *amount};
    return DrawCloud(results.results.finish, results.results.cost, target, ChartTitle(results),
                     DayText, width, height);
}

kestrel::ui::ChartDrawing FactorDrawing(const Priorities& priorities, int width, int height) {
    Staircase chart = PriorityStaircase(priorities);
    kestrel::ui::ChartDrawing drawing = DrawStaircase(chart, width);
    if (drawing.height > height) {
        chart.singles.clear();  // the table beside the chart has them
        drawing = DrawStaircase(chart, width);
    }
    constexpr std::size_t kLevels = 3;  // today, without any factor, as planned
    for (int joined = 2; drawing.height > height && chart.rows.size() > kLevels + 1; ++joined) {
        const auto last = chart.rows.end() - 3;
        StaircaseRow& into = *(last - 1);
        into.to = last->to;
        into.label = "without " + std::to_string(joined) + " more";
        into.note = DifferenceText(priorities.question.outcome, into.to - into.from);
        chart.rows.erase(last);
        drawing = DrawStaircase(chart, width);
    }
    return drawing;
}

std::string TargetText(const AnalysisResults& results, const std::string& finish,
                       const std::string& cost) {
    const auto date = ReadTargetDate(finish);
    if (!date) return "Give the target finish as 2027-10-01 or 2027-10-01 17:00.";
    const auto amount = ReadNumber(cost);
    if (!amount) return "Give the target cost as 31500000.";
    const Target target = ChancesOf(results, date, amount);
    return "Chance to finish by then " + kestrel::PercentText(target.chanceFinish) +
           ", to cost no more " + kestrel::PercentText(target.chanceCost) + ", both " +
           kestrel::PercentText(target.chanceBoth);
}

}  // namespace refhost
