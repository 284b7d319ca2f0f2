#include "ui/controls/ChartScale.h"

#include <cmath>

#include "base/NumberText.h"

namespace kestrel::ui {

double RoundStep(double least) {
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least * (1 - 1e-9)) return factor * power;
    return 10 * power;
}

std::vector<ChartTick> PercentTicks(double min, double max, int count) {
    if (!(max > min)) return {};
    const double step = RoundStep((max - min) / count);
    const int magnitude = static_cast<int>(std::floor(std::log10(step) + 1e-9));
    const int decimals = magnitude >= -2 ? 0 : -2 - magnitude;
    std::vector<ChartTick> ticks;
    const double slack = step * 1e-6;
    for (double n = std::ceil((min - slack) / step); n * step <= max + slack; n += 1)
        ticks.push_back({n * step, FixedText(n * step * 100, decimals) + "%"});
    return ticks;
}

}  // namespace kestrel::ui
