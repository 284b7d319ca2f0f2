#include "refhost/cli/Report.h"

#include <algorithm>
#include <cmath>

#include "base/NumberText.h"
#include "refhost/charts/FigureText.h"
#include "refhost/cli/Json.h"
#include "refhost/cli/Table.h"

namespace refhost {
namespace {

using kestrel::FixedText;

std::string Percent(double value, int decimals) { return FixedText(value, decimals) + "%"; }

std::string ResultTable(const Report& report) {
    Table table(
        {{"", Table::Align::Left}, {"Finish", Table::Align::Left}, {"Cost", Table::Align::Right}});
    table.Add({"Deterministic", DateAndTimeText(report.deterministicFinish),
               MoneyText(report.deterministicCost)});
    const auto add = [&](const char* name, double Summary::*figure) {
        table.Add({name, SerialText(report.finish.*figure), MoneyText(report.cost.*figure)});
    };
    add("Mean", &Summary::mean);
    add("P10", &Summary::p10);
    add("P50", &Summary::p50);
    add("P80", &Summary::p80);
    add("P90", &Summary::p90);
    return table.Text();
}

std::string Bar(double correlation) {
    const auto length = static_cast<int>(std::lround(correlation * correlation * 30));
    std::string bar;
    for (int i = 0; i < length; ++i) bar += "\u2588";
    return bar.empty() && correlation != 0 ? "\u258F" : bar;
}

std::string RankingTable(const Report& report) {
    Table table({{"Rank", Table::Align::Right},
                 {"ID", Table::Align::Right},
                 {"Risk factor", Table::Align::Left},
                 {"Finish", Table::Align::Right},
                 {"Cost", Table::Align::Right},
                 {"Occurred", Table::Align::Right},
                 {"Mean impact", Table::Align::Right},
                 {"As in Driving Risks", Table::Align::Right},
                 {"Share of the finish", Table::Align::Left}});
    int rank = 0;
    for (const std::size_t i : RankedBy(report.figures, &FactorFigures::alignedDurSens)) {
        const kestrel::clsRiskFactor& factor = *report.factors[i];
        const FactorFigures& figures = report.figures[i];
        const double share =
            static_cast<double>(figures.occurrences) / report.settings.iterations * 100;
        table.Add({std::to_string(++rank), factor.strID, factor.strDescription,
                   FixedText(figures.alignedDurSens, 3), FixedText(figures.alignedCostSens, 3),
                   Percent(share, 1), Percent(figures.meanDurationImpact * 100, 1),
                   FixedText(factor.dblDurSens, 3) + " / " + FixedText(factor.m_dCostSens, 3),
                   Bar(figures.alignedDurSens)});
    }
    return table.Text();
}

std::string CriticalTable(const std::vector<TaskShare>& tasks) {
    constexpr std::size_t kMost = 10;
    Table table({{"Critical", Table::Align::Right},
                 {"ID", Table::Align::Right},
                 {"Task", Table::Align::Left}});
    for (const TaskShare& task : MostCritical(tasks, kMost))
        table.Add({Percent(task.criticality * 100, 1), task.id, task.name});
    return table.Text();
}

std::string TargetText(const Target& target) {
    const auto percent = [](double share) { return Percent(share * 100, 1); };
    return "Chance to finish by " + DateAndTimeText(target.finish) + ": " +
           percent(target.chanceFinish) + "; to cost no more than " + MoneyText(target.cost) +
           ": " + percent(target.chanceCost) + "; both: " + percent(target.chanceBoth) + "\n";
}

void AddSummary(JsonWriter& json, const char* name, const Summary& summary) {
    json.Break().Key(name).BeginObject();
    json.Key("mean").Double(summary.mean).Key("sd").Double(summary.sd);
    json.Key("p10").Double(summary.p10).Key("p50").Double(summary.p50);
    json.Key("p80").Double(summary.p80).Key("p90").Double(summary.p90).EndObject();
}

void AddTasks(JsonWriter& json, const Report& report) {
    if (!report.tasks) return;
    json.Break().Key("tasks").BeginArray();
    for (const TaskShare& task : *report.tasks) {
        json.Break().BeginObject().Key("id").Text(task.id);
        json.Key("criticality").Double(task.criticality).EndObject();
    }
    json.EndArray();
}

void AddTarget(JsonWriter& json, const Report& report) {
    if (!report.target) return;
    const Target& target = *report.target;
    json.Break().Key("target").BeginObject();
    json.Key("finish").Text(DateAndTimeText(target.finish, "T") + ":00");
    json.Key("cost").Double(target.cost);
    json.Key("chanceFinish").Double(target.chanceFinish);
    json.Key("chanceCost").Double(target.chanceCost);
    json.Key("chanceBoth").Double(target.chanceBoth).EndObject();
}

}  // namespace

std::string ReportText(const Report& report) {
    std::string text = report.planName + ": " + std::to_string(report.settings.iterations) +
                       " iterations, seed " + std::to_string(report.settings.seed) + "\n\n" +
                       ResultTable(report) + "\n";
    if (report.target) text += TargetText(*report.target) + "\n";
    if (report.factors.empty())
        text += "The plan holds no risk factors; only the tasks' own distributions count.\n";
    else
        text +=
            "What drives the finish (correlations with finish and cost)\n\n" +
            RankingTable(report) +
            "\nFinish and Cost correlate one impact per iteration with the result; the stored\n"
            "figures, as in Driving Risks (finish / cost), take one at each visit of a task and\n"
            "come out near 0 for a factor that many tasks carry. What each factor costs, in\n"
            "days or money: kestrel prioritise.\n";
    if (report.tasks)
        text += "\nThe tasks that are critical most often\n\n" + CriticalTable(*report.tasks);
    return text;
}

std::string ReportJson(const Report& report) {
    JsonWriter json;
    json.BeginObject().Key("plan").Text(report.planName);
    json.Key("iterations").Whole(std::int64_t{report.settings.iterations});
    json.Key("seed").Whole(report.settings.seed);
    json.Break().Key("deterministic").BeginObject();
    json.Key("finish").Text(DateAndTimeText(report.deterministicFinish, "T") + ":00");
    json.Key("finishSerial").Double(DateSerial(report.deterministicFinish));
    json.Key("cost").Double(report.deterministicCost).EndObject();
    AddSummary(json, "finish", report.finish);
    AddSummary(json, "cost", report.cost);
    json.Break().Key("factors").BeginArray();
    for (std::size_t i = 0; i < report.factors.size(); ++i) {
        const kestrel::clsRiskFactor& factor = *report.factors[i];
        json.Break().BeginObject().Key("id").Whole(static_cast<std::int64_t>(i + 1));
        json.Key("name").Text(factor.strDescription);
        json.Key("durSens").Double(factor.dblDurSens).Key("costSens").Double(factor.m_dCostSens);
        const FactorFigures& figures = report.figures[i];
        json.Key("occurrences").Whole(figures.occurrences);
        json.Key("meanDurationImpact").Double(figures.meanDurationImpact);
        json.Key("meanCostImpact").Double(figures.meanCostImpact);
        json.Key("alignedDurSens").Double(figures.alignedDurSens);
        json.Key("alignedCostSens").Double(figures.alignedCostSens).EndObject();
    }
    json.EndArray();
    AddTasks(json, report);
    AddTarget(json, report);
    json.EndObject();
    return json.Result() + "\n";
}

std::string RegisterTable(const FactorTracker::Factors& factors) {
    Table table({{"ID", Table::Align::Right},
                 {"Risk factor", Table::Align::Left},
                 {"Duration min", Table::Align::Right},
                 {"likely", Table::Align::Right},
                 {"max", Table::Align::Right},
                 {"Cost min", Table::Align::Right},
                 {"likely", Table::Align::Right},
                 {"max", Table::Align::Right},
                 {"Likelihood", Table::Align::Right},
                 {"Correlated to", Table::Align::Right}});
    for (const auto& factor : factors)
        table.Add({factor->strID, factor->strDescription, Percent(factor->dblMin, 2),
                   Percent(factor->dblML, 2), Percent(factor->dblMax, 2),
                   Percent(factor->dblCostMin, 2), Percent(factor->dblCostML, 2),
                   Percent(factor->dblCostMax, 2), Percent(factor->dblProb, 2),
                   factor->CorrelatedTo == 0 ? "" : std::to_string(factor->CorrelatedTo)});
    return table.Text();
}

}  // namespace refhost
