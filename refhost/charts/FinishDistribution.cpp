#include "refhost/charts/FinishDistribution.h"

#include <algorithm>
#include <stdexcept>

#include "refhost/charts/FigureText.h"
#include "ui/controls/ChartSvg.h"

namespace refhost {
namespace {

void NeedValues(const std::vector<double>& values) {
    if (values.empty()) throw std::invalid_argument("a distribution needs at least one value");
}

}  // namespace

kestrel::ui::ChartDrawing FinishDistribution(std::vector<double> finish, const std::string& title,
                                             const DateFormatter& date, int width, int height,
                                             const DistributionContext& context) {
    NeedValues(finish);
    std::sort(finish.begin(), finish.end());
    const Histogram histogram =
        HistogramOf(finish, [&date](double a, double b) { return date(a) != date(b); });
    return DrawDistribution(
        finish, histogram,
        {title, "Project finish", "Finished by then", histogram.StepText(), date}, width, height,
        context);
}

std::string FinishDistributionSvg(const std::vector<double>& finish, const std::string& title,
                                  const DateFormatter& date, int width, int height) {
    return kestrel::ui::SvgText(FinishDistribution(finish, title, date, width, height));
}

kestrel::ui::ChartDrawing CostDistribution(std::vector<double> cost, const std::string& title,
                                           int width, int height,
                                           const DistributionContext& context) {
    NeedValues(cost);
    std::sort(cost.begin(), cost.end());
    const Histogram histogram = AmountHistogramOf(cost);
    const auto text = histogram.step < 1 ? MoneyText : WholeMoneyText;
    return DrawDistribution(cost, histogram,
                            {title, "Project cost", "Costs no more", text(histogram.step), text},
                            width, height, context);
}

}  // namespace refhost
