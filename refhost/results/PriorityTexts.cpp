#include "refhost/results/PriorityTexts.h"

#include <algorithm>

#include "base/NumberText.h"
#include "refhost/charts/FigureText.h"

namespace refhost {

std::string PercentileName(double percentile) { return "P" + kestrel::GeneralText(percentile); }

std::string FigureText(Outcome outcome, double figure) {
    return outcome == Outcome::Finish ? SerialText(figure) : MoneyText(figure);
}

std::string DifferenceText(Outcome outcome, double difference) {
    return outcome == Outcome::Finish ? kestrel::FixedText(difference, 1) + " days"
                                      : WholeMoneyText(difference);
}

std::string FactorName(const Priorities& priorities, std::int32_t id) {
    for (const FactorCost& factor : priorities.factors)
        if (factor.id == id) return factor.name;
    return {};
}

std::string FactorLabel(const Priorities& priorities, std::int32_t id) {
    return std::to_string(id) + " - " + FactorName(priorities, id);
}

Staircase PriorityStaircase(const Priorities& priorities) {
    const Outcome outcome = priorities.question.outcome;
    const bool finish = outcome == Outcome::Finish;
    const auto level = [finish](double figure) {
        return finish ? SerialText(figure).substr(0, 10) : WholeMoneyText(figure);
    };
    const std::string percentile = PercentileName(priorities.question.percentile);
    Staircase chart;
    chart.title = "What each risk factor costs: " + priorities.planName;
    chart.subtitle = percentile + (finish ? " of the finish" : " of the cost") +
                     " without one factor more from row to row";
    chart.singlesTitle = finish ? "One at a time: days earlier without the factor"
                                : "One at a time: money saved without the factor";
    chart.dates = finish;
    chart.tick = level;

    const auto total = [&](const std::string& label, double figure) {
        chart.rows.push_back({label, figure, figure, level(figure), true});
    };
    total(percentile + " today", priorities.all);
    double before = priorities.all;
    for (const PriorityStep& step : priorities.sequence) {
        chart.rows.push_back({"without " + FactorLabel(priorities, step.id), before, step.after,
                              DifferenceText(outcome, -step.saved), false});
        before = step.after;
    }
    if (before != priorities.none)
        chart.rows.push_back({"without all others", before, priorities.none,
                              DifferenceText(outcome, priorities.none - before), false});
    total(percentile + " without any factor", priorities.none);
    total("As planned", priorities.planned);

    for (const FactorCost& factor : priorities.factors)
        chart.singles.push_back({FactorLabel(priorities, factor.id), 0, factor.saved,
                                 DifferenceText(outcome, factor.saved), false});
    std::stable_sort(chart.singles.begin(), chart.singles.end(),
                     [](const StaircaseRow& a, const StaircaseRow& b) { return a.to > b.to; });
    return chart;
}

}  // namespace refhost
