#include "refhost/cli/Report.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/NumberText.h"
#include "core/analysis/modPearsons.h"
#include "refhost/charts/FigureText.h"
#include "refhost/cli/Json.h"
#include "refhost/cli/Table.h"

namespace refhost {
namespace {

using kestrel::FixedText;

std::string Percent(double value, int decimals) { return FixedText(value, decimals) + "%"; }

/// Positions of the factors, the strongest driver of the finish first; equals by position.
std::vector<std::size_t> RankedByFinish(const FactorTracker::Factors& factors) {
    std::vector<std::size_t> order(factors.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        const auto square = [&](std::size_t i) {
            return factors[i]->dblDurSens * factors[i]->dblDurSens;
        };
        return square(a) > square(b);
    });
    return order;
}

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
                 {"Aligned", Table::Align::Right},
                 {"Share of the finish", Table::Align::Left}});
    int rank = 0;
    for (const std::size_t i : RankedByFinish(report.factors)) {
        const kestrel::clsRiskFactor& factor = *report.factors[i];
        const double share =
            static_cast<double>(report.figures[i].occurrences) / report.settings.iterations * 100;
        table.Add({std::to_string(++rank), factor.strID, factor.strDescription,
                   FixedText(factor.dblDurSens, 3), FixedText(factor.m_dCostSens, 3),
                   Percent(share, 1), Percent(report.figures[i].meanDurationImpact * 100, 1),
                   FixedText(report.figures[i].alignedDurSens, 3), Bar(factor.dblDurSens)});
    }
    return table.Text();
}

void AddSummary(JsonWriter& json, const char* name, const Summary& summary) {
    json.Break().Key(name).BeginObject();
    json.Key("mean").Double(summary.mean).Key("sd").Double(summary.sd);
    json.Key("p10").Double(summary.p10).Key("p50").Double(summary.p50);
    json.Key("p80").Double(summary.p80).Key("p90").Double(summary.p90).EndObject();
}

/// A result over all iterations, its statistics worked out once for all factors.
struct ResultSeries {
    explicit ResultSeries(const std::vector<double>& values)
        : samples(values),
          mean(kestrel::CollectionMean(values)),
          deviation(kestrel::CollectionStdDev(values, mean)) {}

    double Aligned(const std::vector<double>& impacts) {
        if (impacts.size() < samples.size()) return 0;
        return kestrel::ArrayPearson(samples, impacts, samples.size(), true, mean, deviation);
    }

    const std::vector<double>& samples;
    double mean;
    double deviation;
};

}  // namespace

std::vector<FactorFigures> FiguresOf(const FactorTracker& factors, const AnalysisResults& results) {
    std::vector<FactorFigures> all(factors.Register().size());
    ResultSeries finish(results.finish);
    ResultSeries cost(results.cost);
    for (std::size_t i = 0; i < all.size(); ++i) {
        const std::vector<double>& durations = factors.DurationImpacts(i);
        const std::vector<double>& costs = factors.CostImpacts(i);
        all[i].occurrences = factors.Occurrences()[i];
        all[i].alignedDurSens = finish.Aligned(durations);
        all[i].alignedCostSens = cost.Aligned(costs);
        if (durations.empty()) continue;
        all[i].meanDurationImpact = kestrel::CollectionMean(durations);
        all[i].meanCostImpact = kestrel::CollectionMean(costs);
    }
    return all;
}

std::string ReportText(const Report& report) {
    std::string text = report.planName + ": " + std::to_string(report.settings.iterations) +
                       " iterations, seed " + std::to_string(report.settings.seed) + "\n\n" +
                       ResultTable(report) + "\n";
    if (report.factors.empty())
        return text + "The plan holds no risk factors; only the tasks' own distributions count.\n";
    return text + "What drives the finish (correlations with finish and cost)\n\n" +
           RankingTable(report) +
           "\nFinish and Cost correlate the impact at each visit of a task; Aligned correlates one "
           "impact\n"
           "per iteration with the finish, the fairer measure for a factor that many tasks "
           "carry.\n";
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
    json.EndArray().EndObject();
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
