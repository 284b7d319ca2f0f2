#include "refhost/charts/Histogram.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "ui/controls/ChartScale.h"

namespace refhost {
namespace {

constexpr int kMostSteps = 39;      ///< from the first value to the last
constexpr double kFirstMonday = 2;  ///< a day serial: 1 January 1900

double StepFor(const std::vector<double>& ascending,
               const std::function<bool(double, double)>& differ) {
    const double span = ascending.back() - ascending.front();
    const double noon = std::floor(ascending.front()) + 0.5;
    for (const double hours : {1.0, 3.0, 6.0}) {
        const double step = hours / 24;
        if (span / step < kMostSteps && differ(noon, noon + step)) return step;
    }
    for (const double step : {1.0, 2.0, 7.0})
        if (span / step < kMostSteps) return step;
    double step = 14;
    while (span / step >= kMostSteps) step *= 2;
    return step;
}

/// Counts the values into bars of `step`, one of which starts at `origin`.
Histogram Counted(const std::vector<double>& ascending, double step, double origin) {
    Histogram histogram;
    histogram.step = step;
    const auto barOf = [&](double value) { return std::floor((value - origin) / step); };
    // One free bar at either end, so that a cumulative curve starts and ends level.
    const double firstBar = barOf(ascending.front()) - 1;
    const double lastBar = barOf(ascending.back()) + 1;
    histogram.first = origin + firstBar * step;
    histogram.counts.resize(static_cast<std::size_t>(lastBar - firstBar) + 1);
    for (const double value : ascending)
        ++histogram.counts[static_cast<std::size_t>(barOf(value) - firstBar)];
    return histogram;
}

}  // namespace

std::string Histogram::StepText() const {
    const auto text = [](long count, const char* unit) {
        return count == 1 ? std::string(unit) : std::to_string(count) + " " + unit + "s";
    };
    if (step < 1) return text(std::lround(step * 24), "hour");
    const long days = std::lround(step);
    return days % 7 == 0 ? text(days / 7, "week") : text(days, "day");
}

void Histogram::ReachTo(double value) {
    constexpr double kMostBars = 160;
    const double front = std::ceil(std::max(0.0, first - value) / step);
    const double behind = std::ceil(std::max(0.0, value - End()) / step);
    if (front + behind + static_cast<double>(counts.size()) > kMostBars) return;
    counts.insert(counts.begin(), static_cast<std::size_t>(front), 0);
    counts.insert(counts.end(), static_cast<std::size_t>(behind), 0);
    first -= front * step;
}

Histogram HistogramOf(const std::vector<double>& ascending,
                      const std::function<bool(double, double)>& differ) {
    const double step = StepFor(ascending, differ);
    return Counted(ascending, step, step < 7 ? 0 : kFirstMonday);
}

Histogram AmountHistogramOf(const std::vector<double>& ascending) {
    const double span = ascending.back() - ascending.front();
    const double least = std::max(1.0, std::abs(ascending.back())) * 1e-6;
    return Counted(ascending, kestrel::ui::RoundStep(std::max(span / kMostSteps, least)), 0);
}

}  // namespace refhost
